#pragma once

namespace korvane {

/// Where a window stands on the screens, in their pixels, and whether it fills its screen; it goes
/// back to that place when it does so no longer.
struct WindowPlace {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  bool maximized = false;

  bool operator==(const WindowPlace&) const = default;
};

}  // namespace korvane
