#pragma once

#include "platform/PictureBox.h"

namespace korvane {

/// Size of the logo in pixels.
inline constexpr PictureBox::Size kLogoSize{97, 97, PictureBox::Sizing::Fixed};

/// Draws the logo: a K of lamps, red to blue, on a dark matrix.
void drawLogo(PictureBox& box);

}  // namespace korvane
