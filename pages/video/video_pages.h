// What the Video menu asks of the main window: to open one of the pages behind it.
#pragma once

namespace panelora {

class VideoPages {
 public:
  virtual ~VideoPages() = default;

  virtual void ShowVideoSettings() = 0;
  virtual void ShowDisplayMode() = 0;
  virtual void ShowTvWall() = 0;
  virtual void ShowPip() = 0;
  virtual void ShowGenlock() = 0;
  virtual void ShowImageAdjust() = 0;
  virtual void ShowRoi() = 0;
};

}  // namespace panelora
