# Installs the plug-in, the CMake package for find_package(simpleextend) and the file for pkg-config.
# host/CMakeLists.txt installs the simulated host libraries, their headers and the catalog.
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/simpleextend)

# Other host libraries are not installed; the plug-in finds them in the folder of the build.
set_target_properties(simpleextend PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
install(TARGETS simpleextend EXPORT simpleextendTargets LIBRARY DESTINATION ${SIMPLEEXTEND_LIBRARY_FOLDER})
install(FILES core/exports/iomap.h core/exports/simpleextendexportfunc.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/simpleextend COMPONENT development)

install(EXPORT simpleextendTargets NAMESPACE simpleextend:: DESTINATION ${package_folder} COMPONENT development)
configure_package_config_file(cmake/simpleextendConfig.cmake.in ${CMAKE_BINARY_DIR}/simpleextendConfig.cmake
    INSTALL_DESTINATION ${package_folder} NO_SET_AND_CHECK_MACRO)
# The binary interface is fixed within a major version.
write_basic_package_version_file(${CMAKE_BINARY_DIR}/simpleextendConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/simpleextendConfig.cmake ${CMAKE_BINARY_DIR}/simpleextendConfigVersion.cmake
    DESTINATION ${package_folder} COMPONENT development)

# For programs that are built without CMake. The prefix is relative to the file, so it can be moved.
if(NOT SIMPLEEXTEND_HOST_DIR)
    set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
    file(RELATIVE_PATH prefix_of_pkgconfig /${pkgconfig_folder} /)
    string(REGEX REPLACE "/$" "" prefix_of_pkgconfig ${prefix_of_pkgconfig})
    configure_file(cmake/simpleextend.pc.in ${CMAKE_BINARY_DIR}/simpleextend.pc @ONLY)
    install(FILES ${CMAKE_BINARY_DIR}/simpleextend.pc DESTINATION ${pkgconfig_folder} COMPONENT development)
endif()
