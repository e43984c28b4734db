#pragma once

#include <string>

#include "desk/show/KeptChoices.h"
#include "desk/windows/MixerParts.h"

namespace korvane {

/// What a person has chosen for the desk, whatever the show, and finds again at the next start.
class DeskChoices {
 public:
  /// `file` keeps them; empty: they are forgotten with the program.
  DeskChoices(const std::string& file, Disk& disk, MixerParts& mixer);

 private:
  void bindColors();

  KeptChoices kept_;
  MixerParts& mixer_;
};

}  // namespace korvane
