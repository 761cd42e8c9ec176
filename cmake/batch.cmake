# brindle-batch: the same core from a shell. It links no Qt.
file(GLOB batch_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/app/batch/*.cpp)
if(batch_sources)
  find_package(CLI11 REQUIRED)
  add_executable(brindle-batch ${batch_sources})
  target_link_libraries(brindle-batch PRIVATE brindle_core CLI11::CLI11)
endif()
