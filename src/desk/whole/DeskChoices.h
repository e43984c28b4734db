#pragma once

#include <functional>
#include <string>

#include "desk/show/KeptChoices.h"
#include "desk/whole/RowPictures.h"
#include "desk/windows/DeskForm.h"
#include "desk/windows/MixerParts.h"

namespace korvane {

/// The look of all windows: as the system has it, or one of the two.
enum class WindowLook { System, Light, Dark };

/// What a person has chosen for the desk, whatever the show, and finds again at the next start.
class DeskChoices {
 public:
  /// `file` keeps them; empty: they are forgotten with the program.
  DeskChoices(const std::string& file, Disk& disk, DeskForm& form, MixerParts& mixer,
              RowPictures& pictures);

  WindowLook look() const { return look_; }
  std::function<void()> onLook;  ///< another look was chosen

 private:
  void bindColors();
  void bindLooks();
  void bindPictures();
  void take(WindowLook look);

  KeptChoices kept_;
  DeskForm& form_;
  MixerParts& mixer_;
  RowPictures& pictures_;
  WindowLook look_ = WindowLook::System;
};

}  // namespace korvane
