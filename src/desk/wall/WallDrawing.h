#pragma once

#include <optional>
#include <vector>

#include "desk/wall/WallPicture.h"
#include "platform/Raster.h"

namespace korvane {

/// Where the lamps of a wall stand in a picture: equal squares, as large as there is room for, in
/// the middle.
struct WallGeometry {
  int cell = 0;  ///< side of a lamp's square in pixels; 0: there is no room
  int left = 0;
  int top = 0;

  WallGeometry(const Patch& patch, int width, int height);
  int x(const LampAt& lamp) const { return left + lamp.col * cell; }
  int y(const LampAt& lamp) const { return top + lamp.row * cell; }
};

/// The lamp under a point of the picture; nothing beside the wall.
std::optional<LampAt> lampUnder(const Patch& patch, const Raster& picture, int x, int y);

/// Lamps that a test lights, and the colour in which they shine.
struct LitLamps {
  std::vector<LampAt> lamps;
  Color color = 0;
};

/// Draws the wall: each lamp in the colour of its first universe with its number along the wire,
/// the wire from lamp to lamp (a dot at its begin, dotted where it jumps), a red frame round lamps
/// that share a channel, a cross over lamps that stay dark, and the lit ones bright. Where numbers
/// find no room, the first lamp of each universe alone has one.
void drawWall(Raster& picture, const Patch& patch, const LitLamps& lit);

}  // namespace korvane
