#pragma once

#include <memory>
#include <string>
#include <vector>

#include "desk/show/Examples.h"
#include "desk/show/RecentShows.h"
#include "platform/Controls.h"
#include "platform/Form.h"

namespace korvane {

/// The desk's one window: menus above, the plug-in's main window within it or, while that is
/// closed, a page to begin from, below it what the operator needs at any time, and a line that
/// tells what is sent and what is wrong. What its items do is bound by the desk.
class DeskForm : public Form {
 public:
  DeskForm(Form& tool, const std::vector<Example>& examples);

  /// Shows the paths in the menu, the newest first.
  void showRecent(const std::vector<std::string>& paths);

  MenuItem newShow, open, save, saveAs, openLast, quit;
  MenuItem undo, redo;
  std::vector<std::unique_ptr<MenuItem>> recent, examples;
  MenuItem tool, configure, wiring, output, channels, front, narrow, full;
  MenuItem beat, blackout, freeze, masterUp, masterDown, steeper, flatter, dmx;
  MenuItem cues;
  std::vector<std::unique_ptr<MenuItem>> commands;  ///< of a show that runs by itself
  MenuItem help;
  Group begin, pane;
  Label welcome, hint;
  Slider grandMaster;
  Label sent, wrong;

 private:
  void addControls();
  void declareMenus();
  void declareLayout(Form& toolWindow);
  Layout beginPage();
};

}  // namespace korvane
