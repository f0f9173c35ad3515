# What every target is built with, those of the test framework included.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(WIN32)
    set(CMAKE_SHARED_LIBRARY_PREFIX "")
endif()

option(OVALIS_WARNINGS_AS_ERRORS "Treat warnings as errors" ${PROJECT_IS_TOP_LEVEL})
option(OVALIS_BUILD_BENCH "Build the benchmarks" OFF)
option(OVALIS_BUILD_FUZZ "Build the fuzz targets; needs clang++" OFF)
option(OVALIS_SANITIZE "Build with address and undefined-behaviour sanitizers" OFF)
set(OVALIS_OPENACCESS_ROOT "" CACHE PATH
    "Installed OpenAccess to build on; empty for the embedded one")

# The tests look inside the embedded OpenAccess.
set(tests_by_default ${PROJECT_IS_TOP_LEVEL})
if(OVALIS_OPENACCESS_ROOT)
    set(tests_by_default OFF)
endif()
option(OVALIS_BUILD_TESTS "Build the tests" ${tests_by_default})

if(OVALIS_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(OVALIS_BUILD_FUZZ)
    # Coverage of every target; the fuzzers alone get the loop that uses it.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
