# What the lists and fields of BoxBench mean.
if(NOT WIN32)
  panelora_test(boxbench_units
    boxbench/call_log_test.cpp
    boxbench/edit_value_test.cpp
    boxbench/fault_form_test.cpp
    boxbench/input_signal_test.cpp
    boxbench/models_test.cpp
    boxbench/property_list_test.cpp
    boxbench/words_test.cpp)
  target_link_libraries(boxbench_units PRIVATE panelora_boxbench)
endif()
