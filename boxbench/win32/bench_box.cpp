// The left side of the window: the box and its faults.
#include <algorithm>

#include "base/text.h"
#include "boxbench/input_signal.h"
#include "boxbench/win32/bench_window.h"
#include "catalogue/describe.h"
#include "catalogue/information.h"

namespace panelora::boxbench {

namespace {

using namespace control;  // NOLINT: nearly every line names some

constexpr std::uint32_t kCutTime = 10000;  // ms

std::string TextOf(const Identity& identity, std::uint32_t firmware) {
  std::string text = Format("Brand %d", identity.brandCode);
  if (identity.subModel != 0) text += Format(", sub-model %d", identity.subModel);
  if (identity.inputDipFlag == 1) text += ", input DIP";
  if (identity.outputDipFlag == 1) text += ", output DIP";
  return text + ", firmware " + information::FirmwareText(firmware);
}

}  // namespace

void BenchWindow::ShowBox(const simulator::BoxControl::Look& seen) {
  const Identity& identity = seen.box.identity;
  switches.See(seen.box.present);
  Check(kPower, switches.power);
  Check(kCable, switches.cable);
  const Connection connection = ConnectionOf(seen, switches, desk->Milliseconds());
  ShowConnection({connection.isThere, Format("Type %d: ", identity.boxType) + connection.text});
  SetText(kSubtitle, TextOf(identity, seen.box.firmware));
  const std::string calls = CountText(seen.last, "call so far", "calls so far");
  const std::string count = deskName == "desk" ? calls : deskName + ": " + calls;
  char before[160] = "";
  const auto length = SendMessageA(Control(kStatus), SB_GETTEXTLENGTHA, 1, 0) & 0xFFFF;
  if (length < static_cast<LRESULT>(sizeof before)) {
    SendMessageA(Control(kStatus), SB_GETTEXTA, 1, reinterpret_cast<LPARAM>(before));
  }
  if (count != before) {
    SendMessageA(Control(kStatus), SB_SETTEXTA, 1, reinterpret_cast<LPARAM>(count.c_str()));
  }
  const bool isOther =
      !shownBox || shownBox->identity != identity || shownBox->firmware != seen.box.firmware;
  if (isOther) {
    shownBox = WantedBox{identity, seen.box.firmware};
    ShowForm(FormOf(identity, seen.box.firmware));
  }
  if (isOther) DrawHead();
}

void BenchWindow::ShowConnection(const Connection& connection) {
  SetText(kTitle, connection.text);
  if (isThere == connection.isThere) return;
  isThere = connection.isThere;
  DrawHead();
}

void BenchWindow::ShowForm(const BoxForm& form) {
  isFilling = true;
  ChooseType(form.type);
  SetText(kBrand, form.brand);
  SetText(kSubModel, form.subModel);
  Check(kInputDip, form.inputDip);
  Check(kOutputDip, form.outputDip);
  SetText(kFirmware, form.firmware);
  isFilling = false;
  FormChanged();
}

// A type that is not of the family joins the list.
void BenchWindow::ChooseType(std::uint8_t type) {
  const auto found = std::find(listedTypes.begin(), listedTypes.end(), type);
  const auto index = found - listedTypes.begin();
  if (found == listedTypes.end()) AddType({type, ModelText(type)});
  ChooseItem(kType, static_cast<int>(index));
}

void BenchWindow::AddType(const Model& model) {
  SendMessageA(Control(kType), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(model.text.c_str()));
  listedTypes.push_back(model.type);
}

BoxForm BenchWindow::ReadForm() const {
  const int chosen = Chosen(kType);
  const std::uint8_t type =
      chosen >= 0 ? listedTypes[static_cast<std::size_t>(chosen)] : std::uint8_t{0};
  return {
      type,           Text(kBrand), Text(kSubModel), IsChecked(kInputDip), IsChecked(kOutputDip),
      Text(kFirmware)};
}

void BenchWindow::FormChanged() {
  const BoxForm form = ReadForm();
  SetText(kFirmwareHint, FirmwareHint(form.firmware));
  const auto brand = ParseWhole(form.brand, 255);
  SetText(kPages, PagesText({form.type, static_cast<std::uint8_t>(brand.value_or(0)), 0, 0, 0}));
}

void BenchWindow::SwitchPlug() {
  switches = {IsChecked(kPower), IsChecked(kCable)};
  if (!box->Plug(switches.IsPlugged())) return Refuse(kBusy);
  Say(switches.IsPlugged() ? "The box is plugged in."
      : switches.power     ? "The cable is out: the panel finds no box."
                           : "The power is off: the panel finds no box.");
  Poll();
}

void BenchWindow::Cut() {
  if (!box->Cut(kCutTime)) return Refuse(kBusy);
  Say("The cable is cut for 10 s.");
  Poll();
}

void BenchWindow::Become() {
  const auto wanted = WantedBoxOf(ReadForm());
  if (!wanted.value) return Refuse(wanted.problem);
  if (!box->Become(wanted.value->identity, wanted.value->firmware)) return Refuse(kBusy);
  Say(Format("The box is of type %d now, with its defaults.", wanted.value->identity.boxType));
  Poll();
}

void BenchWindow::Reset() {
  if (!box->Reset()) return Refuse(kBusy);
  Say("The box has its defaults again.");
  Poll();
}

void BenchWindow::SetInput() {
  const auto signal = ParseSignal(Text(kSignal));
  if (!signal.value) return Refuse(signal.problem);
  const SignalResult result = SetSignal(*box, *signal.value);
  Say(result.text);
  if (!result.isSet) MessageBeep(MB_ICONWARNING);
  Poll();
}

void BenchWindow::FillOnly() {
  const FaultForm before = ReadFaults();
  isFilling = true;
  const HWND list = Control(kOnly);
  SendMessageA(list, CB_RESETCONTENT, 0, 0);
  SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>("Any property"));
  onlyPlaces.clear();
  int chosen = 0;
  const auto add = [&](const Address& at, const std::string& text) {
    SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    onlyPlaces.push_back(at);
    if (before.only && IsSamePlace(*before.only, at)) chosen = static_cast<int>(onlyPlaces.size());
  };
  for (const PropertyRow& row : properties.All()) add(row.at, row.number + " - " + row.name);
  if (before.only && chosen == 0) add(*before.only, TextOf(*before.only));
  ChooseItem(kOnly, chosen);
  isFilling = false;
}

