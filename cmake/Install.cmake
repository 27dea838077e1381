# The package that find_package(vxlib) finds.
include(CMakePackageConfigHelpers)

install(TARGETS vxlib EXPORT vxlibTargets ARCHIVE DESTINATION lib)
install(EXPORT vxlibTargets NAMESPACE vxlib:: DESTINATION lib/cmake/vxlib)
if(TARGET vxlib_drawing)
  install(TARGETS vxlib_drawing EXPORT vxlibDrawingTargets ARCHIVE DESTINATION lib)
  install(EXPORT vxlibDrawingTargets NAMESPACE vxlib:: DESTINATION lib/cmake/vxlib)
endif()
if(TARGET vxlib_desktop)
  install(TARGETS vxlib_desktop EXPORT vxlibDesktopTargets ARCHIVE DESTINATION lib)
  install(EXPORT vxlibDesktopTargets NAMESPACE vxlib:: DESTINATION lib/cmake/vxlib)
endif()
configure_package_config_file(cmake/vxlibConfig.cmake.in ${PROJECT_BINARY_DIR}/vxlibConfig.cmake
  INSTALL_DESTINATION lib/cmake/vxlib)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vxlibConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/vxlibConfig.cmake ${PROJECT_BINARY_DIR}/vxlibConfigVersion.cmake
  DESTINATION lib/cmake/vxlib)
