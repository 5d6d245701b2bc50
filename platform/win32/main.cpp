// The program: the main window over the real toolkit and the real library.
#include "platform/win32/windows_headers.h"

#include <cstdlib>
#include <ctime>

#include "app/main_dlg.h"
#include "platform/win32/devlnk_loader.h"
#include "platform/win32/win32_toolkit.h"

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  using namespace panelora;
  std::srand(static_cast<unsigned>(std::time(nullptr)));
  win32::Win32Toolkit toolkit(instance);
  const auto library = win32::LoadDevlnk(toolkit);
  CMainDlg mainWindow(*library, toolkit);
  mainWindow.Init();
  mainWindow.Show();
  toolkit.RunUntilClosed(mainWindow.Window());
  return 0;
}
