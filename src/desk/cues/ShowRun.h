#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "desk/cues/AutoPlay.h"
#include "desk/cues/CueRunner.h"
#include "desk/cues/Tempo.h"

namespace korvane {

/// What lets a show run by itself: its cues, automatic play, and the tempo. Cues and automatic play
/// take turns: whichever is started ends the other.
class ShowRun {
 public:
  ShowRun(TimerQueue& timers, ShowStage& stage);

  /// No cues, no automatic play, no tempo: that of a new project.
  void clear();
  /// The names of the rows are kept with the cues, as long as their rows are there.
  void followNames();
  /// Other lists were loaded into the show: each row is found again by its name.
  void findRows();
  /// A cue of what is on: both effects, and the selected fade to the deck that is seen.
  Cue recorded() const;
  /// Records a cue behind the one that is on, or at the end; its index.
  int record();

  void startAutoPlay(bool on);
  /// A beat of the music, from wherever it comes.
  void beat();
  /// Stands where it would if it had begun so many milliseconds ago: with automatic play, or with
  /// the first cue.
  void catchUp(std::int64_t milliseconds, bool automaticPlay);

  ShowStage& stage;
  CueList list;
  CueRunner cues;
  AutoPlay automatic;
  Tempo tempo;
};

/// One command of a running show, by its name. Keys reach it, and whatever else can name it.
struct ShowCommand {
  const char* name;
  const char* caption;
  const char* toolTip;
  const char* key;  ///< default key; empty for none
  bool ofCue;       ///< it needs to be told which cue, from 1
  void (*run)(ShowRun& show, int argument);
};

std::span<const ShowCommand> showCommands();
/// The command of this name, nullptr if there is none.
const ShowCommand* showCommand(const std::string& name);
/// Carries out a command; `argument` is the cue of those that need one, from 1. False if there is
/// no command of the name.
bool runCommand(ShowRun& show, const std::string& name, int argument = 0);

}  // namespace korvane
