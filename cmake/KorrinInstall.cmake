# What is installed, in three components: `runtime` (the shared library), `dev` (what a host is built
# with: headers, CMake package KorrinCore, pkg-config module korrincore) and `tool` (the command-line
# host). Everything finds its neighbours by relative paths, so that the whole may be moved.
include(CMakePackageConfigHelpers)
set(KORRIN_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/KorrinCore)

set(KORRIN_LIBRARIES KorrinCore KorrinSession KorrinReview KorrinDrawing)
install(TARGETS ${KORRIN_LIBRARIES} EXPORT KorrinCoreTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)
install(EXPORT KorrinCoreTargets NAMESPACE KorrinCore:: DESTINATION ${KORRIN_CMAKE_DIR}
        COMPONENT dev)

# Whoever links the static library links what it is made of, too; a shared one knows by itself.
set(KORRIN_IS_STATIC ON)
# By name and not by their modules: those hand the macros that the libraries are compiled with to every
# host, and no public header shows a header of theirs. Mbed TLS has no module in all its versions.
set(KORRIN_PC_PRIVATE "Libs.private: -lutf8proc -lz")
if(BUILD_SHARED_LIBS)
  set(KORRIN_IS_STATIC OFF)
  set(KORRIN_PC_PRIVATE "")
elseif(KORRIN_PDF_ENCRYPTION)
  string(APPEND KORRIN_PC_PRIVATE " -lmbedcrypto")
  install(FILES cmake/FindMbedTLS.cmake DESTINATION ${KORRIN_CMAKE_DIR} COMPONENT dev)
endif()

configure_package_config_file(
  cmake/KorrinCoreConfig.cmake.in ${PROJECT_BINARY_DIR}/KorrinCoreConfig.cmake
  INSTALL_DESTINATION ${KORRIN_CMAKE_DIR})
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/KorrinCoreConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/KorrinCoreConfig.cmake
              ${PROJECT_BINARY_DIR}/KorrinCoreConfigVersion.cmake
        DESTINATION ${KORRIN_CMAKE_DIR} COMPONENT dev)

file(RELATIVE_PATH KORRIN_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/korrincore.pc.in ${PROJECT_BINARY_DIR}/korrincore.pc @ONLY)
set(KORRIN_PC_FILES ${PROJECT_BINARY_DIR}/korrincore.pc)
foreach(KORRIN_FLOOR_LIBRARY session review drawing)
  set(file ${PROJECT_BINARY_DIR}/korrincore-${KORRIN_FLOOR_LIBRARY}.pc)
  configure_file(cmake/korrincore-floor.pc.in ${file} @ONLY)
  list(APPEND KORRIN_PC_FILES ${file})
endforeach()
install(FILES ${KORRIN_PC_FILES}
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

if(KORRIN_BUILD_TOOL)
  file(RELATIVE_PATH KORRIN_LIB_FROM_BIN /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
  if(BUILD_SHARED_LIBS)
    set_target_properties(korrin PROPERTIES INSTALL_RPATH "$ORIGIN/${KORRIN_LIB_FROM_BIN}")
  endif()
  install(TARGETS korrin RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
endif()
