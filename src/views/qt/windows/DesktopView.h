#pragma once

#include "views/qt/windows/FormWindow.h"
#include "views/shared/windows/DesktopView.h"

namespace korvane::qt {

using DesktopView = DesktopViewOf<FormWindow>;

}  // namespace korvane::qt
