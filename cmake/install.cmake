# What `cmake --install` gives: libraries, headers, the command, the package files and documents.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_directory ${CMAKE_INSTALL_LIBDIR}/cmake/ovalis)
set(openaccess_include ${CMAKE_INSTALL_INCLUDEDIR}/openaccess)

file(RELATIVE_PATH bin_to_lib ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
set_target_properties(ovalis PROPERTIES INSTALL_RPATH "$ORIGIN")
set_target_properties(ovalis-cli PROPERTIES INSTALL_RPATH "$ORIGIN/${bin_to_lib}")
set_target_properties(ovalis ovalis-cli PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)

set(exported ovalis)
if(NOT OVALIS_OPENACCESS_ROOT)
    list(APPEND exported openaccess)
    target_include_directories(openaccess INTERFACE
        $<INSTALL_INTERFACE:${openaccess_include}> $<INSTALL_INTERFACE:${openaccess_include}/oa>)
    foreach(package common base dm tech design)
        install(DIRECTORY openaccess/${package}/include/oa DESTINATION ${openaccess_include}
                FILES_MATCHING PATTERN "*.h" PATTERN "*.inl")
    endforeach()
endif()
target_include_directories(ovalis INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
install(DIRECTORY include/ovalis DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h")
install(TARGETS ${exported} EXPORT ovalis-targets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS ovalis-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
set(broker_programs pcbProbeOaVersion)
foreach(version 5 6)
    list(APPEND broker_programs pcellBroker${version} pcellBrokerWorker${version})
endforeach()
set_target_properties(${broker_programs} PROPERTIES INSTALL_RPATH "$ORIGIN/${bin_to_lib}"
                                                    INSTALL_RPATH_USE_LINK_PATH ON)
install(TARGETS ${broker_programs} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${OVALIS_RUNTIME_LIBRARIES} DESTINATION ${CMAKE_INSTALL_BINDIR})
install(EXPORT ovalis-targets NAMESPACE ovalis:: DESTINATION ${package_directory})

configure_package_config_file(cmake/ovalis-config.cmake.in ovalis-config.cmake
                              INSTALL_DESTINATION ${package_directory})
write_basic_package_version_file(ovalis-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ovalis-config.cmake
              ${PROJECT_BINARY_DIR}/ovalis-config-version.cmake cmake/openaccess.cmake
        DESTINATION ${package_directory})

if(OVALIS_OPENACCESS_ROOT)
    set(pc_openaccess_cflags "-I${OVALIS_OPENACCESS_ROOT}/include")
    set(pc_openaccess_libs "")
else()
    set(pc_openaccess_cflags
        "-I\${includedir}/openaccess -I\${includedir}/openaccess/oa")
    set(pc_openaccess_libs "-lopenaccess")
endif()
file(RELATIVE_PATH pc_to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/ovalis.pc.in ovalis.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/ovalis.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs FILES_MATCHING PATTERN "*.md")
