#pragma once

#include <optional>

#include "platform/ListView.h"
#include "views/win32/kinds/Widget.h"

namespace korvane::win32 {

/// Draws the cells of the coloured columns, each in its row's colour; the answer to the stages of
/// a list's drawing.
LRESULT drawCell(const ListView& list, const Scale& scale, const NMLVCUSTOMDRAW& stage);

}  // namespace korvane::win32
