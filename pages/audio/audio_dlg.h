// The Audio page (template 105): mute, source and standard of the embedded audio. ">>" steps the
// pending selections, Apply writes them.
//
// Models: box type 26 is complete; type 50 has its rows. Of the other types the controls, texts and
// level rules are known, and the properties of the volumes; the rest is a choice of this page:
// mute, source, XLR level, XLR impedance and output channel of those types are blocks 6, 10 (9 on
// 14 and 36), 7, 32 and 32, the audio level combo belongs to brand 2 of 24, 34, 25 and 29, and the
// HDMI volume's text stands in label 1052.
#pragma once

#include "pages/cycling_group.h"
#include "pages/page.h"

namespace panelora {

class CAudioDlg final : public Page {
 public:
  explicit CAudioDlg(PanelContext context);

  // Copies the device handle, sets fonts and captions, and shows the controls of the box type.
  void Init();

  // Reads the box. A failed read keeps field and text; a value without a row keeps the text.
  void Refresh(ui::SerialHandle serial) override;

  // Writes source, mute and standard, or what the model has instead; mute only where it is shown.
  void Apply() override;

  // There are no defaults to restore: the page is read again.
  void RestoreDefaults() override { Refresh(serialHandle); }

  // The operator leaves the page by Return: pending selections are dropped by the next refresh.
  void Leave() {}

  void OnCommand(int control, ui::Notification what) override;

 private:
  void OnNextMute();
  void OnNextSource();
  void OnNextStandard();
  void OnNextXlrLevel();
  void OnNextXlrImpedance();
  void OnNextChannel();
  void OnVolumeDown() { StepVolume(-1); }
  void OnVolumeUp() { StepVolume(1); }
  void OnHdmiVolumeDown() { StepHdmiVolume(-1); }
  void OnHdmiVolumeUp() { StepHdmiVolume(1); }
  void OnLevelChosen();

  void ShowMute();
  void ShowSource();
  void ShowStandard();
  void ShowVolumes();
  void ShowOutputLevel();
  void ShowInputLevel();
  void StepVolume(int louder);
  void StepHdmiVolume(int louder);
  void StepInputVolume(int louder);
  void SendInputVolumes();
  void SendOutputLevel();
  void LayOut();
  void PlaceVolume(int top, bool hasScale);
  void PlaceHdmiVolume(int top);
  void FillLevels();
  void RefreshModel26();
  void RefreshOtherTypes();
  bool ReadVolumes();
  bool ReadByte(std::uint8_t property, std::uint8_t& value);
  void ApplyOtherTypes();
  int LastSource() const;
  bool HasLevelCombo() const;
  bool ShowsMute() const;

  std::uint8_t mute = 0;           // 1 = on
  std::uint8_t standard = 0;       // 0 SMPTE, 1 EBU
  std::uint8_t source = 0;         // index within the rows of the input
  std::uint8_t input = 0;          // the box's video input code
  std::uint8_t volume = 0;         // 0 to 100; raw 0 to 80 where the input level is shown
  std::uint8_t volume2 = 0;        // 0 to 100: the second input, or HDMI
  std::uint8_t pendingVolume = 0;  // the volume of the last Apply
  std::uint8_t outputLevel = 62;   // raw 0 to 112, half decibels around 62
  std::uint8_t xlrLevel = 0;
  std::uint8_t xlrImpedance = 0;
  std::uint8_t channel = 0;  // value of the type's output channel
};

}  // namespace panelora
