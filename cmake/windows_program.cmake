# The program, its toolkit over real windows, and the simulated DEVLNK.dll.
enable_language(RC)

# One static file with nothing beside the system's own DLLs. It asks the system's loader for another
# place in memory with every start, out of the whole range where addresses have 64 bits, and for data
# that is never run as code.
if(MSVC)
  # The resources have the manifest; the linker's own would be a second one.
  add_link_options(/MANIFEST:NO /GUARD:CF /DYNAMICBASE /NXCOMPAT)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    add_link_options(/HIGHENTROPYVA)
  endif()
else()
  add_link_options(-static -Wl,--gc-sections -Wl,--no-insert-timestamp -Wl,--dynamicbase -Wl,--nxcompat)
  if(PANELORA_SYMBOLS)
    # The same wherever the sources lie. The presets that set this do without precompiled headers: with
    # them g++ 12 orders some of the symbols by how long the names of the folders are.
    add_compile_options(-g -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
  else()
    add_link_options($<$<CONFIG:MinSizeRel>:-s>)
  endif()
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    add_link_options(-Wl,--high-entropy-va)
  endif()
endif()

# What is not in every Windows that the program runs on is out of the headers' sight, and so is what
# nobody here uses.
set(PANELORA_WINDOWS_DEFINITIONS _WIN32_WINNT=0x0601 NOMINMAX WIN32_LEAN_AND_MEAN)

add_library(panelora_win32 STATIC
  platform/win32/accessible.cpp
  platform/win32/colour_label_window.cpp
  platform/win32/devlnk_loader.cpp
  platform/win32/dialog_layout.cpp
  platform/win32/dialog_painting.cpp
  platform/win32/dpi.cpp
  platform/win32/gdi_cache.cpp
  platform/win32/guide.cpp
  platform/win32/look.cpp
  platform/win32/serial_port.cpp
  platform/win32/speaking.cpp
  platform/win32/system_library.cpp
  platform/win32/tab_order.cpp
  platform/win32/win32_dialog.cpp
  platform/win32/win32_toolkit.cpp)
target_compile_definitions(panelora_win32 PUBLIC ${PANELORA_WINDOWS_DEFINITIONS})
target_link_libraries(panelora_win32 PUBLIC panelora_core comctl32 gdi32 shlwapi user32)
panelora_read_once(panelora_win32 ${PANELORA_OFTEN_INCLUDED}
  ${PROJECT_SOURCE_DIR}/platform/win32/windows_headers.h)

# The art is rendered from its vector sources into bitmaps and a resource script that names them. The
# presets share it.
find_package(Python3 3.9 COMPONENTS Interpreter REQUIRED)
set(PANELORA_ART_DIR ${PROJECT_BINARY_DIR}/art CACHE PATH "Where the rendered artwork is kept")
file(GLOB PANELORA_ART_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/res/art/*)
file(GLOB PANELORA_DIALOGS CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/res/dialogs/*.inc)
if(MSVC)
  set(PANELORA_ART_OPTIONS --plain-names)
endif()
add_custom_command(
  OUTPUT ${PANELORA_ART_DIR}/art.rc
  COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tools/render_art ${PANELORA_ART_OPTIONS}
          ${PANELORA_ART_DIR}
  DEPENDS ${PROJECT_SOURCE_DIR}/tools/render_art ${PANELORA_ART_SOURCES}
  COMMENT "Rendering the artwork"
  VERBATIM)
add_custom_target(panelora_art DEPENDS ${PANELORA_ART_DIR}/art.rc)

# Those that a build can show follow from the box types that it admits.
set(PANELORA_SHOWN_ART_DIR ${PROJECT_BINARY_DIR}/shown_art)
add_custom_command(
  OUTPUT ${PANELORA_SHOWN_ART_DIR}/art.rc
  COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tools/admitted_art
          ${PANELORA_ART_DIR}/art.rc ${PANELORA_SHOWN_ART_DIR}/art.rc ${PANELORA_ADMITTED_BOX_TYPES}
  DEPENDS ${PROJECT_SOURCE_DIR}/tools/admitted_art ${PANELORA_ART_DIR}/art.rc
          ${PROJECT_SOURCE_DIR}/app/device_picture.cpp ${PROJECT_SOURCE_DIR}/catalogue/wall.cpp
  COMMENT "Choosing the pictures that the admitted boxes show"
  VERBATIM)
add_custom_target(panelora_shown_art DEPENDS ${PANELORA_SHOWN_ART_DIR}/art.rc)
add_dependencies(panelora_shown_art panelora_art)

# The program's resources. Tests that open its windows themselves, or admit every box, have all pictures;
# the program has those of its boxes: which art.rc is read is the first of the folders that are named.
panelora_manifest(Panelora)
add_library(panelora_resources OBJECT res/panelora.rc)
target_include_directories(panelora_resources PRIVATE
  ${PROJECT_SOURCE_DIR}/res ${PANELORA_VERSION_DIR} ${PANELORA_ART_DIR})
add_dependencies(panelora_resources panelora_art)
add_library(panelora_shown_resources OBJECT res/panelora.rc)
target_include_directories(panelora_shown_resources PRIVATE
  ${PROJECT_SOURCE_DIR}/res ${PANELORA_VERSION_DIR} ${PANELORA_SHOWN_ART_DIR} ${PANELORA_ART_DIR})
add_dependencies(panelora_shown_resources panelora_shown_art)
set_source_files_properties(res/panelora.rc PROPERTIES OBJECT_DEPENDS
  "${PANELORA_ART_DIR}/art.rc;${PANELORA_SHOWN_ART_DIR}/art.rc;${PANELORA_VERSION_DIR}/Panelora.manifest;${PROJECT_SOURCE_DIR}/res/dialogs.inc;${PROJECT_SOURCE_DIR}/res/strings.inc;${PANELORA_DIALOGS}")

add_executable(Panelora WIN32 platform/win32/main.cpp $<TARGET_OBJECTS:panelora_shown_resources>)
target_link_libraries(Panelora PRIVATE panelora_win32)
panelora_version(Panelora Panelora.exe)

# The box that the programs of a desk share.
add_library(panelora_mapped_box STATIC simulator/mapped_box.cpp)
target_compile_definitions(panelora_mapped_box PUBLIC ${PANELORA_WINDOWS_DEFINITIONS})
target_link_libraries(panelora_mapped_box PUBLIC panelora_simulator)

# In a folder of its own, so that it never stands beside the program unasked.
add_library(DEVLNK SHARED simulator/devlnk_dll.cpp simulator/devlnk.def)
target_link_libraries(DEVLNK PRIVATE panelora_mapped_box panelora_options)
panelora_version(DEVLNK DEVLNK.dll)
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND NOT MSVC)
  target_link_options(DEVLNK PRIVATE -Wl,--enable-stdcall-fixup)  # exports the plain names
endif()
set_target_properties(DEVLNK PROPERTIES PREFIX "" IMPORT_PREFIX ""
  RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/simulator
  ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/simulator)
