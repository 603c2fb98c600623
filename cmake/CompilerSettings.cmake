# SPDX-License-Identifier: MIT
# The compiler settings of every target of the project.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

# Programs and libraries are built into one folder, because a Windows program finds its DLLs only beside itself.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")

# An installed program finds the libraries that were installed with it, wherever the installation lies.
if(NOT WIN32)
  set(CMAKE_INSTALL_RPATH "$ORIGIN;$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
endif()

find_program(NOLVEX_CCACHE ccache)
if(NOLVEX_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${NOLVEX_CCACHE}")
endif()

# Each target of the project links these settings as PRIVATE, so that the installed interface does not contain them.
add_library(NolvexCompilerSettings INTERFACE)
if(MSVC)
  target_compile_options(NolvexCompilerSettings INTERFACE /W4 /WX /utf-8 /permissive- /Zc:__cplusplus /bigobj)
  # Exported classes have members from the standard library. That is safe, because one compiler builds everything.
  target_compile_options(NolvexCompilerSettings INTERFACE /wd4251 /wd4275)
else()
  target_compile_options(NolvexCompilerSettings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
    -Wformat=2 -Wdouble-promotion -Wimplicit-fallthrough -Werror)
endif()
if(WIN32)
  target_compile_definitions(NolvexCompilerSettings INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN)
endif()

# The results of the conversions are defined to the bit, and a fused multiply-add would round differently.
if(MSVC)
  target_compile_options(NolvexCompilerSettings INTERFACE /fp:precise)
else()
  target_compile_options(NolvexCompilerSettings INTERFACE -ffp-contract=off)
endif()

if(NOLVEX_SANITIZE)
  string(REPLACE ";" "," nolvex_sanitizers "${NOLVEX_SANITIZE}")
  add_compile_options(-fsanitize=${nolvex_sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${nolvex_sanitizers})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC warns about impossible paths in instrumented code.
    add_compile_options(-Wno-maybe-uninitialized)
  endif()
endif()
