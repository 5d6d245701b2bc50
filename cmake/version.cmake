# What each program and library tells the system of itself, and a package of all. The version stands in
# project() and nowhere else, but for the number in the panel's title, which is the title's own.
set(PANELORA_DEVELOPERS "The Panelora developers")
set(PANELORA_YEAR 2026)  # of the first release
set(PANELORA_VERSION_DIR ${PROJECT_BINARY_DIR}/version)
set(PANELORA_DESCRIPTION_Panelora "${PROJECT_NAME} - ${PROJECT_DESCRIPTION}")
set(PANELORA_DESCRIPTION_BoxBench "${PROJECT_NAME} BoxBench - The simulated box beside the panel")
set(PANELORA_DESCRIPTION_boxctl "${PROJECT_NAME} boxctl - A box from the command line")
set(PANELORA_DESCRIPTION_DEVLNK "${PROJECT_NAME} simulated box - A device library")
set(PANELORA_DESCRIPTION_devlnk_trace "${PROJECT_NAME} trace - A device library that writes calls down")
set(PANELORA_DESCRIPTION_setup "${PROJECT_NAME} setup")

# panelora_version(TARGET FILE): gives the target a version resource.
function(panelora_version target file)
  cmake_path(GET file STEM name)
  set(description "${PANELORA_DESCRIPTION_${target}}")
  string(REPLACE "." ", " numbers ${PROJECT_VERSION})
  set(type VFT_APP)
  if(file MATCHES "dll$")
    set(type VFT_DLL)
  endif()
  set(resource ${PANELORA_VERSION_DIR}/${target}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/res/version.rc.in ${resource} @ONLY)
  target_sources(${target} PRIVATE ${resource})
endfunction()

# panelora_manifest(TARGET): writes TARGET.manifest into PANELORA_VERSION_DIR.
function(panelora_manifest name)
  set(description "${PANELORA_DESCRIPTION_${name}}")
  configure_file(${PROJECT_SOURCE_DIR}/res/program.manifest.in
                 ${PANELORA_VERSION_DIR}/${name}.manifest @ONLY)
endfunction()

# For ./package, which sources it.
file(CONFIGURE OUTPUT ${PANELORA_VERSION_DIR}/product @ONLY CONTENT
"product='@PROJECT_NAME@'
version='@PROJECT_VERSION@'
description='@PROJECT_DESCRIPTION@'
declare -A descriptions=(
  [Panelora.exe]='@PANELORA_DESCRIPTION_Panelora@'
  [simulator/BoxBench.exe]='@PANELORA_DESCRIPTION_BoxBench@'
  [simulator/boxctl.exe]='@PANELORA_DESCRIPTION_boxctl@'
  [simulator/DEVLNK.dll]='@PANELORA_DESCRIPTION_DEVLNK@'
  [trace/DEVLNK.dll]='@PANELORA_DESCRIPTION_devlnk_trace@'
  [setup]='@PANELORA_DESCRIPTION_setup@'
)
developers='@PANELORA_DEVELOPERS@'
year='@PANELORA_YEAR@'
")
