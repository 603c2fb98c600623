# SPDX-License-Identifier: MIT
# `cmake --install` and CPack install the libraries, the headers, the CMake package and the viewer.
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/NolvexLibWx")

configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/NolvexLibWxConfig.cmake.in"
  "${CMAKE_BINARY_DIR}/NolvexLibWxConfig.cmake" INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file("${CMAKE_BINARY_DIR}/NolvexLibWxConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_BINARY_DIR}/NolvexLibWxConfig.cmake" "${CMAKE_BINARY_DIR}/NolvexLibWxConfigVersion.cmake"
  "${PROJECT_SOURCE_DIR}/cmake/Toolkit.cmake" DESTINATION "${package_folder}")
install(EXPORT NolvexLibWxCoreTargets NAMESPACE Nolvex:: DESTINATION "${package_folder}")
if(NOLVEX_BUILD_TOOLKIT_LIBRARY)
  install(EXPORT NolvexLibWxWxTargets NAMESPACE Nolvex:: DESTINATION "${package_folder}")
endif()
install(FILES README.md CHANGELOG.md LICENSE THIRD-PARTY.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

if(WIN32)
  # A Windows user runs the programs from the unpacked zip, so that the DLLs they need lie beside them.
  install(FILES ${NOLVEX_RUNTIME_DLLS} DESTINATION ${CMAKE_INSTALL_BINDIR})
  set(CPACK_GENERATOR ZIP)
  set(CPACK_SYSTEM_NAME windows-x86_64)
else()
  set(CPACK_GENERATOR TGZ)
endif()
set(CPACK_PACKAGE_VENDOR "the NolvexLibWx authors")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
include(CPack)
