# Language level, warnings and sanitizers of every target.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
                    -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
    # The boundary passes Qt value types through functions with C names, by agreement with the host.
    add_compile_options(-Wno-return-type-c-linkage)
endif()
add_compile_definitions(QT_DEPRECATED_WARNINGS QT_NO_FOREACH QT_NO_CAST_FROM_BYTEARRAY QT_USE_QSTRINGBUILDER)

# A replacement of a host library is looked for in LD_LIBRARY_PATH before the path that was linked in.
add_link_options(-Wl,--enable-new-dtags)
if(NOT SIMPLEEXTEND_FUZZ) # clang leaves the sanitizers' functions to the program that loads a library
    add_link_options(-Wl,--no-undefined)
endif()

if(SIMPLEEXTEND_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

if(SIMPLEEXTEND_COVERAGE)
    # Every program and library writes its counters when it ends, processes at the same time add theirs up.
    add_compile_options(--coverage -O0)
    add_link_options(--coverage)
endif()

if(SIMPLEEXTEND_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID MATCHES Clang)
        message(FATAL_ERROR "SIMPLEEXTEND_FUZZ needs clang's fuzzing engine")
    endif()
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-coverage=trace-cmp
                        -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
