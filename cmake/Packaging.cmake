# SPDX-License-Identifier: MIT
# `cmake --install` and CPack install the libraries, the headers, the CMake package, pkg-config's files and the programs.
# Components: runtime (the libraries), development (what compiling against them needs), viewer and
# formats (the module of OpenImageIO).
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/NolvexLibWx")

# The zip for Windows holds the toolkit that the cross-build was made with, so that its users need not build one.
set(NOLVEX_HAS_TOOLKIT_INSIDE FALSE)
if(WIN32 AND NOLVEX_WINDOWS_PREFIX)
  set(NOLVEX_HAS_TOOLKIT_INSIDE TRUE)
endif()
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/NolvexLibWxConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/NolvexLibWxConfig.cmake" INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/NolvexLibWxConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/NolvexLibWxConfig.cmake" "${PROJECT_BINARY_DIR}/NolvexLibWxConfigVersion.cmake"
  "${PROJECT_SOURCE_DIR}/cmake/Toolkit.cmake" DESTINATION "${package_folder}" COMPONENT development)
install(EXPORT NolvexLibWxCoreTargets NAMESPACE Nolvex:: DESTINATION "${package_folder}" COMPONENT development)
if(NOLVEX_BUILD_TOOLKIT_LIBRARY)
  install(EXPORT NolvexLibWxWxTargets NAMESPACE Nolvex:: DESTINATION "${package_folder}" COMPONENT development)
endif()
install(FILES README.md CHANGELOG.md LICENSE THIRD-PARTY.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT runtime)

if(WIN32)
  include(PackagingWindows)
else()
  include(PackagingLinux)
endif()
set(CPACK_PACKAGE_VENDOR "the NolvexLibWx authors")
set(CPACK_PACKAGE_CONTACT "the NolvexLibWx authors <nolvexlibwx@localhost>")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
include(CPack)
