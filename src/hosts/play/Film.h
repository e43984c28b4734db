#pragma once

#include <cstdint>
#include <string>

#include "shell/Plugin.h"

namespace korvane {

/// What a film is made into.
struct FilmOptions {
  std::string gif;   ///< file of an animated picture
  bool raw = false;  ///< to standard output: the bytes red, green, blue of each lamp, by rows
  bool wanted() const { return raw || !gif.empty(); }
};

inline constexpr int kFilmInterval = 40;  ///< ms between two pictures

/// Plays so many milliseconds in virtual time, as fast as it goes, and makes a film of them. Each
/// tick runs through the gate. A progress bar is shown if standard error is a terminal.
/// False if whoever reads standard output has gone. What can't be written is a std::runtime_error.
bool makeFilm(Engine& engine, const FilmOptions& options, std::int64_t milliseconds,
              const TimerQueue::Gate& gate);

}  // namespace korvane
