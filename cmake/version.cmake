# What each program and library tells the system of itself, and a package of all. The version stands in
# project() and nowhere else, but for the number in the panel's title, which is the title's own.
set(PANELORA_DEVELOPERS "The Panelora developers")
set(PANELORA_YEAR 2026)  # of the first release
set(PANELORA_VERSION_DIR ${PROJECT_BINARY_DIR}/version)

# panelora_version(TARGET FILE DESCRIPTION): gives the target a version resource.
function(panelora_version target file description)
  cmake_path(GET file STEM name)
  string(REPLACE "." ", " numbers ${PROJECT_VERSION})
  set(type VFT_APP)
  if(file MATCHES "dll$")
    set(type VFT_DLL)
  endif()
  set(resource ${PANELORA_VERSION_DIR}/${target}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/res/version.rc.in ${resource} @ONLY)
  target_sources(${target} PRIVATE ${resource})
endfunction()

# panelora_manifest(NAME DESCRIPTION): writes NAME.manifest into PANELORA_VERSION_DIR.
function(panelora_manifest name description)
  configure_file(${PROJECT_SOURCE_DIR}/res/program.manifest.in
                 ${PANELORA_VERSION_DIR}/${name}.manifest @ONLY)
endfunction()

# For ./package, which sources it.
file(CONFIGURE OUTPUT ${PANELORA_VERSION_DIR}/product @ONLY CONTENT
"product='@PROJECT_NAME@'
version='@PROJECT_VERSION@'
description='@PROJECT_DESCRIPTION@'
developers='@PANELORA_DEVELOPERS@'
year='@PANELORA_YEAR@'
")
