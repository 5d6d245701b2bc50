// The controls of the Proc Amp page: brightness, contrast, hue, saturation.
#pragma once

namespace panelora::testing {

constexpr int kPictureSliders[] = {1032, 1035, 1034, 1033};
constexpr int kPictureLabels[] = {1036, 1037, 1038, 1039};
constexpr int kPictureEdits[] = {1049, 1050, 1051, 1052};

}  // namespace panelora::testing
