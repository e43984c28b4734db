#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "desk/output/LampFeed.h"
#include "desk/project/Parts.h"
#include "desk/show/DeskSession.h"
#include "desk/show/KeptOutputs.h"
#include "desk/undo/ShowHistory.h"
#include "desk/wall/Wiring.h"
#include "desk/whole/DeskChoices.h"
#include "desk/whole/DeskCues.h"
#include "desk/whole/DeskFiles.h"
#include "desk/whole/DeskKeys.h"
#include "desk/whole/EffectRows.h"
#include "desk/whole/FadeRows.h"
#include "desk/whole/RowPictures.h"
#include "desk/windows/ChannelMonitor.h"
#include "desk/windows/DeskForm.h"
#include "desk/windows/DeskHelp.h"
#include "desk/windows/DeskQuestion.h"
#include "desk/windows/MixerParts.h"
#include "desk/windows/OutputSetup.h"

namespace korvane {

/// What the desk finds on the machine.
struct DeskPlaces {
  std::string project;                 ///< path of the first project, without an ending
  std::vector<Example> examples = {};  ///< shows that come with the program
  std::string recentShows = {};        ///< file that keeps them; empty: not kept
  std::string outputs = {};            ///< file that keeps them; empty: not kept
  std::string kept = {};     ///< folder for what was changed and not saved; empty: not kept
  std::string choices = {};  ///< file that keeps them; empty: not kept
  std::string keys = {};     ///< file that keeps them; empty: not kept
};

/// The stand-alone desk without a screen: a show, the desk's windows beside the plug-in's, and what
/// leaves the desk. Whoever drives it calls settle() and refresh() as they say.
class Desk {
 public:
  Desk(Platform& machine, LampFeed& feed, const DeskPlaces& places);

  /// Shows the desk's window.
  void show();
  /// After each pass over the timers: sends what has changed, and shows how that fares.
  void settle();
  /// Carries out a command of the table by its name; `argument` is the cue of those that need one,
  /// from 1. False if there is none, or it can't be done now.
  bool command(const std::string& name, int argument = 0);
  /// After each event of a person: as settle(), and shows all that such an event can change.
  void refresh();
  /// Ends the sending, each output as it is set unless told otherwise.
  void finish(std::optional<AtEnd> how = {});
  bool closed() const { return closing_; }
  /// The windows before which the desk's own can come: not dialogs, which stay above it.
  std::set<const Form*> windowsBeside() const {
    return {&cues.form, &keys.form, &setup, &monitor, &wiring, &helpWindow};
  }

  Engine& engine() { return session.plugin.engine; }
  /// What leaves the desk now, before the outputs' curves and white balance.
  WallPicture leaving() const { return feed_.leaving(); }
  const WallLevels& levels() const { return feed_.levels(); }
  bool sending() { return session.plugin.engine.v.outputActive && setup.sending(); }

  DeskSession session;
  DeskForm form;
  DeskQuestion question;
  OutputSetup setup;
  Wiring wiring;
  ChannelMonitor monitor;
  DeskHelp helpWindow;
  MixerParts mixer;
  RowPictures pictures;
  DeskChoices choices;
  DeskFiles files;
  DeskCues cues;
  ShowHistory history;
  DeskKeys keys;
  EffectRows effectRows;
  FadeRows fadeRows;

  std::function<void()> onQuit;  ///< the desk was closed

 private:
  void bindExamples(const std::vector<Example>& examples);
  void bindProject();
  void bindHistory();
  void bindWindows();
  void bindPlay();
  void bindLevels();
  void takeOutputs();
  void message(std::int32_t number, std::int32_t argument = 0);
  bool mayClose();
  void close(std::optional<AtEnd> how = {});

  /// The one place where levels leave the desk.
  void send();
  void showAll();
  int universesOfWall();
  void followDmx();
  void followGrid();
  void followShow();
  void keepTime();
  void showState();
  std::string whatIsSent();
  std::string whatIsWrong();
  std::string darkLamps();

  LampFeed& feed_;
  KeptOutputs kept_;
  RemoteSettings remote_;
  WallLevels levels_;  // as a person sets them
  bool dark_ = false;  // all lamps, since the output was switched off
  Timer refresh_;
  bool wasActive_ = false;
  bool closing_ = false;
  bool gridOpen_ = false;
  int loads_ = 0;
  int noted_ = 0;  // loads that the history knows
  std::pair<int, int> grid_;
  bool testing_ = false;  // the lamps
};

}  // namespace korvane
