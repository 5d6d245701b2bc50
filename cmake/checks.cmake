# Checks of the sources: the native build has them all as tests; a build of clang for Windows has
# clang-tidy for what needs the Windows headers.

# clang-tidy with what .clang-tidy says. Each source has a stamp, so that only what changed, or includes
# what changed, is checked again.
find_program(PANELORA_CLANG_TIDY NAMES clang-tidy-14 DOC "clang-tidy of version 14")
if(NOT PANELORA_CLANG_TIDY)
  message(FATAL_ERROR "clang-tidy-14 is missing: install the package clang-tidy-14, or switch "
                      "PANELORA_CHECKS off")
endif()

# panelora_tidy(TARGET source... [FLAGS flag...]): TARGET checks the sources, given from the top folder.
function(panelora_tidy target)
  cmake_parse_arguments(PARSE_ARGV 1 tidy "" "" "FLAGS")
  separate_arguments(flags UNIX_COMMAND "${CMAKE_CXX_FLAGS}")
  if(CMAKE_CXX_COMPILER_TARGET)
    list(APPEND flags --target=${CMAKE_CXX_COMPILER_TARGET})
  endif()
  list(APPEND flags -std=c++${CMAKE_CXX_STANDARD} -I${PROJECT_SOURCE_DIR}
       -I${PANELORA_GENERATED_DIR} ${tidy_FLAGS}
       -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  file(GLOB configurations ${PROJECT_SOURCE_DIR}/.clang-tidy ${PROJECT_SOURCE_DIR}/*/*/.clang-tidy)
  set(stamps)
  foreach(source IN LISTS tidy_UNPARSED_ARGUMENTS)
    set(stamp ${PROJECT_BINARY_DIR}/tidy/${source}.stamp)
    add_custom_command(
      OUTPUT ${stamp}
      COMMAND ${CMAKE_COMMAND} -E env CLANG_TIDY=${PANELORA_CLANG_TIDY}
              ${PROJECT_SOURCE_DIR}/tools/tidy_source ${stamp} ${PROJECT_SOURCE_DIR}/${source}
              ${CMAKE_CXX_COMPILER} ${flags}
      DEPENDS ${PROJECT_SOURCE_DIR}/${source} ${PROJECT_SOURCE_DIR}/tools/tidy_source
              ${configurations}
      DEPFILE ${stamp}.d
      COMMENT "clang-tidy ${source}"
      VERBATIM)
    list(APPEND stamps ${stamp})
  endforeach()
  add_custom_target(${target} DEPENDS ${stamps})
endfunction()

# boxctl is left to its tests: its libraries cost clang-tidy as much as all else together.
get_target_property(PANELORA_CATALOGUE_SOURCES panelora_catalogue SOURCES)
get_target_property(PANELORA_CORE_SOURCES panelora_core SOURCES)
get_target_property(PANELORA_SIMULATOR_SOURCES panelora_simulator SOURCES)
get_target_property(PANELORA_BOXBENCH_SOURCES panelora_boxbench SOURCES)
get_target_property(PANELORA_TRACE_SOURCES panelora_trace SOURCES)
if(WIN32)
  get_target_property(PANELORA_WIN32_SOURCES panelora_win32 SOURCES)
  get_target_property(PANELORA_BENCH_WINDOW_SOURCES BoxBench SOURCES)
  list(FILTER PANELORA_BENCH_WINDOW_SOURCES INCLUDE REGEX "^boxbench/")
  list(TRANSFORM PANELORA_WINDOWS_DEFINITIONS PREPEND -D OUTPUT_VARIABLE PANELORA_WINDOWS_FLAGS)
  panelora_tidy(check_tidy ${PANELORA_WIN32_SOURCES} platform/win32/main.cpp
    ${PANELORA_BENCH_WINDOW_SOURCES} boxctl/main.cpp simulator/devlnk_dll.cpp
    simulator/mapped_box.cpp tools/panel_remote.cpp trace/devlnk_trace.cpp
    FLAGS ${PANELORA_WINDOWS_FLAGS})
else()
  panelora_tidy(check_tidy ${PANELORA_CATALOGUE_SOURCES} ${PANELORA_CORE_SOURCES} ${PANELORA_SIMULATOR_SOURCES}
    ${PANELORA_TRACE_SOURCES} ${PANELORA_BOXBENCH_SOURCES} platform/memory/memory_toolkit.cpp
    FLAGS "-DPANELORA_ADMITTED_BOX_TYPES_LIST=${PANELORA_ADMITTED_LIST}")
  add_test(NAME check_tidy
    COMMAND ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR} --target check_tidy -- -k 0)
  set_tests_properties(check_tidy PROPERTIES RUN_SERIAL TRUE)
  add_test(NAME check_layout COMMAND ${PROJECT_SOURCE_DIR}/tools/check_sources layout)
  add_test(NAME check_sources COMMAND ${PROJECT_SOURCE_DIR}/tests/check_sources_test
           ${PROJECT_BINARY_DIR}/check_sources)
  add_test(NAME check_scripts COMMAND ${PROJECT_SOURCE_DIR}/tools/check_sources scripts)
endif()
