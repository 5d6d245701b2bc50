# Traces: how they are written and read, and the DEVLNK.dll that writes one.
add_library(panelora_trace STATIC
  trace/trace_file.cpp
  trace/trace_line.cpp
  trace/trace_writer.cpp)
target_link_libraries(panelora_trace PUBLIC panelora_catalogue)
