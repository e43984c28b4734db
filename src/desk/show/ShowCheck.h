#pragma once

#include <optional>
#include <string>

#include "platform/Platform.h"

namespace korvane {

/// What is added to the name of a grid's file while the tool saves the show that needs it.
inline constexpr const char* kGridAsideEnding = ".new";

/// The two files from which a show is read.
struct ShowFiles {
  std::string show, grid;
};

/// Of a show what can be opened: nothing, itself, or its last whole version.
struct ReadableShow {
  std::optional<ShowFiles> files;
  std::string wrong;  ///< why it is not the show itself on its grid, for people
};

/// The files to open a show from, each tried out in a plug-in of its own that nobody sees. The
/// power may have failed while its grid or the show itself was being saved, so one that can't be
/// read on its grid is looked for on the grid that was to be saved next, on the grid before, and
/// then as it was before.
ReadableShow readableShow(const std::string& show, Platform& machine);

}  // namespace korvane
