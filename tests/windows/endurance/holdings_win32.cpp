// On real windows: the windows as the system lists them, and what the program's own calls made and
// did not give back. The calls are counted on their way out of the program, in its import table;
// the system's own count of GDI objects stands beside it.
#include <windows.h>

#include <commctrl.h>
#include <psapi.h>

#include <array>
#include <cstdlib>
#include <iostream>
#include <set>
#include <string_view>
#include <utility>

#include "tests/support/holdings.h"
#include "tests/support/windows_of.h"

namespace panelora::testing {

namespace {

std::map<HGDIOBJ, const char*> gdiObjects;  // by kind
std::set<HMENU> menus;
std::set<HANDLE> icons;
std::set<std::pair<HWND, UINT_PTR>> timers;

// What counts the calls of one imported function: it goes through with the same arguments, and its
// result is noted with them.
template <class Noted, class Function>
struct Counted;
template <class Noted, class Result, class... Arguments>
struct Counted<Noted, Result WINAPI(Arguments...)> {
  static inline Result(WINAPI* real)(Arguments...) = nullptr;
  static Result WINAPI Call(Arguments... arguments) {
    const Result result = real(arguments...);
    Noted::Note(result, arguments...);
    return result;
  }
};

struct MakesFont {
  static void Note(HFONT made, auto...) { gdiObjects[made] = "fonts"; }
};
struct MakesBrush {
  static void Note(HBRUSH made, auto...) { gdiObjects[made] = "brushes"; }
};
struct MakesPen {
  static void Note(HPEN made, auto...) { gdiObjects[made] = "pens"; }
};
struct MakesBitmap {
  static void Note(HBITMAP made, auto...) { gdiObjects[made] = "bitmaps"; }
};
struct MakesRegion {
  static void Note(HRGN made, auto...) { gdiObjects[made] = "regions"; }
};
struct MakesContext {
  static void Note(HDC made, auto...) { gdiObjects[made] = "device contexts"; }
};
struct MakesImage {
  static void Note(HANDLE made, HINSTANCE, LPCSTR, UINT type, auto...) {
    if (type == IMAGE_BITMAP) {
      gdiObjects[made] = "bitmaps";
    } else {
      icons.insert(made);
    }
  }
};
struct MakesMenu {
  static void Note(HMENU made, auto...) { menus.insert(made); }
};
struct MakesTimer {
  static void Note(UINT_PTR made, HWND window, UINT_PTR id, auto...) {
    if (made != 0) timers.insert({window, id});
  }
};
struct DropsObject {
  static void Note(BOOL dropped, auto object) {
    if (dropped) gdiObjects.erase(object);
  }
};
struct ReleasesContext {
  static void Note(int released, HWND, HDC context) {
    if (released != 0) gdiObjects.erase(context);
  }
};
struct EndsPainting {
  static void Note(BOOL, HWND, const PAINTSTRUCT* paint) { gdiObjects.erase(paint->hdc); }
};
struct GivesRegionAway {  // it is the system's then
  static void Note(int given, HWND, HRGN region, BOOL) {
    if (given != 0) gdiObjects.erase(region);
  }
};
struct DropsTimer {
  static void Note(BOOL dropped, HWND window, UINT_PTR id) {
    if (dropped) timers.erase({window, id});
  }
};

struct Import {
  std::string_view name;
  void* counting;
  void** real;
};
template <class Noted, class Function>
Import Counting(std::string_view name, Function*) {
  using Calls = Counted<Noted, Function>;
  return {name, reinterpret_cast<void*>(&Calls::Call), reinterpret_cast<void**>(&Calls::real)};
}

const Import kImports[] = {
    Counting<MakesFont>("CreateFontA", &CreateFontA),
    Counting<MakesBrush>("CreateSolidBrush", &CreateSolidBrush),
    Counting<MakesPen>("CreatePen", &CreatePen),
    Counting<MakesBitmap>("CreateCompatibleBitmap", &CreateCompatibleBitmap),
    Counting<MakesBitmap>("CreateDIBSection", &CreateDIBSection),
    Counting<MakesRegion>("CreateRectRgn", &CreateRectRgn),
    Counting<MakesRegion>("CreateRoundRectRgn", &CreateRoundRectRgn),
    Counting<MakesRegion>("CreateRectRgnIndirect", &CreateRectRgnIndirect),
    Counting<MakesContext>("CreateCompatibleDC", &CreateCompatibleDC),
    Counting<MakesContext>("GetDC", &GetDC),
    Counting<MakesContext>("BeginPaint", &BeginPaint),
    Counting<MakesImage>("LoadImageA", &LoadImageA),
    Counting<MakesMenu>("GetSystemMenu", &GetSystemMenu),
    Counting<MakesTimer>("SetTimer", &SetTimer),
    Counting<DropsObject>("DeleteObject", &DeleteObject),
    Counting<DropsObject>("DeleteDC", &DeleteDC),
    Counting<ReleasesContext>("ReleaseDC", &ReleaseDC),
    Counting<EndsPainting>("EndPaint", &EndPaint),
    Counting<GivesRegionAway>("SetWindowRgn", &SetWindowRgn),
    Counting<DropsTimer>("KillTimer", &KillTimer),
};

// Names that make something which must be given back. Windows are counted where they stand, and
// menus made with them go with them.
bool MakesSomething(std::string_view name) {
  static constexpr std::string_view kStarts[] = {
      "Create",      "ExtCreate", "Load",          "Copy",     "GetDC",
      "GetWindowDC", "Begin",     "GetSystemMenu", "SetTimer", "SetCoalescableTimer"};
  static constexpr std::string_view kNothingToGiveBack[] = {"CreateDialogParamA", "CreateWindowExA",
                                                            "LoadStringA", "LoadCursorA"};
  for (const std::string_view harmless : kNothingToGiveBack) {
    if (name == harmless) return false;
  }
  for (const std::string_view start : kStarts) {
    if (name.starts_with(start)) return true;
  }
  return false;
}

void Redirect(std::string_view name, IMAGE_THUNK_DATA& entry) {
  for (const Import& import : kImports) {
    if (import.name != name) continue;
    DWORD before = 0;
    VirtualProtect(&entry, sizeof entry, PAGE_READWRITE, &before);
    *import.real = reinterpret_cast<void*>(entry.u1.Function);
    entry.u1.Function = reinterpret_cast<ULONG_PTR>(import.counting);
    VirtualProtect(&entry, sizeof entry, before, &before);
    return;
  }
  if (MakesSomething(name)) {
    std::cerr << "holdings_win32.cpp does not count what " << name << " makes\n";
    std::abort();
  }
}

// Puts the counting functions into the import table of the program.
void StartCounting() {
  char* const base = reinterpret_cast<char*>(GetModuleHandleA(nullptr));
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const DWORD imports =
      nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  for (const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports);
       library->Name != 0; ++library) {
    const std::string file = base + library->Name;
    if (lstrcmpiA(file.c_str(), "gdi32.dll") != 0 && lstrcmpiA(file.c_str(), "user32.dll") != 0) {
      continue;
    }
    const auto* name =
        reinterpret_cast<const IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
    auto* entry = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++entry) {
      if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
      const auto* named =
          reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
      Redirect(reinterpret_cast<const char*>(named->Name), *entry);
    }
  }
}

