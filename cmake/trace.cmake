# Traces: how they are written and read, and the DEVLNK.dll that writes one.
add_library(panelora_trace STATIC
  trace/trace_as_test.cpp
  trace/trace_file.cpp
  trace/trace_follower.cpp
  trace/trace_line.cpp
  trace/trace_view.cpp
  trace/trace_writer.cpp
  trace/words.cpp)
target_link_libraries(panelora_trace PUBLIC panelora_catalogue)

# The library that traces: it is put in the place of the maker's, which becomes DEVLNK.box.dll.
if(WIN32)
  add_library(devlnk_trace SHARED trace/devlnk_trace.cpp simulator/devlnk.def)
  target_compile_definitions(devlnk_trace PRIVATE ${PANELORA_WINDOWS_DEFINITIONS})
  target_link_libraries(devlnk_trace PRIVATE panelora_trace panelora_core panelora_options)
  panelora_version(devlnk_trace DEVLNK.dll)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND NOT MSVC)
    target_link_options(devlnk_trace PRIVATE -Wl,--enable-stdcall-fixup)  # exports the plain names
  endif()
  if(NOT MSVC)
    # Where data has sections, what is all zeros takes its room in the file.
    set_source_files_properties(trace/devlnk_trace.cpp PROPERTIES COMPILE_OPTIONS -fno-data-sections)
  endif()
  set_target_properties(devlnk_trace PROPERTIES OUTPUT_NAME DEVLNK PREFIX "" IMPORT_PREFIX ""
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/trace
    ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/trace)
endif()
