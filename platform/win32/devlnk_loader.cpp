#include "platform/win32/devlnk_loader.h"

#include "platform/win32/windows_headers.h"

namespace panelora::win32 {

namespace {

#ifdef _WIN64
constexpr WORD kOtherMachine = IMAGE_FILE_MACHINE_I386;
constexpr char kWrongBitness[] =
    "Panelora: DEVLNK.dll beside the program is a 32-bit library; use the 32-bit build of "
    "Panelora.\n";
#else
constexpr WORD kOtherMachine = IMAGE_FILE_MACHINE_AMD64;
constexpr char kWrongBitness[] =
    "Panelora: DEVLNK.dll beside the program is a 64-bit library; use the 64-bit build of "
    "Panelora.\n";
#endif

constexpr char kMissing[] = "Panelora: DEVLNK.dll is not beside the program.\n";
constexpr char kUnusable[] = "Panelora: DEVLNK.dll beside the program can't be loaded.\n";

// The full name of DEVLNK.dll beside the program.
std::wstring LibraryPath() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  const std::size_t slash = path.find_last_of(L"\\/");
  return path.substr(0, slash == std::wstring::npos ? 0 : slash + 1) + L"DEVLNK.dll";
}

// The machine that an image file was built for; 0 when it is no image.
WORD MachineOf(const std::wstring& path) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 0;
  WORD machine = 0;
  IMAGE_DOS_HEADER dos{};
  DWORD read = 0;
  if (ReadFile(file, &dos, sizeof dos, &read, nullptr) && read == sizeof dos &&
      dos.e_magic == IMAGE_DOS_SIGNATURE &&
      SetFilePointer(file, dos.e_lfanew, nullptr, FILE_BEGIN) != INVALID_SET_FILE_POINTER) {
    struct {
      DWORD signature;
      IMAGE_FILE_HEADER header;
    } nt{};
    if (ReadFile(file, &nt, sizeof nt, &read, nullptr) && read == sizeof nt &&
        nt.signature == IMAGE_NT_SIGNATURE) {
      machine = nt.header.Machine;
    }
  }
  CloseHandle(file);
  return machine;
}

}  // namespace

std::unique_ptr<DevlnkLibrary> LoadDevlnk(ui::Toolkit& toolkit) {
  const std::wstring path = LibraryPath();
  if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) {
    toolkit.DebugOutput(kMissing);
    return std::make_unique<DevlnkLibrary>();
  }
  if (MachineOf(path) == kOtherMachine) {
    toolkit.DebugOutput(kWrongBitness);
    return std::make_unique<DevlnkLibrary>();
  }
  // The library stays loaded until the process ends. A missing file of its own must not raise a
  // box.
  const UINT mode = SetErrorMode(SEM_FAILCRITICALERRORS);
  const HMODULE module = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  SetErrorMode(mode);
  if (module == nullptr) {
    toolkit.DebugOutput(kUnusable);
    return std::make_unique<DevlnkLibrary>();
  }
  auto library = std::make_unique<DevlnkLibrary>(
      [module](const char* name) { return reinterpret_cast<void*>(GetProcAddress(module, name)); });
  if (!library->IsUsable()) {
    toolkit.DebugOutput("Panelora: DEVLNK.dll beside the program lacks " +
                        library->MissingExport() + ".\n");
  }
  return library;
}

}  // namespace panelora::win32
