// Values as they are typed: in words, as numbers and as bytes.
#include "boxbench/edit_value.h"

#include <gtest/gtest.h>

#include "boxbench/input_signal.h"
#include "catalogue/codecs.h"
#include "tests/boxbench/desk_box.h"

namespace panelora::boxbench {
namespace {

using Bytes = std::vector<std::uint8_t>;
using testing::DeskBox;

class EditValueTest : public ::testing::Test {
 protected:
  void Become(std::uint8_t type) { desk.control.Become({type, 0, 0, 0, 0}, 0x0126); }

  const PropertyRow& Row(const std::string& name) {
    const auto look = desk.control.LookAt();
    box = look->box.identity;
    list.Update(*look, {}, 0, 1);
    for (const PropertyRow& row : list.All()) {
      if (row.name == name) return row;
    }
    throw std::runtime_error("no row " + name);
  }
  // What the list shows after the text was typed, or why it was refused.
  std::string Typed(const std::string& name, const std::string& text) {
    const PropertyRow& row = Row(name);
    const Address at = row.at;
    const auto typed = ParseWords(box, row, text);
    if (!typed.value) return typed.problem;
    desk.control.Store(at, *typed.value);
    Row(name);
    return list.Find(at)->words;
  }

  DeskBox desk;
  PropertyList list;
  Identity box;
};

TEST_F(EditValueTest, EveryChoiceThatIsOfferedCanBeTyped) {
  for (const std::uint8_t type : Bytes{26, 13, 50}) {
    Become(type);
    Row("Brightness");
    int offered = 0;
    for (const PropertyRow& row : list.All()) {
      for (const std::string& text : ValuesOffered(box, row)) {
        const auto typed = ParseWords(box, row, text);
        ASSERT_TRUE(typed.value.has_value()) << row.name << ": " << text;
        EXPECT_EQ(WordsOfValue(box, row, *typed.value), text) << row.name;
        ++offered;
      }
    }
    EXPECT_GT(offered, 20) << int{type};
  }
}

TEST_F(EditValueTest, NumbersAreNotOffered) {
  const PropertyRow& row = Row("Brightness");
  EXPECT_TRUE(ValuesOffered(box, row).empty());
}

TEST_F(EditValueTest, ANumberIsTheFirstByte) {
  EXPECT_EQ(Typed("Brightness", " 77 "), "77");
  EXPECT_EQ(Typed("Brightness", "256"),
            "\"256\" is no value of Brightness: choose one of the list, or type its bytes");
  EXPECT_EQ(Typed("Brightness", ""), "type a value for picture 2");
}

TEST_F(EditValueTest, CaseAndBlanksMakeNoDifference) {
  Become(50);
  const std::string words = Row("Audio Mute").words;
  const std::string other = words == "OFF" ? "ON" : "OFF";
  EXPECT_EQ(Typed("Audio Mute", words == "OFF" ? "  oN " : " oFf "), other);
}

TEST_F(EditValueTest, LabelsAreTypedAsTheyAreRead) {
  Become(13);
  EXPECT_EQ(Typed("Input 2 Label", "CAMERA"), "CAMERA");
}

TEST_F(EditValueTest, ALabelWithControlCharactersStaysWhenItIsSetAsItIsShown) {
  Become(13);
  const Address at = Row("Input 2 Label").at;
  desk.control.Store(at, CentredLabel("A\n\tB"));
  const PropertyRow& row = Row("Input 2 Label");
  EXPECT_EQ(row.words, "A\\x0A\\x09B");
  EXPECT_EQ(*ParseWords(box, row, row.words).value, row.bytes);
}

TEST_F(EditValueTest, SignalsAreTypedAsTheyAreRead) {
  Row("Brightness");
  for (const char* text : {"1600x1200 75p", "1920x1080 59.94i"}) {
    const PropertyRow& row = *list.Find(Block(1));
    const auto typed = ParseWords(box, row, text);
    ASSERT_TRUE(typed.value.has_value()) << typed.problem;
    EXPECT_EQ(typed.value->size(), row.bytes.size());
    const std::string words = WordsOfValue(box, row, *typed.value);
    EXPECT_NE(Tidied(words).find("Input Format: " + TextOf(*ParseSignal(text).value)),
              std::string::npos)
        << words;
  }
}

TEST_F(EditValueTest, BytesHaveTheRoomOfTheirKind) {
  const PropertyRow& row = Row("Brightness");
  EXPECT_EQ(*ParseBytes(row, "0A").value, (Bytes{10}));
  EXPECT_EQ(ParseBytes(row, "0A 0B").problem, "picture 2 has room for 1 byte");
  const PropertyRow& word = *list.Find(Word(5));
  EXPECT_EQ(ParseBytes(word, "1 2 3 4 5 6 7 8").value->size(), 8U);
  EXPECT_EQ(ParseBytes(word, "1 2 3 4 5 6 7 8 9").problem, "word 5 has room for 8 bytes");
  EXPECT_FALSE(ParseBytes(word, "zz").value.has_value());
}

TEST_F(EditValueTest, TheFactoryValueIsWhatANewBoxKeeps) {
  const PropertyRow row = Row("Brightness");
  EXPECT_EQ(FactoryValue(box, 0x0126, row), (Bytes{128}));
}

TEST_F(EditValueTest, WhatIsNotStoredSaysWhy) {
  const std::uint8_t value = 7;
  const auto store = [&](const Address& at) { return StoreValue(desk.control, at, {&value, 1}); };
  EXPECT_EQ(store(ProcAmp(proc_amp::kHue)), "");
  EXPECT_EQ(store(ProcAmp(proc_amp::kCommit)), "the box does not keep picture 255");
  desk.host.isKept = true;
  EXPECT_EQ(store(ProcAmp(proc_amp::kHue)), "the box is busy with another program: try again");
}

}  // namespace
}  // namespace panelora::boxbench
