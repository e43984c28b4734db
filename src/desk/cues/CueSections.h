#pragma once

#include "desk/cues/ShowRun.h"
#include "desk/project/DeskProject.h"

namespace korvane {

/// The members "cues", "automatic" and "tempo" of a desk's project. They are read when the show's
/// lists stand: a row is found again by its place and name, else by its name alone.
std::vector<Section> cueSections(ShowRun& run);

/// Where a run stands, for who goes on from there after a crash: the cue that is on, what is on the
/// stage, automatic play.
Json toJson(const ShowRun& run);
/// Brings the stage and the run to where another one stood. False, with nothing done, if the member
/// tells of none.
bool goOnFrom(ShowRun& run, const Member& member);

}  // namespace korvane
