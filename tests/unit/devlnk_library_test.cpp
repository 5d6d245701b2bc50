// The binding of the library's exports.
#include "device/devlnk_library.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

namespace panelora {
namespace {

// A library of plain functions that note what they are given.
std::string lastCall;

std::uint32_t PANELORA_DEVLNK_CALL Open(std::uint32_t mode) {
  lastCall = "open " + std::to_string(mode);
  return 77;
}
int PANELORA_DEVLNK_CALL GetBlock(std::uint32_t handle, std::uint8_t property, std::uint8_t sub,
                                  std::uint8_t length, std::uint8_t* out) {
  lastCall = "get block " + std::to_string(handle) + " " + std::to_string(property) + " " +
             std::to_string(sub) + " " + std::to_string(length);
  for (int i = 0; i < length; ++i) out[i] = 0xFF;
  return 1;
}
int PANELORA_DEVLNK_CALL SetBlock(std::uint32_t, std::uint8_t property, std::uint8_t,
                                  std::uint8_t length, std::uint8_t* bytes) {
  lastCall = "set block " + std::to_string(property) + ":";
  for (int i = 0; i < length; ++i) lastCall += " " + std::to_string(bytes[i]);
  bytes[0] = 99;  // a library may use the bytes as it likes
  return 5;
}
int PANELORA_DEVLNK_CALL GetWord(std::uint32_t, std::uint32_t group, std::uint32_t item,
                                 std::uint32_t* out) {
  lastCall = "get word " + std::to_string(group) + " " + std::to_string(item);
  out[0] = 1;
  out[1] = 2;
  return 1;
}
int PANELORA_DEVLNK_CALL SetWord(std::uint32_t, std::uint32_t group, std::uint32_t item,
                                 std::uint32_t value) {
  lastCall = "set word " + std::to_string(group) + " " + std::to_string(item) + " " +
             std::to_string(value);
  return 1;
}
int PANELORA_DEVLNK_CALL GetPicture(std::uint32_t, std::uint8_t* a, std::uint8_t* b,
                                    std::uint8_t* c, std::uint8_t* d) {
  lastCall = "get picture";
  std::uint8_t value = 1;
  for (std::uint8_t* each : {a, b, c, d}) {
    for (int i = 0; i < 4; ++i) each[i] = 0xEE;  // a whole word where a byte was asked for
    each[0] = value++;
  }
  return 1;
}

const std::map<std::string, std::pair<void*, int>>& Exports() {
  static const std::map<std::string, std::pair<void*, int>> exports = {
      {"DEVLNK_OPEN", {reinterpret_cast<void*>(&Open), 4}},
      {"DEVLNK_GET_KIRABOX_PROPERTY", {reinterpret_cast<void*>(&GetBlock), 20}},
      {"DEVLNK_SET_KIRABOX_PROPERTY", {reinterpret_cast<void*>(&SetBlock), 20}},
      {"DEVLNK_GET_BOX_PROPERTY", {reinterpret_cast<void*>(&GetWord), 16}},
      {"DEVLNK_SET_BOX_PROPERTY", {reinterpret_cast<void*>(&SetWord), 16}},
      {"DEVLNK_GET_KIRABOX_PROC_AMP", {reinterpret_cast<void*>(&GetPicture), 20}},
      {"DEVLNK_GET_VIDEO_PROC_AMP", {reinterpret_cast<void*>(&GetWord), 16}},
      {"DEVLNK_SET_VIDEO_PROC_AMP", {reinterpret_cast<void*>(&SetWord), 16}},
  };
  return exports;
}

void* Plain(const char* name) {
  const auto found = Exports().find(name);
  return found == Exports().end() ? nullptr : found->second.first;
}

// Only the names that 32-bit tools make, with and without the leading underscore.
void* DecoratedWith(const std::string& start, const char* name) {
  for (const auto& [plain, entry] : Exports()) {
    if (start + plain + "@" + std::to_string(entry.second) == name) return entry.first;
  }
  return nullptr;
}

void ExpectEveryCallFails(DevlnkLibrary& library) {
  lastCall.clear();
  BlockBuffer block{};
  WordBuffer words{};
  ProcAmpBytes picture;
  EXPECT_FALSE(library.IsUsable());
  EXPECT_EQ(library.Open(2), kNoBox);
  EXPECT_NE(library.GetKiraboxProperty(1, 2, 0, 20, block), kSuccess);
  EXPECT_NE(library.SetKiraboxProperty(1, 2, 0, 1, block), kSuccess);
  EXPECT_NE(library.GetBoxProperty(1, 0, 5, words), kSuccess);
  EXPECT_NE(library.SetBoxProperty(1, 0, 5, 1), kSuccess);
  EXPECT_NE(library.GetKiraboxProcAmp(1, picture), kSuccess);
  EXPECT_NE(library.GetVideoProcAmp(1, 0, 2, words), kSuccess);
  EXPECT_NE(library.SetVideoProcAmp(1, 0, 2, 1), kSuccess);
  EXPECT_EQ(lastCall, "");
}

TEST(DevlnkLibrary, PassesEveryCallThrough) {
  DevlnkLibrary library(Plain);
  ASSERT_TRUE(library.IsUsable());
  BlockBuffer block{};
  WordBuffer words{};
  EXPECT_EQ(library.Open(2), 77U);
  EXPECT_EQ(lastCall, "open 2");
  EXPECT_EQ(library.GetKiraboxProperty(7, 254, 3, 255, block), 1);
  EXPECT_EQ(lastCall, "get block 7 254 3 255");
  EXPECT_EQ(block[254], 0xFF);
  EXPECT_EQ(block[255], 0);
  const BlockBuffer sent = {1, 2, 3};
  EXPECT_EQ(library.SetKiraboxProperty(7, 14, 0, 3, sent), 5);
  EXPECT_EQ(lastCall, "set block 14: 1 2 3");
  EXPECT_EQ(sent[0], 1);
  EXPECT_EQ(library.GetBoxProperty(7, 0, 5, words), 1);
  EXPECT_EQ(words, (WordBuffer{1, 2}));
  EXPECT_EQ(lastCall, "get word 0 5");
  EXPECT_EQ(library.SetBoxProperty(7, 0, 4, 9), 1);
  EXPECT_EQ(lastCall, "set word 0 4 9");
  EXPECT_EQ(library.GetVideoProcAmp(7, 0, 3, words), 1);
  EXPECT_EQ(lastCall, "get word 0 3");
  EXPECT_EQ(library.SetVideoProcAmp(7, 0, 255, 1), 1);
  EXPECT_EQ(lastCall, "set word 0 255 1");
}

// Whatever length is asked for, an answer of just that length changes its own bytes and no others.
TEST(DevlnkLibrary, AnswersOfTheAskedLengthStayInsideTheBuffers) {
  DevlnkLibrary library(Plain);
  constexpr std::uint64_t kGuard = 0xA5A5A5A5A5A5A5A5;
  struct {
    std::uint64_t before = kGuard;
    BlockBuffer block{};
    std::uint64_t between = kGuard;
    WordBuffer words{};
    std::uint64_t behind = kGuard;
    ProcAmpBytes picture;
    std::uint8_t last = 0xA5;
  } guarded;
  for (int length = 0; length < 256; ++length) {
    guarded.block.fill(0x11);
    EXPECT_EQ(library.GetKiraboxProperty(7, 1, 0, static_cast<std::uint8_t>(length), guarded.block),
              1);
    for (int i = 0; i < 256; ++i) {
      ASSERT_EQ(guarded.block[static_cast<std::size_t>(i)], i < length ? 0xFF : 0x11) << length;
    }
  }
  EXPECT_EQ(library.GetBoxProperty(7, 0, 5, guarded.words), 1);
  EXPECT_EQ(library.GetVideoProcAmp(7, 0, 2, guarded.words), 1);
  EXPECT_EQ(library.GetKiraboxProcAmp(7, guarded.picture), 1);
  EXPECT_EQ(guarded.before, kGuard);
  EXPECT_EQ(guarded.between, kGuard);
  EXPECT_EQ(guarded.behind, kGuard);
  EXPECT_EQ(guarded.last, 0xA5);
}

TEST(DevlnkLibrary, PictureValuesThatComeAsWordsDoNoHarm) {
  DevlnkLibrary library(Plain);
  ProcAmpBytes picture;
  EXPECT_EQ(library.GetKiraboxProcAmp(7, picture), 1);
  EXPECT_EQ(picture.brightness, 1);
  EXPECT_EQ(picture.contrast, 2);
  EXPECT_EQ(picture.hue, 3);
  EXPECT_EQ(picture.saturation, 4);
}

TEST(DevlnkLibrary, TakesDecoratedNamesWherePlainOnesAreMissing) {
  for (const char* start : {"_", ""}) {
    DevlnkLibrary library([start](const char* name) { return DecoratedWith(start, name); });
    EXPECT_TRUE(library.IsUsable());
    EXPECT_EQ(library.Open(2), 77U);
  }
}

TEST(DevlnkLibrary, LooksEachNameUpOnce) {
  std::multiset<std::string> asked;
  DevlnkLibrary library([&](const char* name) {
    asked.insert(name);
    return Plain(name);
  });
  library.Open(2);
  EXPECT_EQ(asked.size(), 8U);
  for (const auto& [name, entry] : Exports()) EXPECT_EQ(asked.count(name), 1U) << name;
}

TEST(DevlnkLibrary, OneMissingExportFailsEveryCallAndIsNamed) {
  for (const auto& [missing, entry] : Exports()) {
    DevlnkLibrary library(
        [name = missing](const char* asked) { return asked == name ? nullptr : Plain(asked); });
    EXPECT_EQ(library.MissingExport(), missing);
    ExpectEveryCallFails(library);
  }
}

TEST(DevlnkLibrary, MissingLibraryFailsEveryCall) {
  DevlnkLibrary library;
  ExpectEveryCallFails(library);
}

// Looked for at every open and at no other call, until it is found; then never again.
TEST(DevlnkLibrary, IsLookedForAtEveryOpenUntilItIsFound) {
  int looked = 0;
  DevlnkLibrary::Resolver found;
  DevlnkLibrary library([&] {
    ++looked;
    return found;
  });
  EXPECT_EQ(looked, 0);
  ExpectEveryCallFails(library);  // opens once
  EXPECT_EQ(looked, 1);
  ExpectEveryCallFails(library);
  EXPECT_EQ(looked, 2);
  found = [](const char* name) {
    return std::string(name) == "DEVLNK_OPEN" ? nullptr : Plain(name);
  };
  ExpectEveryCallFails(library);
  EXPECT_EQ(library.MissingExport(), "DEVLNK_OPEN");
  found = Plain;
  EXPECT_EQ(library.Open(2), 77U);
  EXPECT_EQ(looked, 4);
  EXPECT_TRUE(library.IsUsable());
  EXPECT_EQ(library.Open(2), 77U);
  EXPECT_EQ(looked, 4);
}

}  // namespace
}  // namespace panelora
