# The windows: the toolkit layer (FLTK and Xlib, nothing of BRINDLE), the workbench's windows and commands on it, and
# the program that opens them.
find_package(X11 REQUIRED)
find_program(FLTK_CONFIG fltk-config REQUIRED)
execute_process(COMMAND ${FLTK_CONFIG} --cxxflags OUTPUT_VARIABLE fltk_cxxflags OUTPUT_STRIP_TRAILING_WHITESPACE)
separate_arguments(fltk_cxxflags UNIX_COMMAND "${fltk_cxxflags}")
list(FILTER fltk_cxxflags EXCLUDE REGEX "^-(O|g|std=)")

file(GLOB toolkit_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/toolkit/*.cpp)
if(toolkit_sources)
  add_library(brindle_toolkit STATIC ${toolkit_sources})
  target_include_directories(brindle_toolkit PUBLIC ${CMAKE_SOURCE_DIR})
  target_compile_options(brindle_toolkit PRIVATE ${fltk_cxxflags})
  target_link_libraries(brindle_toolkit PUBLIC fmt::fmt PRIVATE fltk X11::Xft X11::X11 fontconfig)
  target_include_directories(brindle_toolkit PRIVATE ${X11_Xft_INCLUDE_PATH} /usr/include/freetype2)
endif()

file(GLOB window_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/gui/*.cpp ${CMAKE_SOURCE_DIR}/commands/*.cpp)
if(window_sources)
  add_library(brindle_windows STATIC ${window_sources})
  target_link_libraries(brindle_windows PUBLIC brindle_core brindle_toolkit)
endif()

if(EXISTS ${CMAKE_SOURCE_DIR}/app/brindle.cpp)
  add_executable(brindle app/brindle.cpp)
  target_link_libraries(brindle PRIVATE brindle_windows)
endif()
