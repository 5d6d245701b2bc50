# Traces: their format, their way into a file, and how they are shown.
if(NOT WIN32)
  panelora_test(panel_trace trace/trace_file_test.cpp trace/trace_view_test.cpp
    trace/trace_writer_test.cpp support/desk_memory.cpp)
  target_link_libraries(panel_trace PRIVATE panelora_memory panelora_trace)
  # What a trace of the panel is shown as is a source of this project.
  add_test(NAME trace_as_test_compiles COMMAND ${CMAKE_CXX_COMPILER} -std=c++20 -Wall -Wextra -Werror
           -fsyntax-only -I${PROJECT_SOURCE_DIR} -isystem ${PANELORA_GOOGLETEST}/googletest/include
           -x c++ ${CMAKE_CURRENT_LIST_DIR}/panel_as_test.txt)
endif()

# The tracing library over the simulated box and over those that are wrong in one way.
if(WIN32)
  add_executable(panel_trace_library trace/trace_library_main.cpp trace/trace_library_test.cpp)
  target_link_libraries(panel_trace_library PRIVATE gtest panelora_core panelora_simulator
    panelora_trace)
  target_compile_definitions(panel_trace_library PRIVATE ${PANELORA_WINDOWS_DEFINITIONS}
    PANELORA_TRACE_LIBRARY="$<TARGET_FILE:devlnk_trace>"
    PANELORA_SIMULATED_LIBRARY="$<TARGET_FILE:DEVLNK>"
    PANELORA_FAKE_LIBRARIES="$<TARGET_FILE_DIR:fake_random>")
  panelora_quick_build(panel_trace_library)
  add_dependencies(panel_trace_library devlnk_trace DEVLNK fake_fails_every_call fake_only_opens
    fake_fills_answers fake_fills_and_fails fake_answers_two fake_random fake_refuses)
  if(PANELORA_EMULATOR)
    set_target_properties(panel_trace_library PROPERTIES CROSSCOMPILING_EMULATOR ${PANELORA_EMULATOR})
  endif()
  add_test(NAME panel_trace_library COMMAND panel_trace_library)
  panelora_lane(panel_trace_library 1)
endif()
