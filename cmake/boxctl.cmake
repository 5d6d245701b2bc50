# boxctl: the settings of a box, and the simulated box, from the command line. Its core is built and
# tested everywhere, the program on Windows.

# The headers of the system are for native programs: only the two folders that are used are taken from
# there, so that a cross compiler sees no more.
set(PANELORA_BOXCTL_HEADERS ${PROJECT_BINARY_DIR}/boxctl_headers)
function(panelora_take_headers folder header package)
  find_path(PANELORA_${folder}_HEADERS ${header} PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH
            DOC "What has ${header}")
  if(NOT PANELORA_${folder}_HEADERS)
    message(FATAL_ERROR "${header} is missing: install the package ${package}, or set "
                        "PANELORA_${folder}_HEADERS to the folder that has it")
  endif()
  file(COPY ${PANELORA_${folder}_HEADERS}/${folder} DESTINATION ${PANELORA_BOXCTL_HEADERS})
endfunction()
panelora_take_headers(CLI CLI/CLI.hpp libcli11-dev)
panelora_take_headers(nlohmann nlohmann/json.hpp nlohmann-json3-dev)

add_library(panelora_boxctl STATIC
  boxctl/attached_box.cpp
  boxctl/bench_commands.cpp
  boxctl/box_commands.cpp
  boxctl/box_file.cpp
  boxctl/boxctl.cpp
  boxctl/call_commands.cpp
  boxctl/files.cpp
  boxctl/names.cpp
  boxctl/script.cpp
  boxctl/session.cpp
  boxctl/settings.cpp
  boxctl/settings_commands.cpp
  boxctl/settings_file.cpp
  boxctl/texts.cpp
  boxctl/trace_commands.cpp
  boxctl/values.cpp)
target_include_directories(panelora_boxctl SYSTEM PUBLIC ${PANELORA_BOXCTL_HEADERS})
target_link_libraries(panelora_boxctl PUBLIC panelora_simulator panelora_trace)
# What its two libraries cost to read and to make of templates, it costs a few times and not for each
# source.
set_target_properties(panelora_boxctl PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 5)
panelora_read_once(panelora_boxctl ${PANELORA_OFTEN_INCLUDED})
if(PANELORA_SANITIZE AND NOT MSVC)
  target_compile_options(panelora_boxctl PRIVATE -O0)  # it waits for no one, and is compiled often
endif()
if(NOT MSVC)
  target_compile_options(panelora_boxctl PRIVATE -fexceptions)  # where all else does without them
endif()

if(WIN32)
  add_executable(boxctl boxctl/main.cpp)
  target_link_libraries(boxctl PRIVATE panelora_boxctl panelora_core panelora_mapped_box shell32)
  panelora_version(boxctl boxctl.exe)
endif()
