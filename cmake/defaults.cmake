# What every target of this project is built with.

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

option(OVALIS_WARNINGS_AS_ERRORS "Treat warnings as errors" ${PROJECT_IS_TOP_LEVEL})
option(OVALIS_BUILD_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
option(OVALIS_SANITIZE "Build with address and undefined-behaviour sanitizers" OFF)

add_library(ovalis_build_flags INTERFACE)
target_compile_options(ovalis_build_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast
    $<$<BOOL:${OVALIS_WARNINGS_AS_ERRORS}>:-Werror>)
if(WIN32)
    target_compile_definitions(ovalis_build_flags INTERFACE
        NOMINMAX WIN32_LEAN_AND_MEAN UNICODE _UNICODE _WIN32_WINNT=0x0A00)
endif()
if(OVALIS_SANITIZE)
    target_compile_options(ovalis_build_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(ovalis_build_flags INTERFACE -fsanitize=address,undefined)
endif()
link_libraries(ovalis_build_flags)
