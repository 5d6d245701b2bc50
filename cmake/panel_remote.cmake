# PanelRemote.exe works a running Panelora from outside: for the tour, and for whoever tries something.
add_executable(PanelRemote tools/panel_remote.cpp)
target_compile_definitions(PanelRemote PRIVATE _WIN32_WINNT=0x0601 NOMINMAX)
target_link_libraries(PanelRemote PRIVATE panelora_options user32)
