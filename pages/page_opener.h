// What a page asks of the main window: to open another one.
#pragma once

#include "catalogue/page_code.h"

namespace panelora {

class PageOpener {
 public:
  virtual ~PageOpener() = default;

  virtual void OpenPage(PageCode code) = 0;
};

}  // namespace panelora
