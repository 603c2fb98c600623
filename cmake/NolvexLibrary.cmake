# SPDX-License-Identifier: MIT
include(GenerateExportHeader)
include(CMakePackageConfigHelpers)

# nolvex_platform_sources(<out> <folder>): lists the sources of the current folder, and of platform/ only those of this
# system.
function(nolvex_platform_sources out)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}" *.cpp *.h)
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "platform/(posix|gtk)/")
  else()
    list(FILTER sources EXCLUDE REGEX "platform/(windows|msw)/")
  endif()
  set(${out} ${sources} PARENT_SCOPE)
endfunction()

# nolvex_add_library(<name> EXPORT <set>): makes a shared library of the calling folder, with hidden visibility and the
# generated header <name>/Export.h (macro <NAME>_EXPORT), and installs its headers and CMake package. EXPORT names the
# set of targets that find_package provides to users. Headers in folders called detail, decoding, kernels, paint,
# platform and resources are internal and are not installed.
function(nolvex_add_library name)
  cmake_parse_arguments(arg "" "EXPORT" "" ${ARGN})
  nolvex_platform_sources(sources)
  add_library(${name} SHARED ${sources})
  add_library(Nolvex::${name} ALIAS ${name})
  set_target_properties(${name} PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
    PREFIX "" IMPORT_PREFIX "")
  if(NOT WIN32)
    set_target_properties(${name} PROPERTIES PREFIX "lib")
  endif()

  string(TOUPPER ${name} upper)
  set(generated "${PROJECT_BINARY_DIR}/include")
  generate_export_header(${name} BASE_NAME ${upper} EXPORT_FILE_NAME "${generated}/${name}/Export.h")
  target_include_directories(${name} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<BUILD_INTERFACE:${generated}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:NolvexCompilerSettings>)

  if(WIN32)
    configure_file("${PROJECT_SOURCE_DIR}/NolvexLibWx/resources/version.rc.in" "${CMAKE_CURRENT_BINARY_DIR}/version.rc" @ONLY)
    target_sources(${name} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/version.rc")
  endif()

  install(TARGETS ${name} EXPORT ${arg_EXPORT}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  install(DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}/" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${name}
    COMPONENT development FILES_MATCHING PATTERN "*.h" PATTERN detail EXCLUDE PATTERN paint EXCLUDE PATTERN decoding EXCLUDE
    PATTERN platform EXCLUDE PATTERN resources EXCLUDE PATTERN kernels EXCLUDE)
  install(FILES "${generated}/${name}/Export.h" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${name} COMPONENT development)
endfunction()