BOOL CALLBACK CountChild(HWND, LPARAM count) {
  ++*reinterpret_cast<long*>(count);
  return TRUE;
}

BOOL CALLBACK CountWindow(HWND window, LPARAM count) {
  EnumChildWindows(window, CountChild, count);
  return CountChild(window, count);
}

// The GDI objects of the process, whoever made them. Wine counts none for GetGuiResources, but
// keeps them where Windows once did, in a table that the process can read; a 32-bit one finds none.
// 0 = it can't be told.
long GdiObjectsOfTheProcess() {
  const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
  if (counted != 0) return static_cast<long>(counted);
  struct Entry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t generation;
    std::uint8_t type;  // 0 = free
    std::uint8_t flags;
    std::uint64_t user;
  };
  constexpr int kEntries = 0x4000;
  constexpr std::size_t kPlace = sizeof(void*) == 8 ? 0xF8 : 0x94;
  const FARPROC getBlock = GetProcAddress(GetModuleHandleA("ntdll.dll"), "RtlGetCurrentPeb");
  if (getBlock == nullptr) return 0;
  const char* process =
      reinterpret_cast<const char*(WINAPI*)()>(reinterpret_cast<void*>(getBlock))();
  const Entry* table = *reinterpret_cast<const Entry* const*>(process + kPlace);
  long count = 0;
  for (int i = 0; table != nullptr && i < kEntries; ++i) count += table[i].type != 0 ? 1 : 0;
  return count;
}

}  // namespace

Holdings CountHoldings(Desk& desk) {
  static bool counting = false;
  if (!counting) StartCounting();
  counting = true;
  Holdings held;
  EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&held["windows"]));
  gdiObjects.erase(nullptr);
  for (const auto& [object, kind] : gdiObjects) ++held[kind];
  std::erase_if(menus, [](HMENU menu) { return !IsMenu(menu); });
  std::erase_if(timers, [](const auto& timer) { return !IsWindow(timer.first); });
  held["menus"] = static_cast<long>(menus.size());
  held["icons"] = static_cast<long>(icons.size());
  held["timers"] = static_cast<long>(timers.size());
  const auto& toolkit = WindowsOf(desk);
  held["timers left running"] = toolkit.timersLeftRunning;
  held["GDI objects of the process"] = GdiObjectsOfTheProcess();
  held["user objects of the process"] =
      static_cast<long>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS));
  return held;
}

MemoryUse MeasureMemory() {
  PROCESS_MEMORY_COUNTERS counters{};
  counters.cb = sizeof counters;
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return {counters.WorkingSetSize, 0.01};
}

}  // namespace panelora::testing
