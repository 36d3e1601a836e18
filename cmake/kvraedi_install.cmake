include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/kvraedi)

install(TARGETS kvraedi kvraedi_headers EXPORT kvraedi
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY include/kvraedi DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
# What a firm may add to its database.
install(FILES host/demo/libro_recibidos.sql DESTINATION ${CMAKE_INSTALL_DATADIR}/kvraedi)
install(EXPORT kvraedi NAMESPACE kvraedi:: FILE kvraedi-targets.cmake
  DESTINATION ${package_folder})

# The adapters that were built, and so can be asked for as components of the package.
set(KVRAEDI_COMPONENTS)
foreach(adapter headless os suite sqlite odbc qt)
  if(TARGET kvraedi_${adapter})
    list(APPEND KVRAEDI_COMPONENTS ${adapter})
  endif()
endforeach()
configure_package_config_file(cmake/kvraedi-config.cmake.in kvraedi-config.cmake
  INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(kvraedi-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/kvraedi-config.cmake
  ${CMAKE_BINARY_DIR}/kvraedi-config-version.cmake DESTINATION ${package_folder})
