# The test framework and how a room declares its tests.

if(OVALIS_BUILD_TESTS)
    enable_testing()
    set(OVALIS_GOOGLETEST_SOURCES /usr/src/googletest CACHE PATH "Sources of GoogleTest")
    set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
    add_subdirectory(${OVALIS_GOOGLETEST_SOURCES} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL
                     SYSTEM)
endif()

# Programs that start together in a prefix that is not there yet would make it at the same time, so
# one test makes it and the others wait for that.
if(OVALIS_BUILD_TESTS AND CMAKE_CROSSCOMPILING_EMULATOR)
    add_test(NAME wine_prefix COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} wineboot.exe --init)
    set_tests_properties(wine_prefix PROPERTIES FIXTURES_SETUP wine_prefix)
endif()

# ovalis_emulated_tests(<test>...): these start programs through the emulator, if there is one.
function(ovalis_emulated_tests)
    if(CMAKE_CROSSCOMPILING_EMULATOR)
        set_tests_properties(${ARGN} PROPERTIES FIXTURES_REQUIRED wine_prefix)
    endif()
endfunction()

# ovalis_test(<room> SOURCES ... [LIBRARIES ...])
#
# One test program and one ctest entry per room, so that a failure names its room and a program
# starts once per room under the emulator.
function(ovalis_test room)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
    add_executable(test_${room} ${arg_SOURCES})
    target_link_libraries(test_${room} PRIVATE ${arg_LIBRARIES} ovalis_test_support
                                               GTest::gtest_main GTest::gmock)
    # What is tested is built as it ships; the tests themselves need to be built soon, not to be fast.
    target_compile_options(test_${room} PRIVATE $<$<CONFIG:RelWithDebInfo>:-O0>)
    add_test(NAME ${room} COMMAND test_${room})
    ovalis_emulated_tests(${room})
endfunction()
