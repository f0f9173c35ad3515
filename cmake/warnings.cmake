# What our own code is held to. Included after the test framework, which keeps its own flags.

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # At -O3 this compiler sees overlaps in the standard library's own concatenation of strings.
    add_compile_options(-Wno-restrict)
endif()
if(OVALIS_WARNINGS_AS_ERRORS)
    add_compile_options(-Werror)
endif()
if(WIN32)
    add_compile_definitions(NOMINMAX WIN32_LEAN_AND_MEAN UNICODE _UNICODE _WIN32_WINNT=0x0A00)
endif()
