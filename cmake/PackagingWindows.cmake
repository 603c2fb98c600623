# SPDX-License-Identifier: MIT
# One zip with everything: programs, the DLLs they need beside them, headers, import libraries and licences.
install(FILES ${NOLVEX_RUNTIME_DLLS} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
if(NOLVEX_HAS_TOOLKIT_INSIDE)
  install(DIRECTORY "${NOLVEX_WINDOWS_PREFIX}/include/wx" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
  install(DIRECTORY "${NOLVEX_WINDOWS_PREFIX}/lib/gcc_x64_dll" DESTINATION ${CMAKE_INSTALL_LIBDIR}
    COMPONENT development)
  install(DIRECTORY "${NOLVEX_WINDOWS_PREFIX}/lib/cmake/wxWidgets" DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake
    COMPONENT development)
  install(CODE "execute_process(COMMAND \"${PROJECT_SOURCE_DIR}/tools/windows/prepare.sh\" --licenses
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/licenses\" COMMAND_ERROR_IS_FATAL ANY)" COMPONENT runtime)
endif()
set(CPACK_GENERATOR ZIP)
set(CPACK_SYSTEM_NAME windows-x86_64)
