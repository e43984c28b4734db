#pragma once

#include <string>

#include "desk/undo/ShowState.h"

namespace korvane {

/// What a step did, for people: "speed of 'Embers'", "removed 'Embers'", "size of the grid". And a
/// key that two steps share if they did it to the same thing.
struct StepName {
  std::string text;
  std::string key;
  bool grows = false;  ///< Further changes of the same thing, close upon it, belong to it.
};

/// Names what has changed between two states, which differ.
StepName nameOfStep(const ShowState& before, const ShowState& after);

}  // namespace korvane
