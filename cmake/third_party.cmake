# third_party::json, third_party::cli11, third_party::xxhash: header-only use of the libraries that
# the system ships. The headers are reached through a directory that holds these and nothing else,
# so that a cross build never sees the rest of the build machine's include directory.

set(OVALIS_THIRD_PARTY_INCLUDE /usr/include CACHE PATH
    "Directory with nlohmann/json.hpp, CLI/CLI.hpp and xxhash.h")

# third_party_headers(<name> <probe> <entry>...): links the entries into a private directory.
function(third_party_headers name probe)
    if(NOT EXISTS ${OVALIS_THIRD_PARTY_INCLUDE}/${probe})
        message(FATAL_ERROR "${probe} not found in ${OVALIS_THIRD_PARTY_INCLUDE} "
                            "(set OVALIS_THIRD_PARTY_INCLUDE)")
    endif()
    set(directory ${PROJECT_BINARY_DIR}/third_party/${name})
    file(MAKE_DIRECTORY ${directory})
    foreach(entry ${ARGN})
        if(EXISTS ${OVALIS_THIRD_PARTY_INCLUDE}/${entry})
            file(CREATE_LINK ${OVALIS_THIRD_PARTY_INCLUDE}/${entry} ${directory}/${entry}
                 COPY_ON_ERROR SYMBOLIC)
        endif()
    endforeach()
    add_library(third_party_${name} INTERFACE)
    add_library(third_party::${name} ALIAS third_party_${name})
    target_include_directories(third_party_${name} SYSTEM INTERFACE ${directory})
endfunction()

third_party_headers(json nlohmann/json.hpp nlohmann)
third_party_headers(cli11 CLI/CLI.hpp CLI)
third_party_headers(xxhash xxhash.h xxhash.h xxh3.h)
target_compile_definitions(third_party_xxhash INTERFACE XXH_INLINE_ALL)
