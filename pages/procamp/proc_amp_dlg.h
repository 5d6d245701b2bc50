// The processing amplifier page (template 106): brightness, contrast, hue and saturation, and in
// its second view RGB gain and two RGB offsets. A slider writes as soon as it repaints with another
// value.
//
// Models: box type 26 is complete, the others show the picture controls only; how each tells its
// values stands in catalogue/picture.h.
#pragma once

#include <optional>

#include "catalogue/picture.h"
#include "pages/page.h"

namespace panelora {

class CProcAmpDlg final : public Page {
 public:
  explicit CProcAmpDlg(PanelContext context);

  // Copies the device handle, keeps the serial handle, takes the values of `cache` over and shows
  // them. Types without picture values get 128 in the first four bytes of the cache.
  void Init(ui::SerialHandle serial, ProcAmpCache& cache);

  // Reads the values into the cache of the panel state and takes them over from there.
  void Open() override;

  // 0 = the picture controls, 1 = the RGB controls.
  void SetSubPage(int number) override;
  int SubPages() const override { return 2; }

  // Takes the four edits over, one after the other, and sends what changed; ends at the first text
  // that is no number. Numbers above 255, and negative ones, become 255.
  void Apply() override;

  // The operator leaves by Return: on brand 2 the stored values are sent again where an edit shows
  // another number, and the edits are forgotten.
  void Leave() override;

  // Has a box of type 26 restore the values of the view and reads them back, all but the second RGB
  // offset; selects the channel of another type and reads its picture values.
  void RestoreDefaults() override;

  void OnSliderRepainted(int slider) override;
  // Enter and Escape never close the page.
  bool OnKey(ui::Key key) override;

 private:
  void ShowView();
  void ShowValues();
  void SendPicture(std::size_t index);
  void SendRgb();
  std::optional<int> Typed(std::size_t index);
  void ReadDefaults26();
  void ReadDefaultsOneByOne();
  void ReadCache();
  bool Commits() const { return picture::Commits(panel.identity, panel.firmwareVersion); }
  bool HasEdits() const { return panel.identity.brandCode == 2; }
  bool IsModel26() const { return kShippedType.Has(panel.identity.boxType); }

  // Brightness, contrast, hue, saturation, RGB gain, RGB offset (0 to 255 each), RGB offset 2 (0 to
  // 64) and three spare bytes.
  ProcAmpCache values = kProcAmpStart;
  int viewMode = 0;
};

}  // namespace panelora
