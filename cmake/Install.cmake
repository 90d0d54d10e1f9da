# The installed package: find_package(TavrineCore) gives TavrineCore::TavrineCore and tavrine_copy_resources().
include(CMakePackageConfigHelpers)

set(packageDir ${CMAKE_INSTALL_LIBDIR}/cmake/TavrineCore)

install(TARGETS TavrineCore EXPORT TavrineCoreTargets)
install(EXPORT TavrineCoreTargets NAMESPACE TavrineCore:: DESTINATION ${packageDir})

# Both trees of headers keep the paths by which they include each other.
install(DIRECTORY TavrineCore Foundation
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/TavrineCore
  FILES_MATCHING PATTERN "*.h" PATTERN "*.def" PATTERN "*.inc")

if(resourceFiles)
  install(DIRECTORY ${resources} DESTINATION ${TAVRINE_RESOURCE_DIR})
endif()
if(TARGET TavrineCoreREPL)
  install(TARGETS TavrineCoreREPL)
endif()

configure_package_config_file(cmake/TavrineCoreConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/TavrineCoreConfig.cmake
  INSTALL_DESTINATION ${packageDir}
  PATH_VARS TAVRINE_RESOURCE_DIR)
# Before 1.0 a minor release may change anything.
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/TavrineCoreConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/TavrineCoreConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/TavrineCoreConfigVersion.cmake
  cmake/TavrineCoreResources.cmake
  DESTINATION ${packageDir})
