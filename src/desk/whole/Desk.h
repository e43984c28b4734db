#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desk/network/NetworkOutput.h"
#include "desk/show/DeskSession.h"
#include "desk/show/Grand.h"
#include "desk/show/RecentShows.h"
#include "desk/wall/Wiring.h"
#include "desk/windows/ChannelMonitor.h"
#include "desk/windows/DeskForm.h"
#include "desk/windows/DeskHelp.h"
#include "desk/windows/DeskQuestion.h"
#include "desk/windows/OutputSetup.h"

namespace korvane {

/// What the desk finds on the machine.
struct DeskPlaces {
  std::string project;                 ///< path of the first project, without an ending
  std::vector<Example> examples = {};  ///< shows that come with the program
  std::string recentShows = {};        ///< file that keeps them; empty: not kept
};

/// The stand-alone desk without a screen: a show, the desk's windows beside the plug-in's, and what
/// leaves the desk. Whoever drives it calls settle() and refresh() as they say.
class Desk {
 public:
  Desk(Platform& machine, NetworkOutput& output, const DeskPlaces& places);

  /// Shows the desk's window.
  void show();
  /// Opens a show. The person is asked first if changes would be lost.
  void openShow(const std::string& path);
  /// After each pass over the timers: sends what has changed, and shows how that fares.
  void settle();
  /// After each event of a person: as settle(), and shows all that such an event can change.
  void refresh();
  /// Ends the sending, with the lamps dark or holding what they show.
  void finish(bool dark);
  bool closed() const { return closing_; }

  Engine& engine() { return session.plugin.engine; }
  /// The levels that leave the desk now: those of the lamp test while there is one.
  Levels leaving();
  bool sending() { return session.plugin.engine.v.outputActive && setup.sending(); }

  DeskSession session;
  DeskForm form;
  DeskQuestion question;
  OutputSetup setup;
  Wiring wiring;
  ChannelMonitor monitor;
  DeskHelp helpWindow;
  Grand grand;

  std::function<void()> onQuit;  ///< the desk was closed

 private:
  void bindFiles();
  void bindWindows();
  void bindPlay();
  void bindKeysOfDialogs();
  void bindFields();
  void message(std::int32_t number, std::int32_t argument = 0);
  void leaveShow(std::function<void()> then);
  bool save();
  bool saveAs();
  bool mayClose();
  void close();

  /// The one place where levels leave the desk.
  void send();
  void followDmx();
  void followGrid();
  void keepTime();
  void showState();
  void showTitle();
  std::string whatIsSent();
  std::string whatIsWrong();

  NetworkOutput& output_;
  RecentShows recent_;
  Timer refresh_;
  bool wasActive_ = false;
  bool closing_ = false;
  bool gridOpen_ = false;
  int loads_ = 0;
  std::pair<int, int> grid_;
  std::optional<WallPicture> test_;  // of the lamps
};

}  // namespace korvane
