# The installed package: library, headers, programs, and what CMake and pkg-config need to find them. It can
# be moved as a whole: every path in it is relative to where it lies.
include(CMakePackageConfigHelpers)

install(TARGETS ZelXml EXPORT ZelXmlTargets)
install(DIRECTORY contracts/ lib/ZelXml/src/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZelXml
        FILES_MATCHING PATTERN *.h)

foreach(tool zelstudy zelgen)
  if(TARGET ${tool})
    # A shared library is found beside the program, wherever both have been put.
    file(RELATIVE_PATH library_from_tool ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
    set_target_properties(${tool} PROPERTIES INSTALL_RPATH "$ORIGIN/${library_from_tool}")
    install(TARGETS ${tool})
  endif()
endforeach()

get_target_property(ZELXML_LIBRARY_TYPE ZelXml TYPE)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ZelXml)
configure_package_config_file(cmake/ZelXmlConfig.cmake.in ZelXmlConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(ZelXmlConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(EXPORT ZelXmlTargets NAMESPACE ZelXml:: DESTINATION ${package_dir})
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ZelXmlConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/ZelXmlConfigVersion.cmake
        DESTINATION ${package_dir})

# Whoever links the archive links libxml2 and libuuid too; the shared library brings them along.
if(ZELXML_LIBRARY_TYPE STREQUAL STATIC_LIBRARY)
  set(ZELXML_PC_REQUIRES Requires)
else()
  set(ZELXML_PC_REQUIRES Requires.private)
endif()
file(RELATIVE_PATH ZELXML_PC_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/ZelXml.pc.in ZelXml.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ZelXml.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# A project that has this one in it installs other files too, under targets of its own.
if(PROJECT_IS_TOP_LEVEL)
  add_custom_target(uninstall COMMAND ${CMAKE_COMMAND} -D MANIFEST=${PROJECT_BINARY_DIR}/install_manifest.txt
                                      -P ${PROJECT_SOURCE_DIR}/cmake/Uninstall.cmake VERBATIM)
endif()
