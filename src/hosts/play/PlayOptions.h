#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "desk/cues/Evening.h"
#include "desk/output/OutputConfig.h"
#include "desk/wall/WallLevels.h"
#include "hosts/play/Film.h"

namespace korvane {

/// The command line of the player.
struct PlayOptions {
  std::string show;                   ///< any file of a project; empty to go on with the last one
  std::vector<OutputConfig> outputs;  ///< none: those of the project
  WallLevels levels;                  ///< grand master, blackout, freeze at the start
  bool masterGiven = false;           ///< else the grand master is that of the project
  double seconds = 0;                 ///< length of the play, 0 plays until it is ended
  bool resume = false;    ///< goes on where the last run was, and remembers where this one is
  bool lastShow = false;  ///< no show was named: that of the last run, with its outputs
  EveningPlan evening;    ///< what runs by itself, and when
  std::optional<AutoPlaySettings> automatic;  ///< none: as the project says
  FilmOptions film;                           ///< instead of playing
  bool help = false;
};

/// A wrong command line; the text says what is wrong with it.
struct PlayUsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

extern const char* const kPlayUsage;

/// Reads the command line; throws PlayUsageError.
PlayOptions parsePlayOptions(int count, char** words);

}  // namespace korvane
