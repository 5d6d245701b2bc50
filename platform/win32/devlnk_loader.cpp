#include "platform/win32/devlnk_loader.h"

#include "platform/win32/guide.h"

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

// A function of the system that older ones lack; null there.
void* KernelFunction(const char* name) {
  return reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name));
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

// The system's folders and that of the library, where the system can be told so.
HMODULE Load(const std::wstring& path) {
  const bool canTell = KernelFunction("AddDllDirectory") != nullptr;
  const DWORD folders = canTell ? LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32
                                : LOAD_WITH_ALTERED_SEARCH_PATH;
  // A missing file of the library's own must not raise a box; what it makes of the mode is undone.
  const UINT mode = GetErrorMode();
  SetErrorMode(mode | SEM_FAILCRITICALERRORS);
  const HMODULE module = LoadLibraryExW(path.c_str(), nullptr, folders);
  SetErrorMode(mode);
  return module;
}

}  // namespace

void UseSafeLibraryFolders() {
  using SetFolders = BOOL(WINAPI*)(DWORD);
  const auto set = reinterpret_cast<SetFolders>(KernelFunction("SetDefaultDllDirectories"));
  if (set != nullptr) set(LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
}

std::wstring DevlnkPath() { return ProgramFolder() + L"DEVLNK.dll"; }

// None when there is no such file.
std::optional<DevlnkFinder::FileStamp> DevlnkFinder::Stamp() const {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) return std::nullopt;
  const auto join = [](DWORD high, DWORD low) { return ULONGLONG{high} << 32 | low; };
  return FileStamp{join(data.nFileSizeHigh, data.nFileSizeLow),
                   join(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime)};
}

DevlnkLibrary::Resolver DevlnkFinder::Nothing(const std::string& reason) {
  if (reason != lastReason) toolkit.DebugOutput(reason);
  lastReason = reason;
  return {};
}

DevlnkLibrary::Resolver DevlnkFinder::Find() {
  const std::optional<FileStamp> stamp = Stamp();
  if (!stamp) return Nothing(kMissing);
  if (stamp == hopeless) return {};
  if (MachineOf(path) == kOtherMachine) {
    hopeless = stamp;
    return Nothing(kWrongBitness);
  }
  // It may still be on its way here, or wait for a file of its own: it is tried again.
  const HMODULE module = Load(path);
  if (module == nullptr) return Nothing(kUnusable);
  DevlnkLibrary::Resolver resolve = [module](const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(module, name));
  };
  const DevlnkLibrary library(resolve);
  if (library.IsUsable()) return resolve;
  FreeLibrary(module);  // so that a whole one can take its place
  hopeless = stamp;
  return Nothing("Panelora: DEVLNK.dll beside the program lacks " + library.MissingExport() +
                 ".\n");
}

}  // namespace panelora::win32
