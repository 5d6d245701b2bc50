// Not part of any program: the compiler must refuse a format that does not fit what is given for
// it.
#include "base/text.h"

std::string Wrong() { return panelora::Format("%d", "a text"); }
