# Installs the library with its public headers and resource bundle, the
# command-line tool, a CMake package and a pkg-config file:
#   lib/libQZCsvConvXml.so, include/QZCsvConvXml/, share/QZCsvConvXml/QZCsvConvXml.bundle,
#   bin/qzcsvconv, lib/cmake/QZCsvConvXml/, lib/pkgconfig/QZCsvConvXml.pc
# The library finds its bundle at ../share/QZCsvConvXml from its own folder.
include(CMakePackageConfigHelpers)

set_target_properties(qzcsvconv PROPERTIES INSTALL_RPATH "$ORIGIN/../lib")

install(TARGETS QZCsvConvXml EXPORT QZCsvConvXmlTargets
  LIBRARY DESTINATION lib
  RUNTIME DESTINATION bin)
install(TARGETS qzcsvconv RUNTIME DESTINATION bin)
install(FILES ${QZC_PUBLIC_HEADERS} DESTINATION include/QZCsvConvXml)
install(DIRECTORY resources/QZCsvConvXml.bundle DESTINATION share/QZCsvConvXml
  PATTERN ".keep" EXCLUDE)

install(EXPORT QZCsvConvXmlTargets NAMESPACE QZCsvConvXml:: DESTINATION lib/cmake/QZCsvConvXml)
configure_package_config_file(cmake/QZCsvConvXmlConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/QZCsvConvXmlConfig.cmake
  INSTALL_DESTINATION lib/cmake/QZCsvConvXml)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/QZCsvConvXmlConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/QZCsvConvXmlConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/QZCsvConvXmlConfigVersion.cmake
  DESTINATION lib/cmake/QZCsvConvXml)

configure_file(cmake/QZCsvConvXml.pc.in ${CMAKE_CURRENT_BINARY_DIR}/QZCsvConvXml.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/QZCsvConvXml.pc DESTINATION lib/pkgconfig)
