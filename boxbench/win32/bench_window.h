// The window of BoxBench: the simulated box, its faults, what it keeps, and the calls to it.
#pragma once

#include "platform/win32/windows_headers.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "boxbench/call_log.h"
#include "boxbench/controls.h"
#include "boxbench/fault_form.h"
#include "boxbench/models.h"
#include "boxbench/plug_switches.h"
#include "boxbench/property_list.h"
#include "platform/win32/gdi_cache.h"
#include "platform/win32/look.h"
#include "simulator/mapped_box.h"

namespace panelora::boxbench {

class BenchWindow {
 public:
  // `theLogFile` is where the log is saved without asking; empty = ask.
  BenchWindow(HINSTANCE theInstance, std::filesystem::path theLogFile);
  ~BenchWindow();
  BenchWindow(const BenchWindow&) = delete;
  BenchWindow& operator=(const BenchWindow&) = delete;

  // False when there can be no window.
  bool Make(int show);
  // Until the window is closed.
  int Run();

 private:
  using Id = control::Id;

  static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam,
                                    LPARAM lParam) noexcept;
  static LRESULT CALLBACK ButtonProcedure(HWND button, UINT message, WPARAM wParam, LPARAM lParam,
                                          UINT_PTR id, DWORD_PTR self) noexcept;
  LRESULT Handle(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
  bool TakeKeyboard(const MSG& message);

  // The window itself: bench_window.cpp.
  void Tick();
  bool TakeCalls();  // false when the box is busy
  bool Poll();       // false when there is no box, or it is busy
  void ShowBusy();
  void OpenDesk();
  void TryAgain();
  void Command(int id, int code);
  void Confirm();  // Enter
  void Cancel();   // Esc
  void Find();
  void Say(const std::string& text);
  void Say(const std::wstring& text);
  void Refuse(const std::string& text);  // what was typed stays

  // Its controls: bench_controls.cpp.
  void MakeControls();
  void EnableControls();  // those that are shown and of use now
  bool IsOfUse(int id) const;
  void FillChoices();
  HWND Control(Id id) const;
  std::string Text(Id id) const;
  void SetText(Id id, const std::string& text);  // only when it is another one
  bool IsChecked(Id id) const;
  void Check(Id id, bool checked);
  int Chosen(Id id) const;
  void ChooseItem(Id id, int index);
  bool HasFocus(Id id) const;
  void Focus(Id id);
  void FocusFirst();

  // Where they stand: bench_layout.cpp.
  void UseDpi(int newDpi);
  void Layout();
  void ShowSections();
  int Scaled(int value) const { return win32::ScaleForDpi(value, dpi); }

  // What is drawn here: bench_painting.cpp.
  void UseSystemLook();
  void Paint();
  void DrawHead();  // anew
  void DrawButton(const DRAWITEMSTRUCT& item);
  LRESULT ColourOf(HDC context, HWND child);
  LRESULT DrawRow(const NMLVCUSTOMDRAW& drawing, LPARAM lParam);

  // The box and its faults: bench_box.cpp.
  void ShowBox(const simulator::BoxControl::Look& look);
  void ShowConnection(const Connection& connection);  // in the words of the title
  void ShowForm(const BoxForm& form);
  void ChooseType(std::uint8_t type);
  void AddType(const Model& model);
  BoxForm ReadForm() const;
  void FormChanged();
  void SwitchPlug();
  void Cut();
  void Become();
  void Reset();
  void SetInput();
  void ShowFaults(const simulator::Faults& faults);
  FaultForm ReadFaults() const;
  void FaultsChanged();
  void NoFaults();
  void ShowFaultsInWords();
  void FillOnly();

  // The lists: bench_lists.cpp.
  void MakeColumns();
  void ScaleColumns();
  void FillColumns(int width);
  void ShowProperties();
  void SelectEdited();
  void ShowLog();
  bool IsLogAtEnd() const;
  void ShowNewestCall();
  LRESULT Notify(const NMHDR& header, LPARAM lParam);
  void GiveText(NMLVDISPINFOA& wanted);
  void KeyInList(Id list, UINT key);
  void ShowValue();
  void OfferValues(const PropertyRow& row);
  void EditValue();
  void SetValue();
  void Store(Address at, std::span<const std::uint8_t> bytes);
  void ResetValue();
  void FilterLog();
  void Pause();
  void Clear();
  void Copy();
  void CopyProperty();
  bool PutOnClipboard(const std::string& text);  // says why not
  std::filesystem::path AskForLogFile();         // empty = none was chosen
  void Save();
  std::vector<std::size_t> SelectedCalls() const;

  HINSTANCE instance;
  std::filesystem::path logFile;
  std::string deskName;
  win32::GdiCache gdi;
  win32::Look look{};
  HWND window = nullptr;
  HWND hot = nullptr;  // the button under the mouse
  HACCEL keys = nullptr;
  int dpi = 96;
  HFONT font = nullptr;
  int lineHeight = 0;  // of the font, in pixels
  HFONT boldFont = nullptr;
  HFONT titleFont = nullptr;
  bool showsFaults = false;  // on the left, instead of the box
  bool isFilling = false;    // what changes in the controls is no operator's doing
  std::int64_t toLocal = 0;  // microseconds from UTC to the operator's clock

  std::unique_ptr<simulator::MappedBox> desk;
  std::unique_ptr<simulator::BoxControl> box;
  std::optional<WantedBox> shownBox;
  PlugSwitches switches;
  bool isThere = false;
  simulator::Faults shownFaults{};
  std::vector<Address> onlyPlaces;
  std::vector<std::uint8_t> listedTypes;  // of the choices of kType

  PropertyList properties;
  std::optional<Address> edited;
  std::size_t flashing = 0;
  CallLog log;
  std::vector<simulator::Entry> writes;  // since the properties were looked at
  unsigned looks = 0;
  std::uint64_t nextLook = 0;  // of the timer, in ms of the box's clock
  std::uint64_t listedDropped = 0;
};

}  // namespace panelora::boxbench
