# BoxBench.exe shows and works the simulated box beside a panel: what its lists and fields mean.
add_library(panelora_boxbench STATIC
  boxbench/call_log.cpp
  boxbench/edit_value.cpp
  boxbench/fault_form.cpp
  boxbench/input_signal.cpp
  boxbench/models.cpp
  boxbench/plug_switches.cpp
  boxbench/property_list.cpp
  boxbench/words.cpp)
target_link_libraries(panelora_boxbench PUBLIC panelora_core panelora_simulator)
panelora_read_once(panelora_boxbench ${PANELORA_OFTEN_INCLUDED})
