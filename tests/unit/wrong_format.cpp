// Not part of any program: the compiler must refuse a format that does not fit what is given for
// it.
#include "ui/text.h"

std::string Wrong() { return panelora::ui::Format("%d", "a text"); }
