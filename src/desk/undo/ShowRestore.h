#pragma once

#include <functional>

#include "desk/undo/ShowState.h"

namespace korvane {

/// Puts the show and the grid back into a state. What plays goes on: an effect starts anew only if
/// it is on and is another than before, or on a grid of another size. An open dialog of an effect
/// that changes shows it as it is then; its row's effect is never written over by what it held.
/// `now` is the present state; `gridChanged` runs when the grid is another one.
void restoreShow(Plugin& plugin, const ShowState& now, const ShowState& to,
                 const std::function<void()>& gridChanged);

}  // namespace korvane
