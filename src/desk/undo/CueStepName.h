#pragma once

#include <optional>

#include "desk/cues/Cue.h"
#include "desk/undo/StepName.h"

namespace korvane {

/// Names what a person has changed in a list of cues; nothing if only rows have other names.
std::optional<StepName> nameOfCueStep(const CueList& before, const CueList& after);

}  // namespace korvane
