# The compiler's shared runtime, beside our programs and libraries, so that the cross-built ones
# start from their folder as they are.

set(OVALIS_RUNTIME_LIBRARIES "")
if(NOT MINGW)
    return()
endif()
foreach(name libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
                    OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT IS_ABSOLUTE "${path}")
        # The compiler on Windows itself keeps its runtime beside the programs.
        get_filename_component(compiler_directory ${CMAKE_CXX_COMPILER} DIRECTORY)
        set(path ${compiler_directory}/${name})
    endif()
    if(NOT EXISTS "${path}")
        message(FATAL_ERROR "${CMAKE_CXX_COMPILER} does not know where its ${name} is")
    endif()
    list(APPEND OVALIS_RUNTIME_LIBRARIES ${path})
endforeach()
file(COPY ${OVALIS_RUNTIME_LIBRARIES} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
