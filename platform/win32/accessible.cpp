#include "platform/win32/accessible.h"

// oleacc.h needs the one before it.
// clang-format off
#include <ole2.h>
#include <oleacc.h>
// clang-format on

#include <algorithm>
#include <vector>

#include "platform/win32/system_library.h"
#include "platform/win32/tab_order.h"

namespace panelora::win32 {

namespace {

// What is needed of the system's libraries: the program itself does without them.
struct Library {
  decltype(&::CreateStdAccessibleObject) createStandard = nullptr;
  decltype(&::LresultFromObject) resultFrom = nullptr;
  decltype(&::SysAllocStringLen) allocText = nullptr;

  bool IsWhole() const {
    return createStandard != nullptr && resultFrom != nullptr && allocText != nullptr;
  }
};

// Questions from other processes come as calls in the messages of this thread.
Library Load() {
  Library library;
  const HMODULE oleacc = LoadFromSystem(L"oleacc.dll");
  library.createStandard =
      Bind<decltype(library.createStandard)>(oleacc, "CreateStdAccessibleObject");
  library.resultFrom = Bind<decltype(library.resultFrom)>(oleacc, "LresultFromObject");
  library.allocText =
      Bind<decltype(library.allocText)>(LoadFromSystem(L"oleaut32.dll"), "SysAllocStringLen");
  const auto initialise =
      Bind<decltype(&::CoInitializeEx)>(LoadFromSystem(L"ole32.dll"), "CoInitializeEx");
  if (initialise != nullptr) initialise(nullptr, COINIT_APARTMENTTHREADED);
  return library;
}

const Library& System() {
  static const Library library = Load();
  return library;
}

bool IsSelf(const VARIANT& child) { return child.vt == VT_I4 && child.lVal == CHILDID_SELF; }

HRESULT TellText(const std::string& text, BSTR* told) {
  if (told == nullptr) return E_POINTER;
  *told = nullptr;
  if (text.empty()) return S_FALSE;
  const int bytes = static_cast<int>(text.size());
  const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, nullptr, 0);
  *told = System().allocText(nullptr, static_cast<UINT>(size));
  if (*told == nullptr) return E_OUTOFMEMORY;
  MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, *told, size);
  return S_OK;
}

HRESULT TellNumber(long number, VARIANT* told) {
  if (told == nullptr) return E_POINTER;
  told->vt = VT_I4;
  told->lVal = number;
  return S_OK;
}

