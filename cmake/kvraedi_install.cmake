include(CMakePackageConfigHelpers)

install(TARGETS kvraedi kvraedi_headers EXPORT kvraedi
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY include/kvraedi DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT kvraedi NAMESPACE kvraedi:: FILE kvraedi-targets.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/kvraedi)
set(KVRAEDI_HAS_QT OFF)
if(TARGET kvraedi_qt)
  set(KVRAEDI_HAS_QT ON)
endif()
configure_package_config_file(cmake/kvraedi-config.cmake.in kvraedi-config.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/kvraedi)
write_basic_package_version_file(kvraedi-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/kvraedi-config.cmake
  ${CMAKE_BINARY_DIR}/kvraedi-config-version.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/kvraedi)
