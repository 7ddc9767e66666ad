# Installs a build, starts the installed workbench, checks the installed host libraries, and builds and runs the
# example, which uses the installed package only.
set(folder ${BUILD_FOLDER}/package-test)
set(installed ${folder}/installed)
file(REMOVE_RECURSE ${folder})

# run(command argument...) stops the script if the command fails. The output of the command is in ${output}.
function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY OUTPUT_VARIABLE output ECHO_OUTPUT_VARIABLE)
    set(output ${output} PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_FOLDER} --prefix ${installed})

# Of the host only the contract is installed, without the control interface of the simulated host.
file(GLOB headers RELATIVE ${installed}/include/simpleextend ${installed}/include/simpleextend/*)
set(expected_headers basemodule.h baseservices.h basewidgets.h helpsharemodule.h iomap.h simpleextendexportfunc.h)
if(NOT headers STREQUAL expected_headers)
    message(FATAL_ERROR "The installed headers are ${headers} instead of ${expected_headers}")
endif()

run(${installed}/bin/workbench --table)
if(NOT output MATCHES "Digital Input 16 x 24 V")
    message(FATAL_ERROR "The installed workbench does not list the modules of the installed catalog")
endif()

run(${installed}/bin/hostcheck)

run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/../../examples/minimal-host -B ${folder}/build -G ${GENERATOR}
    -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_BUILD_TYPE=${BUILD_TYPE} -D CMAKE_PREFIX_PATH=${installed})
run(${CMAKE_COMMAND} --build ${folder}/build)
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${folder}/build/minimal-host --no-dialog)
