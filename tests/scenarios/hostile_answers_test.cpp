// Answers that no box should give, on every box type and every page: whatever comes, the panel goes
// on. It runs in memory alone, where a step outside of any buffer ends the test.
#include <random>

#include "tests/support/scenario.h"
#include "tests/support/tireless_operator.h"

namespace panelora::testing {
namespace {

// Bytes, results and handles by chance, but for the box type, which is the same every other time.
class MadBox final : public DeviceLink {
 public:
  MadBox(std::uint8_t theBoxType, unsigned seed) : boxType(theBoxType), generator(seed) {}

  DeviceHandle Open(std::uint32_t) override { return Drawn(8) == 0 ? kNoBox : Word(); }
  int GetKiraboxProperty(DeviceHandle, std::uint8_t property, std::uint8_t, std::uint8_t length,
                         BlockBuffer& out) override {
    for (int i = 0; i < length; ++i) out[static_cast<std::size_t>(i)] = Byte();
    if (property == 254 && Drawn(2) == 0) out[0] = boxType;
    return Result();
  }
  int SetKiraboxProperty(DeviceHandle, std::uint8_t, std::uint8_t, std::uint8_t,
                         const BlockBuffer&) override {
    return Result();
  }
  int GetBoxProperty(DeviceHandle, std::uint32_t, std::uint32_t, WordBuffer& out) override {
    out = {Word(), Word()};
    return Result();
  }
  int SetBoxProperty(DeviceHandle, std::uint32_t, std::uint32_t, std::uint32_t) override {
    return Result();
  }
  int GetKiraboxProcAmp(DeviceHandle, ProcAmpBytes& out) override {
    out = {Byte(), Byte(), Byte(), Byte()};
    return Result();
  }
  int GetVideoProcAmp(DeviceHandle, std::uint32_t, std::uint32_t, WordBuffer& out) override {
    out[0] = Word();
    return Result();
  }
  int SetVideoProcAmp(DeviceHandle, std::uint32_t, std::uint32_t, std::uint32_t) override {
    return Result();
  }

 private:
  std::uint32_t Drawn(std::uint32_t below) {
    return static_cast<std::uint32_t>(generator()) % below;
  }
  std::uint8_t Byte() { return static_cast<std::uint8_t>(generator() >> 8); }
  // Small words are those that mean something.
  std::uint32_t Word() {
    const std::uint32_t word = static_cast<std::uint32_t>(generator());
    return Drawn(2) == 0 ? word % 16 : word ^ word << 7;
  }
  // Of three calls two succeed: otherwise no box would stay for long.
  int Result() { return Drawn(3) != 0 ? kSuccess : static_cast<int>(Word()); }

  std::uint8_t boxType;
  std::mt19937 generator;
};

// A box behind a library that keeps something of its own in what an answer leaves of the buffer.
class UntidyBox final : public DeviceLink {
 public:
  UntidyBox(DeviceLink& theBox, std::uint8_t theFilling) : box(theBox), filling(theFilling) {}

  DeviceHandle Open(std::uint32_t mode) override { return box.Open(mode); }
  int GetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                         std::uint8_t length, BlockBuffer& out) override {
    const int result = box.GetKiraboxProperty(handle, property, sub, length, out);
    if (result == kSuccess) std::fill(out.begin() + length, out.end(), filling);
    return result;
  }
  int SetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                         std::uint8_t length, const BlockBuffer& bytes) override {
    return box.SetKiraboxProperty(handle, property, sub, length, bytes);
  }
  int GetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                     WordBuffer& out) override {
    return box.GetBoxProperty(handle, group, item, out);
  }
  int SetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                     std::uint32_t value) override {
    return box.SetBoxProperty(handle, group, item, value);
  }
  int GetKiraboxProcAmp(DeviceHandle handle, ProcAmpBytes& out) override {
    return box.GetKiraboxProcAmp(handle, out);
  }
  int GetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                      WordBuffer& out) override {
    const int result = box.GetVideoProcAmp(handle, group, control, out);
    if (result == kSuccess) out[1] = 0x01010101U * filling;
    return result;
  }
  int SetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                      std::uint32_t value) override {
    return box.SetVideoProcAmp(handle, group, control, value);
  }

 private:
  DeviceLink& box;
  std::uint8_t filling;
};

// All that the pages tell apart, and some on both sides of them.
constexpr int kFirstType = 10;
constexpr int kLastType = 53;

class HostileAnswers : public Scenario {
 protected:
  void StartOver(DeviceLink& link) {
    panel = std::make_unique<CMainDlg>(link, desk.Toolkit(), admitted);
    ASSERT_TRUE(panel->Init());
    panel->Show();
    desk.Settle();
  }

  // The texts of all that is shown.
  std::vector<std::string> Texts() {
    std::vector<std::string> texts;
    for (const int page : ShownPages()) {
      for (const ui::ControlTemplate& control : res::FindDialog(page)->controls) {
        if (desk.Shows(page, control.id)) texts.push_back(desk.Text(page, control.id));
      }
    }
    return texts;
  }
};

TEST_F(HostileAnswers, NeverHarmThePanel) {
  for (int type = 0; type < 255; ++type) admitted.push_back(static_cast<std::uint8_t>(type));
  for (int type = kFirstType; type <= kLastType; ++type) {
    SCOPED_TRACE(type);
    panel.reset();
    MadBox mad(static_cast<std::uint8_t>(type), static_cast<unsigned>(type) + 1);
    StartOver(mad);
    TirelessOperator tireless(desk, *panel);
    int steps = 0;
    tireless.afterwards = [&] {
      if (++steps % 16 == 0) Tick();
    };
    for (int round = 0; round < 2; ++round) tireless.UseEveryPage();
    EXPECT_GT(steps, 200);
  }
}

// What stands behind the bytes that were asked for is neither shown nor sent.
TEST_F(HostileAnswers, BytesBehindTheAskedLengthCountForNothing) {
  const auto walk = [&](std::uint8_t type, std::uint8_t filling) {
    panel.reset();
    box.Become({type, 0, 0, 0, 0}, 0x0126);
    admitted = {type};
    UntidyBox untidy(device, filling);
    StartOver(untidy);
    std::vector<std::string> seen;
    TirelessOperator tireless(desk, *panel);
    int steps = 0;
    tireless.afterwards = [&] {
      if (++steps % 4 != 0) return;
      for (std::string& text : Texts()) seen.push_back(std::move(text));
    };
    tireless.UseEveryPage();
    return std::pair{seen, TakeCalls()};
  };
  for (int type = kFirstType; type <= kLastType; ++type) {
    const auto tidy = walk(static_cast<std::uint8_t>(type), 0);
    const auto untidy = walk(static_cast<std::uint8_t>(type), 0xA5);
    EXPECT_EQ(tidy.first, untidy.first) << type;
    EXPECT_EQ(tidy.second, untidy.second) << type;
    if (HasFailure()) break;
  }
}

}  // namespace
}  // namespace panelora::testing
