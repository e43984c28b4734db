#pragma once

#include "views/shared/windows/DesktopView.h"
#include "views/win32/windows/FormWindow.h"

namespace korvane::win32 {

using DesktopView = DesktopViewOf<FormWindow>;

}  // namespace korvane::win32
