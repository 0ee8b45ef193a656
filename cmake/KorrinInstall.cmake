# The installed package: headers, library, CMake package KorrinCore and pkg-config module korrincore.
include(CMakePackageConfigHelpers)

install(TARGETS KorrinCore EXPORT KorrinCoreTargets FILE_SET HEADERS
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT KorrinCoreTargets NAMESPACE KorrinCore::
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/KorrinCore)
configure_package_config_file(
  cmake/KorrinCoreConfig.cmake.in ${PROJECT_BINARY_DIR}/KorrinCoreConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/KorrinCore)
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/KorrinCoreConfigVersion.cmake COMPATIBILITY SameMinorVersion)
if(KORRIN_PDF_ENCRYPTION)
  # Mbed TLS has no pkg-config module in all its versions.
  set(KORRIN_PDF_ENCRYPTION_LIBS "-lmbedcrypto ")
  install(FILES cmake/FindMbedTLS.cmake DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/KorrinCore)
endif()
file(RELATIVE_PATH KORRIN_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/korrincore.pc.in ${PROJECT_BINARY_DIR}/korrincore.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/KorrinCoreConfig.cmake
              ${PROJECT_BINARY_DIR}/KorrinCoreConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/KorrinCore)
install(FILES ${PROJECT_BINARY_DIR}/korrincore.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
if(KORRIN_BUILD_TOOL)
  install(TARGETS korrin)
endif()
