# What the lists and fields of BoxBench mean, and its window driven from outside.
if(WIN32)
  add_executable(boxbench_window
    boxbench/bench_files_test.cpp
    boxbench/bench_main.cpp
    boxbench/bench_process.cpp
    boxbench/bench_window_test.cpp)
  target_link_libraries(boxbench_window PRIVATE panelora_boxbench panelora_mapped_box gtest user32)
  panelora_quick_build(boxbench_window <windows.h>)
  set_target_properties(boxbench_window PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/boxbench)
  add_dependencies(boxbench_window BoxBench DEVLNK)
  if(PANELORA_EMULATOR)
    set_target_properties(boxbench_window PROPERTIES CROSSCOMPILING_EMULATOR ${PANELORA_EMULATOR})
  endif()
  add_test(NAME boxbench_window
    COMMAND boxbench_window $<TARGET_FILE:BoxBench> $<TARGET_FILE:DEVLNK>)
  panelora_lane(boxbench_window 0)
  set_tests_properties(boxbench_window PROPERTIES TIMEOUT 600)
else()
  panelora_test(boxbench_units
    boxbench/call_log_test.cpp
    boxbench/edit_value_test.cpp
    boxbench/fault_form_test.cpp
    boxbench/input_signal_test.cpp
    boxbench/models_test.cpp
    boxbench/property_list_test.cpp
    boxbench/save_text_test.cpp
    boxbench/words_test.cpp)
  target_link_libraries(boxbench_units PRIVATE panelora_boxbench)
endif()
