// A call of the device link: what was asked or told, and what came of it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/text.h"
#include "device/device_link.h"

namespace panelora {

struct Call {
  enum class Operation : std::uint8_t {
    kOpen,
    kGetBlock,
    kSetBlock,
    kGetWord,
    kSetWord,
    kGetPicture,  // the four picture values at once
    kGetProcAmp,
    kSetProcAmp,
  };

  Operation operation = Operation::kOpen;
  std::uint32_t group = kBoxGroup;  // of an item or picture control
  std::uint32_t number = 0;         // property, item or control; the mode of an open
  // Of a block.
  std::uint8_t sub = kNoSub;
  std::uint8_t length = 0;
  // What was told, or answered; a write of a word tells the first one.
  std::vector<std::uint8_t> bytes = {};  // of a block, or the four picture values
  WordBuffer words = {};
  int result = 0;  // kSuccess of an open that found a box

  static Call Open(std::uint32_t mode) { return {.number = mode}; }
  static Call GetBlock(std::uint8_t property, std::uint8_t sub, std::uint8_t length) {
    return {.operation = Operation::kGetBlock, .number = property, .sub = sub, .length = length};
  }
  static Call SetBlock(std::uint8_t property, std::uint8_t sub, std::uint8_t length,
                       const BlockBuffer& bytes) {
    return {.operation = Operation::kSetBlock,
            .number = property,
            .sub = sub,
            .length = length,
            .bytes = {bytes.begin(), bytes.begin() + length}};
  }
  static Call GetWord(std::uint32_t group, std::uint32_t item) {
    return {.operation = Operation::kGetWord, .group = group, .number = item};
  }
  static Call SetWord(std::uint32_t group, std::uint32_t item, std::uint32_t value) {
    return {.operation = Operation::kSetWord, .group = group, .number = item, .words = {value, 0}};
  }
  static Call GetPicture() { return {.operation = Operation::kGetPicture}; }
  static Call GetProcAmp(std::uint32_t group, std::uint32_t control) {
    return {.operation = Operation::kGetProcAmp, .group = group, .number = control};
  }
  static Call SetProcAmp(std::uint32_t group, std::uint32_t control, std::uint32_t value) {
    return {.operation = Operation::kSetProcAmp,
            .group = group,
            .number = control,
            .words = {value, 0}};
  }

  bool IsWrite() const {
    return operation == Operation::kSetBlock || operation == Operation::kSetWord ||
           operation == Operation::kSetProcAmp;
  }
  bool IsRead() const { return operation != Operation::kOpen && !IsWrite(); }
  bool Succeeded() const { return result == kSuccess; }
  // Of two calls nothing is known of what their result says.
  bool TellsResult() const {
    return operation != Operation::kGetPicture && operation != Operation::kSetProcAmp;
  }

  // What a read was answered.
  void Take(const BlockBuffer& answer) { bytes.assign(answer.begin(), answer.begin() + length); }
  void Take(const WordBuffer& answer) { words = answer; }
  void Take(const ProcAmpBytes& answer) {
    bytes = {answer.brightness, answer.contrast, answer.hue, answer.saturation};
  }

  bool operator==(const Call&) const = default;
};

// One line, for logs and tests: what was asked or told, without what came of it.
inline std::string TextOf(const Call& call) {
  switch (call.operation) {
    case Call::Operation::kOpen:
      return Format("open %u", call.number);
    case Call::Operation::kGetBlock:
      return Format("get block %u,%d,%d", call.number, call.sub, call.length);
    case Call::Operation::kSetBlock: {
      std::string text = Format("set block %u,%d,%d:", call.number, call.sub, call.length);
      for (const std::uint8_t byte : call.bytes) text += Format(" %02X", byte);
      return text;
    }
    case Call::Operation::kGetWord:
      return Format("get word %u,%u", call.group, call.number);
    case Call::Operation::kSetWord:
      return Format("set word %u,%u = %u", call.group, call.number, call.words[0]);
    case Call::Operation::kGetPicture:
      return "get proc amp";
    case Call::Operation::kGetProcAmp:
      return Format("get proc amp %u,%u", call.group, call.number);
    case Call::Operation::kSetProcAmp:
      return Format("set proc amp %u,%u = %u", call.group, call.number, call.words[0]);
  }
  return "";
}

}  // namespace panelora
