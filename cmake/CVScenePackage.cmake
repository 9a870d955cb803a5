# Exported CMake package and pkg-config file.
include(CMakePackageConfigHelpers)
set(CVSCENE_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/CVScene)

install(EXPORT CVSceneTargets NAMESPACE CVScene:: DESTINATION ${CVSCENE_CMAKE_DIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/CVSceneConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/CVSceneConfig.cmake
  INSTALL_DESTINATION ${CVSCENE_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/CVSceneConfigVersion.cmake
  VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/CVSceneConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/CVSceneConfigVersion.cmake
        DESTINATION ${CVSCENE_CMAKE_DIR})

# The way up from <libdir>/pkgconfig to the prefix, whatever the prefix is.
file(RELATIVE_PATH CVSCENE_PC_TO_PREFIX /p/${CMAKE_INSTALL_LIBDIR}/pkgconfig /p)
configure_file(${CMAKE_CURRENT_LIST_DIR}/cvscene.pc.in ${CMAKE_CURRENT_BINARY_DIR}/cvscene.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/cvscene.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
