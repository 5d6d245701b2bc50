// Whatever any panel asks or tells any box has words, and what has a codec is put together as it
// was taken apart.
#include "catalogue/describe.h"

#include <optional>
#include <set>
#include <span>

#include "catalogue/codecs.h"
#include "catalogue/multiview.h"
#include "catalogue/properties.h"
#include "tests/support/model_walk.h"
#include "tests/support/tireless_operator.h"

namespace panelora::testing {
namespace {

// A box, and what a panel asked and told it: each call once.
struct Talk {
  Identity box;
  std::uint32_t firmware = 0;
  std::vector<Call> calls = {};
};

class DescribeWalk : public ModelWalk {
 protected:
  // With no box, with boxes of every type, and with those brands, DIP switches and firmwares that
  // change what the types of the family do.
  static std::vector<Talk> Boxes() {
    std::vector<Talk> boxes = {{Identity(), 0}};
    for (int type = 0; type < kNoBoxType; ++type) boxes.push_back({Box(type), 0x0126});
    for (const int type : kTypes) {
      for (const int brand : {1, 2}) boxes.push_back({Box(type, brand), 0x0126});
      for (const int brand : {0, 2}) boxes.push_back({Box(type, brand), 0});
      boxes.push_back({Box(type, 0, 1, 1), 0x0126});
    }
    for (const int type : {13, 15, 51}) {
      for (const int brand : {8, 12}) boxes.push_back({Box(type, brand), 0x0126});
    }
    return boxes;
  }

  // Opens every page, uses all that is on it and on its sub-pages, and leaves it.
  void Walk(Talk& talk) {
    panel.reset();
    box.Become(talk.box, talk.firmware);
    box.SetPresent(talk.box.boxType != kNoBoxType);
    admitted = {talk.box.boxType};
    Start();
    TirelessOperator hand(desk, *panel);
    for (int code = 0; code <= static_cast<int>(PageCode::kTextLabels); ++code) {
      const auto page = static_cast<PageCode>(code);
      panel->OpenPage(page);
      // The buttons of the menu lead to other pages.
      if (page != PageCode::kVideoMenu) hand.UseTheControls();
      for (const int button : {kApplyButton, kPageUpButton, kApplyButton, kDefaultButton,
                               kWall3Button, kRefreshButton, kPageUpButton, kReturnButton}) {
        if (!desk.Shows(res::kMain, button)) continue;
        Press(button);
        if (button == kPageUpButton || button == kWall3Button) hand.UseTheControls();
        if (button == kWall3Button) desk.PressMouse(res::kTvWall, kTile5);
      }
      if (desk.TimerPeriod(res::kVideoSettings, kFormatTimer) != 0) {
        desk.Tick(res::kVideoSettings, kFormatTimer);
      }
      now += simulator::BoxModel::kRestartTime;
      Note(talk);
    }
    ShowInsets(talk);
  }

  // Which insets there are hangs on the display mode.
  void ShowInsets(Talk& talk) {
    if (!multiview::kModels.Has(talk.box.boxType)) return;
    for (const int mode : {4, 6, 7}) {
      box.Block(multiview::kModes.number)[0] = static_cast<std::uint8_t>(mode);
      panel->OpenPage(PageCode::kPip);
      Press(kApplyButton);
    }
    Note(talk);
  }

  void Note(Talk& talk) {
    for (Call& call : device.TakeMade()) {
      const std::string line = TextOf(call) + (call.Succeeded() ? "" : " failed");
      if (seen.insert(Named(talk.box) + std::to_string(talk.firmware) + line).second) {
        talk.calls.push_back(std::move(call));
      }
    }
  }

  const std::vector<Talk>& Talks() {
    static std::vector<Talk> talks;
    if (!talks.empty()) return talks;
    talks = Boxes();
    for (Talk& talk : talks) Walk(talk);
    return talks;
  }

 private:
  static constexpr int kTile5 = 1025;
  static constexpr int kFormatTimer = 1;

