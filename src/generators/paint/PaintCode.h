#pragma once

#include "state/Engine.h"

namespace korvane {

/// Copies `paintPixels` into the deck's frame, without publishing it. kSubscript if the picture is
/// smaller than the matrix.
void paintPicture(Engine& engine, Deck& deck);

/// The same, published.
void renderPaint(Engine& engine, Deck& deck);

}  // namespace korvane
