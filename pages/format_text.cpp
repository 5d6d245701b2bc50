#include "pages/format_text.h"

#include "base/text.h"

namespace panelora {

std::string FormatText(int width, int height, int rate, int hundredths, const char* scan) {
  if (width == 0 || height == 0) return kNoSignalText;
  const std::string size = Format("%dx%d", width, height);
  if (rate < 100) return Format("%s %3d.%02d%s", size.c_str(), rate, hundredths, scan);
  return Format("%s %4d.0%s", size.c_str(), rate, scan);
}

}  // namespace panelora
