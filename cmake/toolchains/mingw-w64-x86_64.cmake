# SPDX-License-Identifier: MIT
# Cross-compiles for Windows x86-64 with Debian's MinGW-w64.
#
# The libraries the project needs come from a prefix that tools/windows/prepare.sh builds. Its path is given as a cache
# variable or in the environment, where it is needed for the first configuration only:
#
#   cmake -DNOLVEX_WINDOWS_PREFIX=<prefix> ...
#   NOLVEX_WINDOWS_PREFIX=<prefix> cmake ...

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

if(NOT NOLVEX_WINDOWS_PREFIX)
  set(NOLVEX_WINDOWS_PREFIX "$ENV{NOLVEX_WINDOWS_PREFIX}" CACHE PATH
    "Prefix with the libraries for Windows, as printed by tools/windows/prepare.sh" FORCE)
endif()
# CMake compiles its checks in a separate project, which reads this file again and knows neither the cache nor, in later
# runs, the environment.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES NOLVEX_WINDOWS_PREFIX)

if(NOT IS_DIRECTORY "${NOLVEX_WINDOWS_PREFIX}")
  message(FATAL_ERROR
    "NOLVEX_WINDOWS_PREFIX is not set to a directory: \"${NOLVEX_WINDOWS_PREFIX}\". Run tools/windows/prepare.sh and "
    "pass the path it prints, as -DNOLVEX_WINDOWS_PREFIX=<path> or in the environment.")
endif()
# CMake remembers where it found the libraries, so that a build folder cannot change to another prefix.
foreach(other IN ITEMS "$ENV{NOLVEX_WINDOWS_PREFIX}" "${NOLVEX_WINDOWS_PREFIX_CONFIGURED}")
  if(other AND NOT other STREQUAL NOLVEX_WINDOWS_PREFIX)
    message(FATAL_ERROR
      "Two different prefixes, ${NOLVEX_WINDOWS_PREFIX} and ${other}. A build directory made for another prefix has to "
      "be configured anew with cmake --fresh.")
  endif()
endforeach()
set(NOLVEX_WINDOWS_PREFIX_CONFIGURED "${NOLVEX_WINDOWS_PREFIX}" CACHE INTERNAL "")

# The posix variant is the one whose standard library has std::thread, std::mutex and std::condition_variable.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# The second root holds the headers and import libraries of Windows itself, and zlib.
set(CMAKE_FIND_ROOT_PATH "${NOLVEX_WINDOWS_PREFIX}" /usr/x86_64-w64-mingw32)

# Programs run on this machine, everything else is for Windows.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# pkg-config is a program of this machine and would answer with this machine's libraries.
set(ENV{PKG_CONFIG_LIBDIR} "${NOLVEX_WINDOWS_PREFIX}/lib/pkgconfig")
set(ENV{PKG_CONFIG_PATH} "")
