// The Audio page (template 105): mute, source and standard of the embedded audio, and what else a
// box does with it. ">>" steps the pending selections, Apply writes them.
//
// Models: which box has which option and volume where stands in catalogue/audio.h. That the audio
// level combo belongs to brand 2 of 24, 34, 25 and 29, and that the HDMI volume's text stands in
// label 1052, is a choice of this page.
#pragma once

#include "pages/audio/audio_volumes.h"
#include "pages/option_page.h"

namespace panelora {

class CAudioDlg final : public OptionPage {
 public:
  explicit CAudioDlg(PanelContext context);

  void Init() override;

  // Reads the box. A failed read keeps field and text; a value without a row keeps the text.
  void Refresh(ui::SerialHandle serial) override;

  // Writes the source, then what else is shown; volumes that are not sent at once.
  void Apply() override;

  void OnCommand(int control, ui::Notification what) override;

 private:
  const Choice* Find(int option, std::uint8_t index) const override;
  int LastIndex(int option) const override;
  bool Has(int option) const;
  bool ShowsMute() const;
  bool IsLevelByDip() const;
  bool Tells(const Kept& kept) const;
  audio::VolumeKind Kind() const {
    return hasVolume ? volumes.KindOf(panel.identity) : audio::VolumeKind::kNone;
  }

  void ReadFitted();
  void LayOut();
  void PlaceVolume(int top);
  void PlaceLevels(int top);
  void PlaceHdmiVolume(int top);
  void ShowVolumes(std::uint8_t source);
  void ShowBar(const VolumeBar& bar, int control, int caption);
  void OnVolume(int louder);
  void OnLevelChosen();

  std::uint8_t input = 0;  // the box's video input code
  bool hasSource = true;   // what a box says that it is fitted with
  bool hasVolume = true;
  AudioVolumes volumes;
};

}  // namespace panelora
