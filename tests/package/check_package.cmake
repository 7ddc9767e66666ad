# Installs a build, then builds and runs a program that knows nothing but the installed package.
set(folder ${BUILD_FOLDER}/package-test)
file(REMOVE_RECURSE ${folder})

function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_FOLDER} --prefix ${folder}/installed)
run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR} -B ${folder}/build -G ${GENERATOR}
    -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_BUILD_TYPE=${BUILD_TYPE} -D CMAKE_PREFIX_PATH=${folder}/installed)
run(${CMAKE_COMMAND} --build ${folder}/build)
run(${folder}/build/consumer)
