#pragma once

#include "platform/Controls.h"
#include "platform/Form.h"
#include "state/Engine.h"

namespace korvane {

/// The simulation window: shows the mix as a grid of boxes, as big as it has room, in a frame or on
/// the whole screen. It has no controls; its whole surface is the picture. It is switched by the
/// check box `mxsim_active` of the main window.
class MxSimForm : public Form {
 public:
  MxSimForm(Engine& engine, CheckBox& mxsim_active);

  /// Fits the grid to the window and paints all of it, with the decks' timers stopped.
  void Form_Resize();
  /// Gives the window its title bar, or takes it; true if the window system took it over.
  bool ToggleCaption(bool value);

 private:
  void Form_KeyPress(int key);
  void fitGrid();

  Engine& engine_;
  CheckBox& mxsim_active_;
};

}  // namespace korvane
