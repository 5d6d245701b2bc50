// The Genlock page (template 112): what the box locks its output timing to, the termination of the
// reference input, and the delays of the output against the reference. Sliders, "<<", ">>" and
// Enter send the delays at once as a preview; Apply sends mode and delays as final.
//
// Models: see catalogue/multiview.h. The sync mode is shown where its names are known.
#pragma once

#include "catalogue/codecs.h"
#include "catalogue/multiview.h"
#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

struct DelayControls;

class CGenlockDlg final : public Page {
 public:
  explicit CGenlockDlg(PanelContext context) : Page(res::kGenlock, context) {}

  // Copies the device handle, sets fonts and captions and reads the box.
  void Init();

  // Opens the function on the box, then refreshes.
  void Open() override;

  // Reads the box. A failed read keeps value and text, a value without a row keeps the text.
  void Refresh(ui::SerialHandle serial) override;

  // Writes the genlock mode, then the delays as typed, as final. An edit without a number ends it
  // between the two.
  void Apply() override;

  // Opens the function on the box anew; a preview that is out stays one.
  void RestoreDefaults() override { OpenOnBox(); }

  // Writes the delays as they are and shows them; `final` = not a preview.
  void SendDelays(bool final);

  // The operator leaves the page: what previews changed is taken back, and nothing else is written.
  void Leave() override;

  void OnCommand(int control, ui::Notification what) override;
  void OnSliderReleased(int slider) override;

  // Enter sends what was typed as a preview. Both keys are consumed.
  bool OnKey(ui::Key key) override;

 private:
  void OnNextGenlockMode();
  void OnNextSyncMode();
  void OnVerticalUp() { StepUp(delays.lines, vDelayMax); }
  void OnVerticalDown() { StepDown(delays.lines); }
  void OnHorizontalUp() { StepUp(delays.clocks, hDelayMax); }
  void OnHorizontalDown() { StepDown(delays.clocks); }

  void OpenOnBox();
  void ReadBox();
  void ReadMode(const genlock::Model& model);
  void ReadLockAndInput(const genlock::Model& model);
  void ReadDelays(const genlock::Model& model);
  void ChooseRanges();
  void EnableDelays();
  void ShowPending();
  void ShowGenlockMode();
  void ShowSyncMode();
  void ShowSliders();
  void ShowDelays();
  void ShowNumber(const DelayControls& delay, std::uint16_t value);
  void StepUp(std::uint16_t& value, std::uint16_t maximum);
  void StepDown(std::uint16_t& value);
  void TakeSlider(const DelayControls& delay, std::uint16_t& value);
  bool TakeEdits();

  static constexpr std::uint8_t kNoCode = 255;  // not read yet

  std::uint8_t genlockMode = 0;  // 0 free-run, 1 and 2 a reference by type
  std::uint8_t syncMode = 0;     // 0 75 ohms, 1 open
  std::uint8_t toldMode = 0;     // what the box told, or was told
  std::uint8_t toldSync = 0;
  std::uint8_t outputCode = kNoCode;  // output format
  std::uint8_t inputCode = kNoCode;   // reference format
  std::uint8_t hDelayAllowed = 0;     // 1 = the reference allows a horizontal delay
  std::uint16_t lines = 0;            // a frame of the output
  std::uint16_t clocks = 0;           // a line of the output
  Delays delays;
  // What leaving the page goes back to: what was applied last, or read while no preview was out.
  Delays applied;
  std::uint16_t vDelayMax = 0;  // lines, 0 in free-run
  std::uint16_t hDelayMax = 0;  // clocks, 0 in free-run and where it is not allowed
  bool previewed = false;       // a preview was sent since the page was opened, applied or left
};

}  // namespace panelora
