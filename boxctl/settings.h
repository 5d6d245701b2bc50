// The settings of a model: what it reports and takes back.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "boxctl/texts.h"
#include "catalogue/properties.h"
#include "device/call.h"

namespace panelora::boxctl {

struct Setting {
  // How what is told follows from what is reported.
  enum class Form : std::uint8_t {
    kSame,    // the first bytes of it, with zeros behind them where more are told
    kInset,   // reported in little-endian order, told in big-endian
    kDelays,  // the same, with a byte behind them that says that they are final
  };

  std::string name;
  Property reported;
  Property told;
  Form form = Form::kSame;
};

// In the order in which a box is asked for them, and told.
std::vector<Setting> SettingsOf(const Identity& identity, std::uint32_t firmware);

// What a box reports and takes, and yet is no setting.
struct LeftOut {
  std::string name;
  std::string reason;
};
std::vector<LeftOut> LeftOutOf(const Identity& identity);

// How many bytes of an answer are the setting, and these.
std::size_t KeptLengthOf(const Setting& setting);
Bytes KeptOf(const Setting& setting, const Call& answer);

// The bytes that restore what was kept.
Bytes ToldOf(const Setting& setting, std::span<const std::uint8_t> kept);

// What the panel calls what was kept.
std::string CaptionOf(const Setting& setting, const Identity& identity,
                      std::span<const std::uint8_t> kept);

// What the panel calls what a property was told or answered, in one line of plain characters.
std::string ValueText(const Identity& identity, const Property& property, const Call& call);

}  // namespace panelora::boxctl
