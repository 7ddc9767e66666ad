# Language level, warnings and sanitizers of every target. The presets make warnings errors.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
                    -Wnon-virtual-dtor -Woverloaded-virtual)
if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
    # The exported functions have C names and pass Qt value types, as agreed with the host. The second option is for
    # QSKIP.
    add_compile_options(-Wno-return-type-c-linkage -Wno-gnu-zero-variadic-macro-arguments)
endif()
add_compile_definitions(QT_DEPRECATED_WARNINGS QT_NO_FOREACH QT_NO_CAST_FROM_BYTEARRAY QT_USE_QSTRINGBUILDER)

# With RUNPATH the loader searches LD_LIBRARY_PATH first, so another host library can replace the linked one.
add_link_options(-Wl,--enable-new-dtags)
# With clang a library gets the sanitizers' functions from the program that loads it.
if(NOT (CMAKE_CXX_COMPILER_ID MATCHES Clang AND (SIMPLEEXTEND_FUZZ OR SIMPLEEXTEND_SANITIZE)))
    add_link_options(-Wl,--no-undefined)
endif()

if(SIMPLEEXTEND_PACKAGES)
    # The flags of Debian's packages: hardening, and no folder of the build in the binaries.
    foreach(kind IN ITEMS CXXFLAGS CPPFLAGS LDFLAGS)
        execute_process(WORKING_DIRECTORY ${CMAKE_SOURCE_DIR} COMMAND_ERROR_IS_FATAL ANY
            COMMAND ${CMAKE_COMMAND} -E env DEB_BUILD_MAINT_OPTIONS=hardening=+all DEB_CXXFLAGS_STRIP=-g
                    dpkg-buildflags --get ${kind}
            OUTPUT_VARIABLE debian_${kind} OUTPUT_STRIP_TRAILING_WHITESPACE)
    endforeach()
    string(APPEND CMAKE_CXX_FLAGS " ${debian_CXXFLAGS} ${debian_CPPFLAGS}")
    string(APPEND CMAKE_EXE_LINKER_FLAGS " ${debian_LDFLAGS}")
    string(APPEND CMAKE_SHARED_LINKER_FLAGS " ${debian_LDFLAGS}")
endif()

if(SIMPLEEXTEND_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

if(SIMPLEEXTEND_COVERAGE)
    # Every program and library adds its counters to a file when it ends, also when several run at the same time.
    add_compile_options(--coverage -O0)
    add_link_options(--coverage)
endif()

if(SIMPLEEXTEND_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID MATCHES Clang)
        message(FATAL_ERROR "SIMPLEEXTEND_FUZZ needs the fuzzing engine of clang; use the preset fuzz")
    endif()
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-coverage=trace-cmp
                        -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
