#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "desk/keys/CommandTable.h"
#include "desk/show/Examples.h"
#include "desk/show/RecentShows.h"
#include "platform/Controls.h"
#include "platform/Form.h"

namespace korvane {

inline constexpr int kFullMaster = 100;  ///< per cent, of the grand master

/// The desk's one window: menus above, the plug-in's main window within it or, while that is
/// closed, a page to begin from, below it what the operator needs at any time, and a line that
/// tells what is sent and what is wrong. What its items do is bound by the desk.
class DeskForm : public Form {
 public:
  DeskForm(Form& tool, const std::vector<Example>& examples);

  /// Shows the paths in the menu, the newest first.
  void showRecent(const std::vector<std::string>& paths);
  /// The items of all menus.
  std::vector<MenuItem*> items() const;

  CommandItem newShow{"newShow"}, open{"open"}, save{"save"}, saveAs{"saveAs"};
  CommandItem openLast{"openLast"}, quit{"quit"};
  CommandItem undo{"undo"}, redo{"redo"};
  std::vector<std::unique_ptr<MenuItem>> recent, examples;
  CommandItem tool{"tool"}, configure{"configure"}, wiring{"wiring"}, output{"output"};
  CommandItem channels{"channels"}, front{"front"}, narrow{"narrow"}, full{"full"};
  CommandItem beat{"beat"}, blackout{"blackout"}, freeze{"freeze"}, dmx{"dmx"};
  CommandItem masterUp{"masterUp"}, masterDown{"masterDown"};
  CommandItem steeper{"steeper"}, flatter{"flatter"};
  CommandItem lessRed{"lessRed"}, lessGreen{"lessGreen"}, lessBlue{"lessBlue"};
  CommandItem whiteBack{"whiteBack"};
  CommandItem faderLeft{"faderLeft"}, faderRight{"faderRight"};
  CommandItem faderFarLeft{"faderFarLeft"}, faderFarRight{"faderFarRight"};
  CommandItem cutLeft{"cutLeft"}, cutRight{"cutRight"};
  CommandItem fadeLeft{"fadeLeft"}, fadeRight{"fadeRight"};
  using Items = std::vector<std::unique_ptr<CommandItem>>;
  Items leftEffects, rightEffects, fades;  ///< the first rows of the lists
  CommandItem pictures{"pictures"};
  /// As the system has it, light, dark.
  std::array<CommandItem, 3> looks{CommandItem("lookSystem"), CommandItem("lookLight"),
                                   CommandItem("lookDark")};
  CommandItem cues{"cues"};
  Items commands;  ///< of a show that runs by itself
  CommandItem keys{"keys"}, help{"help"};
  Group begin{"begin"}, pane{"pane"};
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
