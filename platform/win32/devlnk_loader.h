// Finds DEVLNK.dll beside the program.
#pragma once

#include "platform/win32/windows_headers.h"

#include <optional>
#include <string>
#include <utility>

#include "device/devlnk_library.h"
#include "ui/toolkit.h"

namespace panelora::win32 {

// From now on a library that is loaded by its name alone comes from the system's folders or the
// program's own, never from the working folder or the search path. To be called before anything
// else; nothing on systems that are too old for it.
void UseSafeLibraryFolders();

// The full name of DEVLNK.dll beside the program.
std::wstring DevlnkPath();

// The library of that name and no other. While it is missing, of the wrong kind or lacks an export,
// a line on the debugger's output stream says which, once for as long as that is so.
class DevlnkFinder {
 public:
  DevlnkFinder(ui::Toolkit& theToolkit, std::wstring thePath)
      : toolkit(theToolkit), path(std::move(thePath)) {}

  // Loads the library when it can be used; it stays loaded until the process ends.
  DevlnkLibrary::Resolver Find();

 private:
  // What changes when another file takes a file's place: its size and when it was written.
  using FileStamp = std::pair<ULONGLONG, ULONGLONG>;

  std::optional<FileStamp> Stamp() const;
  DevlnkLibrary::Resolver Nothing(const std::string& reason);

  ui::Toolkit& toolkit;
  std::wstring path;
  std::optional<FileStamp> hopeless;  // this file was tried and can never do
  std::string lastReason;
};

}  // namespace panelora::win32
