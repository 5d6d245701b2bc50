// The guide that lies beside the program.
#pragma once

#include <string>

namespace panelora::win32 {

// Where the program's file lies, with a backslash at its end.
std::wstring ProgramFolder();

// The first page of the guide in a folder; empty when it is not there.
std::wstring GuideBeside(const std::wstring& folder);

// Opens a file as if the operator had opened it. False when the system can't.
bool ShowFile(const std::wstring& file);

}  // namespace panelora::win32
