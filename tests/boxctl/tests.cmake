# boxctl at a simulated box whose clock is the test's.
if(NOT WIN32)
  panelora_test(boxctl_tests
    boxctl/bench_test.cpp
    boxctl/boxctl_desk.cpp
    boxctl/damaged_files_test.cpp
    boxctl/demonstration_test.cpp
    boxctl/guide_test.cpp
    boxctl/panel_settings_test.cpp
    boxctl/reading_test.cpp
    boxctl/replay_test.cpp
    boxctl/script_test.cpp
    boxctl/settings_test.cpp
    boxctl/trace_test.cpp
    support/desk_memory.cpp)
  target_link_libraries(boxctl_tests PRIVATE panelora_boxctl panelora_memory)
endif()
