#pragma once

#include "desk/cues/PlugInStage.h"
#include "desk/cues/ShowRun.h"
#include "desk/windows/CuesForm.h"
#include "desk/windows/DeskForm.h"

namespace korvane {

/// Cues, automatic play and the tempo on the desk: their window, and their commands in its menu.
class DeskCues {
 public:
  DeskCues(Plugin& plugin, DeskForm& desk);

  /// After each pass over the timers: shows how long it still takes.
  void settle();
  /// After each event of a person: rows may have other names, cues other rows.
  void refresh();
  /// True while the window counts down.
  bool counting() const { return form.visible() && form.counting(); }

  PlugInStage stage;
  ShowRun run;
  CuesForm form;

 private:
  void showCommands();

  DeskForm& desk_;
};

}  // namespace korvane
