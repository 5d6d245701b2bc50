// Calls of the device link as text, one line a call, for logs and tests.
#pragma once

#include <string>

#include "base/text.h"
#include "device/device_link.h"

namespace panelora::simulator {

inline std::string OpenText(std::uint32_t mode) { return Format("open %u", mode); }

inline std::string GetBlockText(int property, int sub, int length) {
  return Format("get block %d,%d,%d", property, sub, length);
}

inline std::string SetBlockText(int property, int sub, int length, const BlockBuffer& bytes) {
  std::string text = Format("set block %d,%d,%d:", property, sub, length);
  for (int i = 0; i < length; ++i) {
    text += Format(" %02X", bytes[static_cast<std::size_t>(i)]);
  }
  return text;
}

inline std::string GetWordText(std::uint32_t group, std::uint32_t item) {
  return Format("get word %u,%u", group, item);
}

inline std::string SetWordText(std::uint32_t group, std::uint32_t item, std::uint32_t value) {
  return Format("set word %u,%u = %u", group, item, value);
}

inline std::string GetProcAmpText() { return "get proc amp"; }

inline std::string GetProcAmpText(std::uint32_t group, std::uint32_t control) {
  return Format("get proc amp %u,%u", group, control);
}

inline std::string SetProcAmpText(std::uint32_t group, std::uint32_t control, std::uint32_t value) {
  return Format("set proc amp %u,%u = %u", group, control, value);
}

}  // namespace panelora::simulator
