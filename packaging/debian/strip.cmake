# Removes debug symbols and the section that names the compiler, before CPack compresses the packages. The option
# CPACK_STRIP_FILES leaves this section, about which lintian complains.
file(GLOB_RECURSE binaries ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/usr/bin/* ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*.so)
foreach(binary IN LISTS binaries)
    execute_process(COMMAND strip --strip-unneeded --remove-section=.comment --remove-section=.note ${binary}
        COMMAND_ERROR_IS_FATAL ANY)
endforeach()
