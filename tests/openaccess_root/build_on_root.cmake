# Run by ctest: what is missing in an installation is named; with everything there, the library and
# the command build on it and run.

set(root ${tree}/root)
file(REMOVE_RECURSE ${root} ${tree}/build)

function(configure)
    file(REMOVE_RECURSE ${tree}/build)
    execute_process(COMMAND ${CMAKE_COMMAND} -S ${source} -B ${tree}/build -G ${generator}
                            -DOVALIS_OPENACCESS_ROOT=${root}
                            -DCMAKE_CXX_COMPILER=${compiler}
                            -DCMAKE_CXX_COMPILER_LAUNCHER=${launcher}
                    RESULT_VARIABLE result OUTPUT_VARIABLE text ERROR_VARIABLE text)
    # Messages are wrapped where the names in them happen to end.
    string(REGEX REPLACE "[ \n]+" " " text "${text}")
    set(result ${result} PARENT_SCOPE)
    set(text "${text}" PARENT_SCOPE)
endfunction()

function(expect_refusal reason)
    configure()
    string(FIND "${text}" "${reason}" found)
    if(result EQUAL 0 OR found EQUAL -1)
        message(FATAL_ERROR "expected a refusal with '${reason}', got ${result}:\n${text}")
    endif()
endfunction()

expect_refusal("include/oa/oaDesignDB.h is missing there")

file(GLOB headers ${source}/openaccess/*/include/oa/*)
file(COPY ${headers} DESTINATION ${root}/include/oa)
expect_refusal("libraries not found: oaDesign, oaTech, oaDM, oaPlugIn, oaBase, oaCommon")

file(MAKE_DIRECTORY ${root}/lib/linux_64/opt)
get_filename_component(stand_in ${library} NAME)
file(CREATE_LINK ${library} ${root}/lib/linux_64/opt/${stand_in} SYMBOLIC)
foreach(name oaTech oaDM oaPlugIn oaBase oaCommon)
    file(CREATE_LINK ${library} ${root}/lib/linux_64/opt/lib${name}.so SYMBOLIC)
endforeach()
expect_refusal("libraries not found: oaDesign looked in")

file(CREATE_LINK ${library} ${root}/lib/linux_64/opt/liboaDesign.so SYMBOLIC)
configure()
if(NOT result EQUAL 0)
    message(FATAL_ERROR "${text}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${tree}/build --target ovalis ovalis-cli
                COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${tree}/build/bin/ovalis --version COMMAND_ERROR_IS_FATAL ANY)
if(EXISTS ${tree}/build/bin/libopenaccess.so)
    message(FATAL_ERROR "the embedded OpenAccess was built as well")
endif()
