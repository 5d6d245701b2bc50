# BoxBench.exe shows and works the simulated box beside a panel: what its lists and fields mean, and on
# Windows its window.
add_library(panelora_boxbench STATIC
  boxbench/call_log.cpp
  boxbench/edit_value.cpp
  boxbench/fault_form.cpp
  boxbench/input_signal.cpp
  boxbench/models.cpp
  boxbench/plug_switches.cpp
  boxbench/property_list.cpp
  boxbench/save_text.cpp
  boxbench/words.cpp)
target_link_libraries(panelora_boxbench PUBLIC panelora_core panelora_simulator)
panelora_read_once(panelora_boxbench ${PANELORA_OFTEN_INCLUDED})

if(WIN32)
  # Of the rendered art the icon, and the fronts in one fine scale that is drawn smaller.
  set(PANELORA_BENCH_ART_DIR ${PROJECT_BINARY_DIR}/bench_art)
  add_custom_command(
    OUTPUT ${PANELORA_BENCH_ART_DIR}/bench_art.rc
    COMMAND ${CMAKE_COMMAND} -DFROM=${PANELORA_ART_DIR}/art.rc
            -DTO=${PANELORA_BENCH_ART_DIR}/bench_art.rc
            -P ${PROJECT_SOURCE_DIR}/cmake/BenchArt.cmake
    DEPENDS ${PROJECT_SOURCE_DIR}/cmake/BenchArt.cmake ${PANELORA_ART_DIR}/art.rc
    COMMENT "Choosing the pictures of BoxBench"
    VERBATIM)
  add_custom_target(panelora_bench_art DEPENDS ${PANELORA_BENCH_ART_DIR}/bench_art.rc)
  add_dependencies(panelora_bench_art panelora_art)
  panelora_manifest(BoxBench)
  add_library(panelora_bench_resources OBJECT boxbench/win32/box_bench.rc)
  target_include_directories(panelora_bench_resources PRIVATE
    ${PANELORA_VERSION_DIR} ${PANELORA_BENCH_ART_DIR} ${PANELORA_ART_DIR})
  add_dependencies(panelora_bench_resources panelora_bench_art)
  set_source_files_properties(boxbench/win32/box_bench.rc PROPERTIES OBJECT_DEPENDS
    "${PANELORA_BENCH_ART_DIR}/bench_art.rc;${PANELORA_VERSION_DIR}/BoxBench.manifest")

  add_executable(BoxBench WIN32
    boxbench/win32/bench_box.cpp
    boxbench/win32/bench_controls.cpp
    boxbench/win32/bench_layout.cpp
    boxbench/win32/bench_lists.cpp
    boxbench/win32/bench_painting.cpp
    boxbench/win32/bench_window.cpp
    boxbench/win32/main.cpp
    $<TARGET_OBJECTS:panelora_bench_resources>)
  target_link_libraries(BoxBench PRIVATE panelora_boxbench panelora_mapped_box panelora_win32
    comdlg32)
  panelora_version(BoxBench BoxBench.exe)
  panelora_read_once(BoxBench ${PANELORA_OFTEN_INCLUDED}
    ${PROJECT_SOURCE_DIR}/platform/win32/windows_headers.h)
endif()
