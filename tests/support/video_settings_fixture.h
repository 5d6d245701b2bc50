// The Video settings page on the desk.
#pragma once

#include "tests/support/one_page.h"
#include "tests/support/video_settings_controls.h"

namespace panelora::testing {

class VideoSettings : public OnePage<kPage> {
 protected:
  void Open(std::uint32_t firmware = 0x0126, Identity identity = {26, 0, 0, 0, 0}) {
    StartWith(identity, firmware);
    panel->OpenPage(PageCode::kVideoSettings);
  }
  void OpenSubPage1(std::uint32_t firmware = 0x0126) {
    Open(firmware);
    Press(kPageUpButton);
  }
};

}  // namespace panelora::testing
