# SPDX-License-Identifier: MIT
# Nolvex::Toolkit is the wxWidgets of the system. The installed package contains this file, so that its users get the
# wxWidgets of their own machine.
if(NOT TARGET Nolvex::Toolkit)
  add_library(Nolvex::Toolkit INTERFACE IMPORTED GLOBAL)
  if(WIN32)
    find_package(wxWidgets CONFIG REQUIRED COMPONENTS core base net)
    target_link_libraries(Nolvex::Toolkit INTERFACE ${wxWidgets_LIBRARIES})
  else()
    find_package(wxWidgets 3.2 MODULE REQUIRED COMPONENTS core base net)
    target_include_directories(Nolvex::Toolkit SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
    target_compile_definitions(Nolvex::Toolkit INTERFACE ${wxWidgets_DEFINITIONS})
    target_compile_options(Nolvex::Toolkit INTERFACE ${wxWidgets_CXX_FLAGS})
    target_link_libraries(Nolvex::Toolkit INTERFACE ${wxWidgets_LIBRARIES})
  endif()
endif()
