// The system's accessibility interface, as a screen reader uses it.
#pragma once

#include "platform/win32/windows_headers.h"

// oleacc.h needs the one before it.
// clang-format off
#include <ole2.h>
#include <oleacc.h>
// clang-format on

#include <memory>
#include <string>

namespace panelora::testing {

struct Releases {
  void operator()(IUnknown* object) const { object->Release(); }
};
using AccessiblePtr = std::unique_ptr<IAccessible, Releases>;

// Null when there is none.
inline AccessiblePtr AccessibleOf(HWND window) {
  void* object = nullptr;
  AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                             &object);
  return AccessiblePtr(static_cast<IAccessible*>(object));
}

inline VARIANT Self() {
  VARIANT self{};
  self.vt = VT_I4;
  self.lVal = CHILDID_SELF;
  return self;
}

using TextGetter = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, BSTR*);

// Empty when there is none.
inline std::string TextFrom(IAccessible& object, TextGetter get) {
  BSTR told = nullptr;
  if ((object.*get)(Self(), &told) != S_OK || told == nullptr) return "";
  char text[512] = "";
  WideCharToMultiByte(CP_ACP, 0, told, -1, text, sizeof text, nullptr, nullptr);
  SysFreeString(told);
  return text;
}

}  // namespace panelora::testing
