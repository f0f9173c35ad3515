# ovalis_test(<room> SOURCES ... [LIBRARIES ...])
#
# One test program and one ctest entry per room, so that a failure names its room and a program
# starts once per room under the emulator.

if(OVALIS_BUILD_TESTS)
    enable_testing()
    set(OVALIS_GOOGLETEST_SOURCES /usr/src/googletest CACHE PATH "Sources of GoogleTest")
    set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
    add_subdirectory(${OVALIS_GOOGLETEST_SOURCES} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL
                     SYSTEM)
endif()

function(ovalis_test room)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
    add_executable(test_${room} ${arg_SOURCES})
    target_link_libraries(test_${room} PRIVATE ${arg_LIBRARIES} ovalis_test_support
                                               GTest::gtest_main GTest::gmock)
    add_test(NAME ${room} COMMAND test_${room})
endfunction()
