# Traces: their format, their way into a file, and how they are shown.
if(NOT WIN32)
  panelora_test(panel_trace trace/trace_file_test.cpp trace/trace_writer_test.cpp)
  target_link_libraries(panel_trace PRIVATE panelora_trace)
endif()
