include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS zrdraw EXPORT zrdrawTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zrdraw
  FILES_MATCHING PATTERN "*.h")
install(EXPORT zrdrawTargets NAMESPACE zrdraw::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zrdraw)

configure_package_config_file(cmake/zrdrawConfig.cmake.in
  ${PROJECT_BINARY_DIR}/zrdrawConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zrdraw)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zrdrawConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zrdrawConfig.cmake
  ${PROJECT_BINARY_DIR}/zrdrawConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/zrdraw)

configure_file(cmake/zrdraw.pc.in ${PROJECT_BINARY_DIR}/zrdraw.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zrdraw.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
