# What a screen reader says of the fronts.
set(PANELORA_GENERATED_DIR ${PROJECT_BINARY_DIR}/generated)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/res/art/panels.tsv)
include(${CMAKE_CURRENT_LIST_DIR}/PanelNames.cmake)
target_include_directories(panelora_core PRIVATE ${PANELORA_GENERATED_DIR})
