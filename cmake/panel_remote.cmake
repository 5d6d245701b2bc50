# PanelRemote.exe works a running Panelora from outside: for the tour, and for whoever tries something.
add_executable(PanelRemote tools/panel_remote.cpp)
target_compile_definitions(PanelRemote PRIVATE ${PANELORA_WINDOWS_DEFINITIONS})
target_link_libraries(PanelRemote PRIVATE panelora_options user32)
