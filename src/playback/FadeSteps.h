#pragma once

#include "state/Engine.h"

namespace korvane {

/// The step `fadeStep` of the running fade in `frameM` and `fadeMap`, by `fadeTypeNow`. Types that
/// move the whole picture have none. kSubscript when "Fill up" finds no cell left in its column.
void fadeStepOfType(Engine& engine);

}  // namespace korvane