// Presses a button as the mouse does, so that whatever a press means it gets. It is not awaited: it
// may open a dialog.
HRESULT Press(HWND button) {
  const bool takesInput = IsUsable(button) && IsWindowEnabled(GetAncestor(button, GA_ROOT));
  if (!takesInput) return DISP_E_MEMBERNOTFOUND;
  RECT place;
  GetClientRect(button, &place);
  const LPARAM middle = MAKELPARAM(place.right / 2, place.bottom / 2);
  PostMessageA(button, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  PostMessageA(button, WM_LBUTTONUP, 0, middle);
  return S_OK;
}

// Lives as long as somebody holds it, on the thread of the windows; once its window is gone it says
// so. Parts of a control, such as the list of a combo box, are the system's.
class Accessible final : public IAccessible, public IOleWindow {
 public:
  Accessible(HWND theWindow, IAccessible* theStandard, Teller theTeller)
      : window(theWindow), standard(theStandard), teller(theTeller) {
    living.push_back(this);
  }
  ~Accessible() {
    std::erase(living, this);
    standard->Release();
  }
  Accessible(const Accessible&) = delete;
  Accessible& operator=(const Accessible&) = delete;

  static void Forget(HWND gone) {
    for (Accessible* each : living) {
      if (each->window == gone) each->window = nullptr;
    }
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (id == __uuidof(IUnknown) || id == __uuidof(IDispatch) || id == __uuidof(IAccessible)) {
      *out = static_cast<IAccessible*>(this);
    } else if (id == __uuidof(IOleWindow)) {
      *out = static_cast<IOleWindow*>(this);
    } else {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    return static_cast<ULONG>(InterlockedIncrement(&references));
  }
  ULONG STDMETHODCALLTYPE Release() override {
    const LONG left = InterlockedDecrement(&references);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    return standard->GetTypeInfoCount(count);
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT which, LCID locale, ITypeInfo** info) override {
    return standard->GetTypeInfo(which, locale, info);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override {
    return standard->GetIDsOfNames(id, names, count, locale, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID locale, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                   UINT* wrong) override {
    return standard->Invoke(member, id, locale, flags, parameters, result, exception, wrong);
  }

  HRESULT STDMETHODCALLTYPE GetWindow(HWND* its) override {
    if (its == nullptr) return E_POINTER;
    *its = window;
    return window != nullptr ? S_OK : kGone;
  }
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

  HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
    if (!IsSelf(child)) return Standard(&IAccessible::get_accName, child, name);
    return Tell([&](const Told& told) { return TellText(told.name, name); });
  }
  HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
    if (!IsSelf(child)) return Standard(&IAccessible::get_accValue, child, value);
    return Tell([&](const Told& told) { return TellText(told.value, value); });
  }
  HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override {
    if (!IsSelf(child)) return Standard(&IAccessible::get_accDescription, child, description);
    return Tell([&](const Told& told) { return TellText(told.description, description); });
  }
  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
    if (!IsSelf(child)) return Standard(&IAccessible::get_accRole, child, role);
    return Tell([&](const Told& told) { return TellNumber(told.role, role); });
  }
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
    const HRESULT result = Standard(&IAccessible::get_accState, child, state);
    if (!IsSelf(child) || result == kGone) return result;
    const bool known = SUCCEEDED(result) && state->vt == VT_I4;
    const long systems = known ? state->lVal : 0;
    return Tell([&](const Told& told) { return TellNumber(systems | told.state, state); });
  }
  HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
    if (!IsSelf(child)) return Standard(&IAccessible::get_accDefaultAction, child, action);
    return Tell([&](const Told& told) {
      return told.presses ? TellText("Press", action)
                          : Standard(&IAccessible::get_accDefaultAction, child, action);
    });
  }
  HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
    if (!IsSelf(child)) return Standard(&IAccessible::accDoDefaultAction, child);
    return Tell([&](const Told& told) {
      return told.presses ? Press(window) : Standard(&IAccessible::accDoDefaultAction, child);
    });
  }

  HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
    return Standard(&IAccessible::get_accParent, parent);
  }
  HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
    return Standard(&IAccessible::get_accChildCount, count);
  }
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override {
    return Standard(&IAccessible::get_accChild, child, object);
  }
  HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* help) override {
    return Standard(&IAccessible::get_accHelp, child, help);
  }
  HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
    return Standard(&IAccessible::get_accHelpTopic, file, child, topic);
  }
  HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* keys) override {
    return Standard(&IAccessible::get_accKeyboardShortcut, child, keys);
  }
  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override {
    return Standard(&IAccessible::get_accFocus, child);
  }
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override {
    return Standard(&IAccessible::get_accSelection, children);
  }
  HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override {
    return Standard(&IAccessible::accSelect, flags, child);
  }
  HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                        VARIANT child) override {
    return Standard(&IAccessible::accLocation, left, top, width, height, child);
  }
  HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) override {
    return Standard(&IAccessible::accNavigate, direction, start, end);
  }
  HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override {
    return Standard(&IAccessible::accHitTest, left, top, child);
  }
  HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override {
    return Standard(&IAccessible::put_accValue, child, value);
  }

 private:
  static constexpr HRESULT kGone = CO_E_OBJNOTCONNECTED;
  static inline std::vector<Accessible*> living;

  // Nothing may leave it: what called is the system, which knows no exceptions.
  template <class Answer>
  HRESULT Tell(const Answer& answer) noexcept {
    try {
      const std::optional<Told> told = window != nullptr ? teller(window) : std::nullopt;
      return told ? answer(*told) : kGone;
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }

  template <class... Parameters, class... Arguments>
  HRESULT Standard(HRESULT (STDMETHODCALLTYPE IAccessible::*method)(Parameters...),
                   Arguments... arguments) {
    return window != nullptr ? (standard->*method)(arguments...) : kGone;
  }

  LONG references = 1;
  HWND window;
  IAccessible* standard;
  Teller teller;
};

}  // namespace

LRESULT AnswerAccessible(HWND control, WPARAM wParam, Teller teller) noexcept try {
  const Library& system = System();
  if (!system.IsWhole()) return 0;
  void* standard = nullptr;
  if (FAILED(system.createStandard(control, OBJID_CLIENT, __uuidof(IAccessible), &standard)))
    return 0;
  auto* const answer = new Accessible(control, static_cast<IAccessible*>(standard), teller);
  const LRESULT result =
      system.resultFrom(__uuidof(IAccessible), wParam, static_cast<IAccessible*>(answer));
  answer->Release();
  return result;
} catch (...) {
  return 0;
}

void ForgetAccessible(HWND control) noexcept { Accessible::Forget(control); }

}  // namespace panelora::win32
