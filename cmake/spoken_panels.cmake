# The models whose fronts are drawn, by the names of their pictures, for those who hear them: out of the list
# that the pictures are drawn from.
set(PANELORA_GENERATED_DIR ${PROJECT_BINARY_DIR}/generated)
set(list ${PROJECT_SOURCE_DIR}/res/art/panels.tsv)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
file(STRINGS ${list} panels REGEX "^[0-9]+\t")
set(rows)
foreach(panel IN LISTS panels)
  string(REGEX REPLACE "^([0-9]+)\t[^\t]*\t([^\t]*)\t([^\t]*).*" "PANEL(\"PANEL_BMP_\\1\", \"\\2\", \"\\3\")\n"
         row "${panel}")
  string(APPEND rows "${row}")
endforeach()
file(CONFIGURE OUTPUT ${PANELORA_GENERATED_DIR}/res/panels.inc CONTENT "${rows}" @ONLY)
target_include_directories(panelora_core PRIVATE ${PANELORA_GENERATED_DIR})