  std::set<std::string> seen;
};

TEST_F(DescribeWalk, EveryCallHasWords) {
  std::set<std::string> unknown;
  std::size_t described = 0;
  for (const Talk& talk : Talks()) {
    for (const Call& call : talk.calls) {
      const std::string words = Describe(talk.box, talk.firmware, call);
      if (words.starts_with("unknown")) unknown.insert(Named(talk.box) + ", " + words);
      ++described;
    }
  }
  for (const std::string& each : unknown) ADD_FAILURE() << each;
  EXPECT_GT(described, 15000U);
}

using Encoded = std::vector<std::uint8_t>;

template <class Array>
Encoded ToVector(const Array& bytes) {
  return {bytes.begin(), bytes.end()};
}

// The bytes of a call, taken apart and put together again; none for what has no codec.
std::optional<Encoded> Again(const Property& property, const Identity& box, const Call& call) {
  const BlockBytes bytes = call.bytes;
  const std::string name = property.name;
  const bool isWrite = call.IsWrite();
  if (name == "Identity") return ToVector(EncodeIdentity(DecodeIdentity(bytes)));
  if (name == "Inset 1" || name == "Inset 2") {
    const bool isBig = name == "Inset 2" || (isWrite && multiview::kByWord.Has(box.boxType));
    const ByteOrder order = isBig ? ByteOrder::kBig : ByteOrder::kLittle;
    return ToVector(EncodePipWindow(DecodePipWindow(bytes, order), order));
  }
  if (name == "Region") return ToVector(EncodeRegion(DecodeRegion(bytes)));
  if (name == "Sync Delays") {
    if (!isWrite) return ToVector(EncodeToldDelays(DecodeToldDelays(bytes)));
    return ToVector(EncodeTakenDelays(DecodeTakenDelays(bytes), bytes[4] == 1));
  }
  if (name == "Image Position") return ToVector(EncodeImagePosition(DecodeImagePosition(bytes)));
  if (name == "Image Size") return ToVector(EncodeImageSize(DecodeImageSize(bytes)));
  if (!isWrite) return std::nullopt;  // a box may hold its labels anywhere in their fields
  if (name == "Text Label") {
    Encoded again = {bytes[0]};
    const LabelField field = CentredLabel(TextOfLabel(bytes.subspan<1, kLabelLength>()));
    again.insert(again.end(), field.begin(), field.end());
    return again;
  }
  if (name.starts_with("Input ") && name.ends_with(" Label")) {
    return ToVector(CentredLabel(TextOfLabel(bytes.first<kLabelLength>())));
  }
  return std::nullopt;
}

TEST_F(DescribeWalk, EveryBlockIsPutTogetherAsItWasTakenApart) {
  std::set<std::string> names;
  for (const Talk& talk : Talks()) {
    for (const Call& call : talk.calls) {
      if (!call.IsWrite() && !call.Succeeded()) continue;
      for (const Property& property : PropertiesOf(talk.box, talk.firmware, call)) {
        if (property.at.kind != Address::Kind::kBlock) continue;
        const auto again = Again(property, talk.box, call);
        if (!again) continue;
        const std::size_t size = again->size();
        names.insert(std::string(property.name) + (call.IsWrite() ? " written" : " read"));
        ASSERT_TRUE(call.IsWrite() ? call.bytes.size() == size : call.bytes.size() >= size);
        EXPECT_EQ(*again, Encoded(call.bytes.begin(),
                                  call.bytes.begin() + static_cast<std::ptrdiff_t>(size)))
            << Named(talk.box) << ", " << property.name << ", " << TextOf(call);
      }
    }
  }
  EXPECT_EQ(names,
            (std::set<std::string>{
                "Identity read", "Image Position read", "Image Position written", "Image Size read",
                "Image Size written", "Input 1 Label written", "Input 2 Label written",
                "Input 3 Label written", "Input 4 Label written", "Inset 1 read", "Inset 1 written",
                "Inset 2 read", "Inset 2 written", "Region read", "Region written",
                "Sync Delays read", "Sync Delays written", "Text Label written"}));
}

}  // namespace
}  // namespace panelora::testing
