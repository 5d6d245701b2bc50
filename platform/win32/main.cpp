// The program: the main window over the real toolkit and the real library.
#include "platform/win32/windows_headers.h"

#include <cstdlib>
#include <ctime>

#include "app/main_dlg.h"
#include "platform/win32/devlnk_loader.h"
#include "platform/win32/win32_toolkit.h"

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show) {
  using namespace panelora;
  win32::UseSafeLibraryFolders();
  std::srand(static_cast<unsigned>(std::time(nullptr)));
  win32::Win32Toolkit toolkit(instance);
  win32::DevlnkFinder finder(toolkit, win32::DevlnkPath());
  DevlnkLibrary library([&finder] { return finder.Find(); });
  CMainDlg mainWindow(library, toolkit);
  if (!mainWindow.Init()) {
    toolkit.DebugOutput("Panelora: a window can't be made.\n");
    return 1;
  }
  ShowWindow(static_cast<win32::Win32Dialog&>(mainWindow.Window()).Handle(), show);
  mainWindow.TakeKeyboard();
  toolkit.RunUntilClosed(mainWindow.Window());
  return 0;
}
