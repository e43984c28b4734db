#pragma once

#include <functional>
#include <string>

#include "desk/project/DeskProject.h"

namespace korvane {

/// Where a player is, kept in a file so that it goes on there after a crash or a power cut: a row
/// for each part that can tell where it is.
class PlayState {
 public:
  /// `file` keeps it; its folder is made when it is needed.
  explicit PlayState(std::string file) : file_(std::move(file)) {}

  /// A part of the state. Of one that moves by itself, a fader say, Counts::Never: it is written
  /// with the others, and when all has come to rest.
  void add(Section section) { state_.add(std::move(section)); }
  /// Takes what the file has into all parts. What is wrong with it, for people.
  std::vector<std::string> resume() { return state_.open(file_); }
  /// Writes what has changed. A Failure, once for the same change, if that can't be done.
  void keep(bool atRest);

  /// The show of the file; empty for none.
  static std::string showOf(const std::string& file);

 private:
  std::string file_;
  DeskProject state_;
  std::string counted_, whole_;  // as they were written last
};

/// Where the player of this person keeps it.
std::string playStateFile();

}  // namespace korvane
