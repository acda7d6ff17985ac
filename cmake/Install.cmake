# Installs the library with its public headers and resource bundle, the
# command-line tool, the Python module, a CMake package and a pkg-config file,
# in the GNU folders under the prefix (lib may be lib64 or a multiarch folder):
#   lib/libQZCsvConvXml.so, include/QZCsvConvXml/, share/QZCsvConvXml/QZCsvConvXml.bundle,
#   bin/qzcsvconv, lib/python3.N/dist-packages/qzcsvconv/, lib/cmake/QZCsvConvXml/,
#   lib/pkgconfig/QZCsvConvXml.pc
# Every path that one installed file gives to another is relative, so the
# installation can move and a different --prefix at install time works.
include(CMakePackageConfigHelpers)

set(QZC_CMAKE_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/QZCsvConvXml)
file(RELATIVE_PATH tool_to_library ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
set_target_properties(qzcsvconv PROPERTIES INSTALL_RPATH "$ORIGIN/${tool_to_library}")

install(TARGETS QZCsvConvXml EXPORT QZCsvConvXmlTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS qzcsvconv RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${QZC_PUBLIC_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/QZCsvConvXml)
install(DIRECTORY resources/QZCsvConvXml.bundle DESTINATION ${CMAKE_INSTALL_DATADIR}/QZCsvConvXml
  PATTERN ".keep" EXCLUDE)

install(EXPORT QZCsvConvXmlTargets NAMESPACE QZCsvConvXml:: DESTINATION ${QZC_CMAKE_PACKAGE_DIR})
configure_package_config_file(cmake/QZCsvConvXmlConfig.cmake.in
  ${PROJECT_BINARY_DIR}/QZCsvConvXmlConfig.cmake
  INSTALL_DESTINATION ${QZC_CMAKE_PACKAGE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QZCsvConvXmlConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/QZCsvConvXmlConfig.cmake
              ${PROJECT_BINARY_DIR}/QZCsvConvXmlConfigVersion.cmake
  DESTINATION ${QZC_CMAKE_PACKAGE_DIR})

file(RELATIVE_PATH QZC_PC_TO_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" QZC_PC_TO_PREFIX "${QZC_PC_TO_PREFIX}")
configure_file(cmake/QZCsvConvXml.pc.in ${PROJECT_BINARY_DIR}/QZCsvConvXml.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/QZCsvConvXml.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# The Python module, with the library's place relative to the module's folder.
find_package(Python3 COMPONENTS Interpreter)
if(Python3_Interpreter_FOUND)
  set(QZC_INSTALL_PYTHONDIR lib/python${Python3_VERSION_MAJOR}.${Python3_VERSION_MINOR}/dist-packages
      CACHE PATH "Folder under the prefix for the Python module")
  file(RELATIVE_PATH QZC_PYTHON_TO_LIBRARY ${CMAKE_INSTALL_PREFIX}/${QZC_INSTALL_PYTHONDIR}/qzcsvconv
       ${CMAKE_INSTALL_FULL_LIBDIR}/libQZCsvConvXml.so.${PROJECT_VERSION_MAJOR})
  configure_file(python/qzcsvconv/_library.py.in ${PROJECT_BINARY_DIR}/python/_library.py @ONLY)
  install(FILES python/qzcsvconv/__init__.py ${PROJECT_BINARY_DIR}/python/_library.py
    DESTINATION ${QZC_INSTALL_PYTHONDIR}/qzcsvconv)
endif()
