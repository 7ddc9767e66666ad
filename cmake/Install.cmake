# What an installed plug-in consists of, and the package that find_package(simpleextend) reads.
# The host libraries, their headers and the catalog are installed by host/, the simulated ones only.
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/simpleextend)

# Host libraries that are not installed here are found where they were linked from.
set_target_properties(simpleextend PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
install(TARGETS simpleextend EXPORT simpleextendTargets)
install(FILES core/exports/iomap.h core/exports/simpleextendexportfunc.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/simpleextend)

install(EXPORT simpleextendTargets NAMESPACE simpleextend:: DESTINATION ${package_folder})
configure_package_config_file(cmake/simpleextendConfig.cmake.in ${CMAKE_BINARY_DIR}/simpleextendConfig.cmake
    INSTALL_DESTINATION ${package_folder} NO_SET_AND_CHECK_MACRO)
# The binary interface is fixed within a major version.
write_basic_package_version_file(${CMAKE_BINARY_DIR}/simpleextendConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/simpleextendConfig.cmake ${CMAKE_BINARY_DIR}/simpleextendConfigVersion.cmake
    DESTINATION ${package_folder})
