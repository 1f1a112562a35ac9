# What `cmake --install` puts where, so that `find_package(Velto)` finds it.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(velto_package_directory ${CMAKE_INSTALL_LIBDIR}/cmake/Velto)

install(TARGETS velto EXPORT VeltoTargets FILE_SET HEADERS FILE_SET tables)
install(EXPORT VeltoTargets NAMESPACE Velto:: DESTINATION ${velto_package_directory})

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/VeltoConfig.cmake.in ${PROJECT_BINARY_DIR}/VeltoConfig.cmake
  INSTALL_DESTINATION ${velto_package_directory})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VeltoConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VeltoConfig.cmake ${PROJECT_BINARY_DIR}/VeltoConfigVersion.cmake
  DESTINATION ${velto_package_directory})

if(TARGET velto_command)
  set_target_properties(velto_command PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
  install(TARGETS velto_command)
endif()
