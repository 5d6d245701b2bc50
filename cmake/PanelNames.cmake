# Writes res/panels.inc into PANELORA_GENERATED_DIR: the models whose fronts are drawn, by the names of their
# pictures, for those who hear them, out of the list that the pictures are drawn from. Works with cmake -P too.
file(STRINGS ${PROJECT_SOURCE_DIR}/res/art/panels.tsv panels REGEX "^[0-9]+\t")
set(rows)
foreach(panel IN LISTS panels)
  string(REGEX REPLACE "^([0-9]+)\t[^\t]*\t([^\t]*)\t([^\t]*).*" "PANEL(\"PANEL_BMP_\\1\", \"\\2\", \"\\3\")\n"
         row "${panel}")
  string(APPEND rows "${row}")
endforeach()
file(CONFIGURE OUTPUT ${PANELORA_GENERATED_DIR}/res/panels.inc CONTENT "${rows}" @ONLY)
