# SPDX-License-Identifier: MIT
# Everything the project depends on. Each system finds the packages in its own way, and this file gives them the same
# names.

if(WIN32)
  enable_language(RC) # version resources
  # Programs find DLLs only beside themselves, so that the DLLs of the cross-build are copied to the programs. (vcpkg
  # does the same with its own DLLs.)
  file(GLOB NOLVEX_RUNTIME_DLLS "${NOLVEX_WINDOWS_PREFIX}/bin/*.dll" "${NOLVEX_WINDOWS_PREFIX}/lib/gcc_x64_dll/*.dll")
  file(COPY ${NOLVEX_RUNTIME_DLLS} DESTINATION "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
endif()

find_package(Threads REQUIRED)
find_package(ZLIB REQUIRED)

# utfcpp consists of headers. Its packages disagree about target names, but its header is always utf8.h.
find_path(NOLVEX_UTFCPP_INCLUDE_DIR utf8.h PATH_SUFFIXES utf8cpp REQUIRED)
add_library(NolvexUtfcpp INTERFACE)
target_include_directories(NolvexUtfcpp SYSTEM INTERFACE "${NOLVEX_UTFCPP_INCLUDE_DIR}")

if(NOLVEX_BUILD_TESTS OR NOLVEX_BUILD_FUZZERS)
  find_package(GTest CONFIG REQUIRED)
endif()
if(NOLVEX_BUILD_BENCHMARKS)
  find_package(benchmark CONFIG REQUIRED)
endif()
if(NOLVEX_BUILD_TESTS OR NOLVEX_BUILD_BENCHMARKS)
  # The reader of XML is compared with it.
  find_package(pugixml CONFIG REQUIRED)
  if(NOT TARGET pugixml::pugixml)
    add_library(pugixml::pugixml ALIAS pugixml)
  endif()
endif()

if(NOLVEX_BUILD_APPS OR NOLVEX_BUILD_FUZZERS)
  # The viewer reads and writes PNG and TIFF files with more than 8 bits, which wxWidgets does not.
  find_package(PNG REQUIRED)
  find_package(TIFF REQUIRED)
  find_package(OpenEXR CONFIG REQUIRED)
  # The packages of these two have no common way to be found.
  find_path(NOLVEX_STB_INCLUDE_DIR stb_image.h PATH_SUFFIXES stb REQUIRED)
  add_library(NolvexStb INTERFACE)
  target_include_directories(NolvexStb SYSTEM INTERFACE "${NOLVEX_STB_INCLUDE_DIR}")
  find_path(NOLVEX_WEBP_INCLUDE_DIR webp/demux.h REQUIRED)
  find_library(NOLVEX_WEBP_DEMUX_LIBRARY webpdemux REQUIRED)
  find_library(NOLVEX_WEBP_LIBRARY webp REQUIRED)
  add_library(NolvexWebP INTERFACE)
  target_include_directories(NolvexWebP SYSTEM INTERFACE "${NOLVEX_WEBP_INCLUDE_DIR}")
  target_link_libraries(NolvexWebP INTERFACE "${NOLVEX_WEBP_DEMUX_LIBRARY}" "${NOLVEX_WEBP_LIBRARY}" Threads::Threads)
  # One more reader of pictures, which nothing depends on.
  set(NOLVEX_WITH_OPENIMAGEIO AUTO CACHE STRING "Build the viewer's module for OpenImageIO: AUTO, ON or OFF")
  set_property(CACHE NOLVEX_WITH_OPENIMAGEIO PROPERTY STRINGS AUTO ON OFF)
  # The CMake package of Debian names header folders of other packages that it does not install.
  if(NOT NOLVEX_WITH_OPENIMAGEIO STREQUAL "OFF" AND NOT WIN32)
    find_path(NOLVEX_OPENIMAGEIO_INCLUDE_DIR OpenImageIO/imageio.h)
    find_library(NOLVEX_OPENIMAGEIO_LIBRARY OpenImageIO)
    find_library(NOLVEX_OPENIMAGEIO_UTIL_LIBRARY OpenImageIO_Util)
    if(NOLVEX_OPENIMAGEIO_INCLUDE_DIR AND NOLVEX_OPENIMAGEIO_LIBRARY AND NOLVEX_OPENIMAGEIO_UTIL_LIBRARY)
      add_library(NolvexOpenImageIo INTERFACE)
      target_include_directories(NolvexOpenImageIo SYSTEM INTERFACE "${NOLVEX_OPENIMAGEIO_INCLUDE_DIR}")
      target_link_libraries(NolvexOpenImageIo INTERFACE
        "${NOLVEX_OPENIMAGEIO_LIBRARY}" "${NOLVEX_OPENIMAGEIO_UTIL_LIBRARY}" OpenEXR::OpenEXR)
    endif()
  endif()
  if(NOLVEX_WITH_OPENIMAGEIO STREQUAL "ON" AND NOT TARGET NolvexOpenImageIo)
    message(FATAL_ERROR "OpenImageIO was not found.")
  endif()
  if(WIN32)
    # The static library of the cross-build does not name the libraries that it needs.
    find_package(JPEG REQUIRED)
    set_property(TARGET TIFF::TIFF APPEND PROPERTY INTERFACE_LINK_LIBRARIES JPEG::JPEG ZLIB::ZLIB)
  endif()
endif()

if(NOLVEX_BUILD_TOOLKIT_LIBRARY)
  include(Toolkit)
  if(NOT WIN32)
    # platform/gtk calls these libraries directly, below wxWidgets.
    find_package(PkgConfig REQUIRED)
    pkg_check_modules(GTK3 REQUIRED IMPORTED_TARGET gtk+-3.0 gio-2.0)
    pkg_check_modules(XLIB REQUIRED IMPORTED_TARGET x11 xext)
    # The portal of the desktop hands over pictures of the screen as PNG files.
    find_package(PNG REQUIRED)
  endif()
endif()
