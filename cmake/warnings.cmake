# What our own code is held to. Included after the test framework, which keeps its own flags.

# The compiler of Windows resources knows none of these.
set(warnings -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # At -O3 this compiler sees overlaps in the standard library's own concatenation of strings.
    list(APPEND warnings -Wno-restrict)
endif()
if(OVALIS_WARNINGS_AS_ERRORS)
    list(APPEND warnings -Werror)
endif()
add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:${warnings}>")
if(WIN32)
    add_compile_definitions(NOMINMAX WIN32_LEAN_AND_MEAN UNICODE _UNICODE _WIN32_WINNT=0x0A00)
endif()
