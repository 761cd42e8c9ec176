# What is seen: drawing/ (trees on whatever Qt Gui can paint on), windows/ (Qt Widgets on top of it), and the program
# that opens them.
find_package(Qt6 6.4 REQUIRED COMPONENTS Gui Widgets)
find_package(PkgConfig REQUIRED)
pkg_check_modules(xcb REQUIRED IMPORTED_TARGET xcb) # for the program alone
set(qt_definitions QT_NO_FOREACH QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_KEYWORDS)

file(GLOB drawing_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/drawing/*.cpp)
add_library(brindle_drawing STATIC ${drawing_sources})
target_compile_definitions(brindle_drawing PUBLIC ${qt_definitions})
target_link_libraries(brindle_drawing PUBLIC brindle_core Qt6::Gui)

file(GLOB window_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/windows/*.cpp)
add_library(brindle_windows STATIC ${window_sources})
set_target_properties(brindle_windows PROPERTIES AUTOMOC ON)
target_precompile_headers(brindle_windows PRIVATE <QtWidgets>)
target_link_libraries(brindle_windows PUBLIC brindle_drawing Qt6::Widgets)

file(GLOB program_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/app/*.cpp)
add_executable(brindle ${program_sources})
target_link_libraries(brindle PRIVATE brindle_windows PkgConfig::xcb)
