# What our own code is held to. Included after the test framework, which keeps its own flags.

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast)
if(OVALIS_WARNINGS_AS_ERRORS)
    add_compile_options(-Werror)
endif()
if(WIN32)
    add_compile_definitions(NOMINMAX WIN32_LEAN_AND_MEAN UNICODE _UNICODE _WIN32_WINNT=0x0A00)
endif()
