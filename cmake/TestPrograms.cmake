# SPDX-License-Identifier: MIT
include(GoogleTest)

# The support code that the test programs share, with separate sources for the calls that differ between the systems.
function(nolvex_add_test_support)
  set(folder "${CMAKE_CURRENT_SOURCE_DIR}/support")
  if(WIN32)
    file(GLOB platform CONFIGURE_DEPENDS "${folder}/platform/windows/*.cpp")
  else()
    file(GLOB platform CONFIGURE_DEPENDS "${folder}/platform/posix/*.cpp")
  endif()
  add_library(NolvexTestSupport STATIC "${folder}/TestData.cpp" ${platform})
  target_include_directories(NolvexTestSupport PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
  target_link_libraries(NolvexTestSupport PUBLIC NolvexCompilerSettings NolvexLib GTest::gmock)
  if(WIN32)
    target_link_libraries(NolvexTestSupport PRIVATE psapi ws2_32)
  endif()
  target_compile_definitions(NolvexTestSupport PUBLIC $<$<BOOL:${NOLVEX_SANITIZE}>:NOLVEX_SANITIZED>)
  set_source_files_properties("${folder}/TestData.cpp" PROPERTIES
    COMPILE_DEFINITIONS NOLVEX_TEST_DATA_DIR="${CMAKE_CURRENT_SOURCE_DIR}/data")
  if(NOLVEX_BUILD_TOOLKIT_LIBRARY)
    if(WIN32)
      file(GLOB platform CONFIGURE_DEPENDS "${folder}/platform/msw/*.cpp")
    else()
      file(GLOB platform CONFIGURE_DEPENDS "${folder}/platform/gtk/*.cpp")
    endif()
    add_library(NolvexGuiTestSupport STATIC "${folder}/DialogRobot.cpp" "${folder}/Events.cpp" "${folder}/RandomWalk.cpp"
      "${folder}/Screen.cpp" "${folder}/TextFit.cpp" ${platform})
    # The library does not export this unit, so that the tests compile it themselves.
    target_sources(NolvexGuiTestSupport PRIVATE "${PROJECT_SOURCE_DIR}/NolvexLibWx/detail/ScreenPlaces.cpp")
    target_link_libraries(NolvexGuiTestSupport PUBLIC NolvexTestSupport NolvexLibWx)
    if(NOT WIN32)
      pkg_check_modules(XTST REQUIRED IMPORTED_TARGET x11 xtst)
      target_link_libraries(NolvexGuiTestSupport PRIVATE PkgConfig::GTK3 PkgConfig::XTST)
    endif()
  endif()
endfunction()

set(NOLVEX_TEST_PARTS 1 CACHE STRING
  "Number of parts of the long test programs that may run at the same time. More than one needs NOLVEX_TEST_LAUNCHER.")
set(NOLVEX_TEST_LAUNCHER "" CACHE FILEPATH
  "Program that runs a test program on the display whose number, from 1, is in NOLVEX_TEST_PART.")

# nolvex_add_test_program(<name> SOURCES <patterns...> [EXCLUDE <files...>] LIBRARIES <targets...> [MAIN <source>]
#                         [PROCESS_PER_TEST] [IN_PARTS] [NO_DISPLAY] [TIMEOUT <s>])
#
# Makes a GoogleTest program. CTest runs the whole program as one test or, with PROCESS_PER_TEST, each TEST() in a
# process of its own, for tests after which no other test may run in the same process. With IN_PARTS the program is run
# NOLVEX_TEST_PARTS times, each time with another part of its tests.
function(nolvex_add_test_program name)
  cmake_parse_arguments(arg "PROCESS_PER_TEST;IN_PARTS;NO_DISPLAY" "MAIN;TIMEOUT" "SOURCES;EXCLUDE;LIBRARIES" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}" ${arg_SOURCES})
  if(arg_EXCLUDE)
    list(REMOVE_ITEM sources ${arg_EXCLUDE})
  endif()
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources} ${arg_MAIN})
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} NolvexTestSupport)
  if("NolvexLibWx" IN_LIST arg_LIBRARIES)
    target_link_libraries(${name} PRIVATE NolvexGuiTestSupport)
    target_precompile_headers(${name} PRIVATE <wx/wx.h> <gtest/gtest.h>)
  endif()
  if(NOT arg_MAIN)
    target_link_libraries(${name} PRIVATE GTest::gmock_main)
  endif()
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()
  # A critical warning of GTK is a defect of the library and ends the program. GTK reads the variable only at the start.
  set(environment "G_DEBUG=fatal-criticals")
  # Programs with windows share the mouse and the focus of their display, so that CTest runs them one at a time.
  set(lock display)
  if(arg_NO_DISPLAY OR NOT "NolvexLibWx" IN_LIST arg_LIBRARIES)
    set(lock "")
  endif()
  if(lock AND NOT WIN32)
    # CTest runs the program by this script, which keeps the windows away from the user's desktop.
    set_target_properties(${name} PROPERTIES
      CROSSCOMPILING_EMULATOR "${PROJECT_SOURCE_DIR}/tools/testing/on-private-display.sh")
  endif()
  if(arg_IN_PARTS AND NOLVEX_TEST_PARTS GREATER 1)
    nolvex_add_test_parts(${name} "${environment}" "${lock}" ${arg_TIMEOUT})
    return()
  endif()
  if(arg_PROCESS_PER_TEST)
    gtest_add_tests(TARGET ${name} SOURCES ${sources} TEST_LIST tests)
  else()
    set(tests ${name})
    add_test(NAME ${name} COMMAND ${name})
  endif()
  set_tests_properties(${tests} PROPERTIES TIMEOUT ${arg_TIMEOUT} ENVIRONMENT "${environment}" RESOURCE_LOCK "${lock}")
endfunction()

# Each part has a display of its own.
function(nolvex_add_test_parts name environment lock timeout)
  math(EXPR last "${NOLVEX_TEST_PARTS} - 1")
  foreach(index RANGE ${last})
    math(EXPR part "${index} + 1")
    set(part_environment "${environment}" NOLVEX_TEST_PART=${part}
      GTEST_TOTAL_SHARDS=${NOLVEX_TEST_PARTS} GTEST_SHARD_INDEX=${index})
    set(part_lock "")
    if(lock)
      set(part_lock "${lock}-${part}")
    endif()
    add_test(NAME ${name}-${part}
      COMMAND ${NOLVEX_TEST_LAUNCHER} ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:${name}>)
    set_tests_properties(${name}-${part} PROPERTIES
      TIMEOUT ${timeout} ENVIRONMENT "${part_environment}" RESOURCE_LOCK "${part_lock}")
  endforeach()
endfunction()
