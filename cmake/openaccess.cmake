# ovalis::openaccess from an installed, licensed OpenAccess: headers under include/oa, libraries
# under lib (or lib/<system>/opt, as some installations have them).
#
# Used by the build and, installed beside the package file, by those who link against ovalis.
# The only input is OVALIS_OPENACCESS_ROOT.

if(TARGET ovalis::openaccess)
    return()
endif()
if(NOT EXISTS "${OVALIS_OPENACCESS_ROOT}/include/oa/oaDesignDB.h")
    message(FATAL_ERROR "OVALIS_OPENACCESS_ROOT: no OpenAccess headers in "
                        "'${OVALIS_OPENACCESS_ROOT}': include/oa/oaDesignDB.h is missing there")
endif()

file(GLOB _openaccess_directories LIST_DIRECTORIES true "${OVALIS_OPENACCESS_ROOT}/lib/*/opt")
set(_openaccess_directories "${OVALIS_OPENACCESS_ROOT}/lib" "${OVALIS_OPENACCESS_ROOT}/lib64"
                            ${_openaccess_directories})
set(_openaccess_libraries "")
set(_openaccess_missing "")
foreach(_name oaDesign oaTech oaDM oaPlugIn oaBase oaCommon)
    find_library(_openaccess_${_name} ${_name} PATHS ${_openaccess_directories} NO_CACHE
                 NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    if(_openaccess_${_name})
        list(APPEND _openaccess_libraries "${_openaccess_${_name}}")
    else()
        list(APPEND _openaccess_missing ${_name})
    endif()
endforeach()
if(_openaccess_missing)
    list(JOIN _openaccess_missing ", " _openaccess_missing)
    list(JOIN _openaccess_directories "\n  " _openaccess_directories)
    message(FATAL_ERROR "OVALIS_OPENACCESS_ROOT: OpenAccess libraries not found: "
                        "${_openaccess_missing}\nlooked in\n  ${_openaccess_directories}")
endif()

add_library(ovalis::openaccess INTERFACE IMPORTED GLOBAL)
set_target_properties(ovalis::openaccess PROPERTIES
    INTERFACE_INCLUDE_DIRECTORIES
        "${OVALIS_OPENACCESS_ROOT}/include;${OVALIS_OPENACCESS_ROOT}/include/oa"
    INTERFACE_LINK_LIBRARIES "${_openaccess_libraries}")