FaultForm BenchWindow::ReadFaults() const {
  FaultForm form;
  form.how = std::max(Chosen(kHow), 0);
  form.nth = Text(kNth);
  form.reads = IsChecked(kReads);
  form.writes = IsChecked(kWrites);
  form.opens = IsChecked(kOpens);
  const int only = Chosen(kOnly);
  if (only > 0 && only <= static_cast<int>(onlyPlaces.size())) {
    form.only = onlyPlaces[static_cast<std::size_t>(only) - 1];
  }
  form.answer = std::max(Chosen(kAnswer), 0);
  form.result = Text(kResult);
  form.latency = static_cast<std::uint32_t>(SendMessageA(Control(kLatency), TBM_GETPOS, 0, 0));
  form.vanishes = IsChecked(kVanish);
  form.fills = IsChecked(kFill);
  return form;
}

// Those of the box, where another program or the box itself changed them.
void BenchWindow::ShowFaults(const simulator::Faults& faults) {
  const bool isFirst = Chosen(kHow) < 0;
  if (!isFirst && IsSameChoice(faults, shownFaults)) return;
  const FaultForm form = FormOf(faults, isFirst ? FaultForm{} : ReadFaults());
  shownFaults = faults;
  isFilling = true;
  ChooseItem(kHow, form.how);
  SetText(kNth, form.nth);
  Check(kReads, form.reads);
  Check(kWrites, form.writes);
  Check(kOpens, form.opens);
  int only = 0;
  for (std::size_t i = 0; i < onlyPlaces.size(); ++i) {
    if (form.only && IsSamePlace(*form.only, onlyPlaces[i])) only = static_cast<int>(i) + 1;
  }
  if (form.only && only == 0) {
    const std::string text = TextOf(*form.only);
    SendMessageA(Control(kOnly), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    onlyPlaces.push_back(*form.only);
    only = static_cast<int>(onlyPlaces.size());
  }
  ChooseItem(kOnly, only);
  ChooseItem(kAnswer, form.answer);
  SetText(kResult, form.result);
  SendMessageA(Control(kLatency), TBM_SETPOS, TRUE, static_cast<LPARAM>(form.latency));
  Check(kVanish, form.vanishes);
  Check(kFill, form.fills);
  isFilling = false;
  ShowFaultsInWords();
}

// And which of the fields are of use.
void BenchWindow::ShowFaultsInWords() {
  const auto latency = static_cast<int>(SendMessageA(Control(kLatency), TBM_GETPOS, 0, 0));
  SetText(kLatencyValue, Format("%d ms", latency));
  const std::string words = FaultsInWords(shownFaults);
  const std::string band = words.empty() ? "" : "   Faults: " + words + ".";
  const bool isOther = Text(kFaultBand) != band;
  if (isOther) {
    SetText(kFaultBand, band);
    ShowWindow(Control(kFaultBand), band.empty() ? SW_HIDE : SW_SHOWNA);
  }
  EnableControls();
  if (isOther) Layout();
}

void BenchWindow::FaultsChanged() {
  const auto faults = FaultsOf(ReadFaults());
  if (!faults.value) {
    ShowFaultsInWords();
    return Refuse(faults.problem);
  }
  const simulator::Faults chosen = *faults.value;
  if (!box->SetFaults([&](simulator::Faults& kept) { Choose(kept, chosen); })) {
    return Refuse(kBusy);
  }
  shownFaults = chosen;
  ShowFaultsInWords();
  const std::string words = FaultsInWords(chosen);
  Say(words.empty() ? "No faults." : words + ".");
}

void BenchWindow::NoFaults() {
  if (!box->SetFaults([](simulator::Faults& kept) { Choose(kept, simulator::Faults{}); })) {
    return Refuse(kBusy);
  }
  Say("No faults.");
  Poll();
}

}  // namespace panelora::boxbench
