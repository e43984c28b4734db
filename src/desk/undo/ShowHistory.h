#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "desk/undo/StepName.h"

namespace korvane {

/// The steps by which a person changed the show, the grid and the list of cues, to go back and
/// forth. It looks from outside at what each event has changed.
class ShowHistory {
 public:
  /// Most memory that the steps hold beside the show itself; the oldest go first.
  static constexpr std::size_t kMostBytes = std::size_t{64} << 20;
  static constexpr std::size_t kMostSteps = 1000;
  /// Changes of one thing that follow each other so closely, in ms, are one step: typing, say.
  static constexpr std::int64_t kOneStep = 1000;

  ShowHistory(Plugin& plugin, ShowRun& run) : plugin_(plugin), run_(run) {}

  /// After each event of a person: what it changed is a step. Changes of one thing that are made
  /// while a mouse button is held, or close upon one another, are one.
  void note();
  /// After each pass over the timers: what an effect writes into its own record as it plays is no
  /// step.
  void played();
  /// Another show is there: nothing of the one before can be had back.
  void begin();

  /// One step back or forth; nothing if there is none, or while a question is open.
  void undo() { go(undo_, redo_); }
  void redo() { go(redo_, undo_); }
  /// What the next step takes back or makes again, for people; empty for none.
  std::string undoName() const { return undo_.empty() ? "" : undo_.back().name.text; }
  std::string redoName() const { return redo_.empty() ? "" : redo_.back().name.text; }
  /// What the newest steps did, for people, the newest first; the same words once.
  std::vector<std::string> newest(std::size_t most) const;
  /// Another number after each change that was noted, was taken back, or came with another show.
  std::int64_t version() const { return version_; }
  std::size_t steps() const { return undo_.size(); }
  std::size_t bytes() const { return bytes_; }

  /// The number of times that a mouse button was pressed, for the view; nullptr for none.
  std::function<std::int64_t()> presses;
  /// A mouse button is held.
  std::function<bool()> held;
  std::function<void()> onGrid;  ///< a step has changed the grid

 private:
  struct Step {
    ShowState other;  // before it, or after it for one that was taken back
    StepName name;
    std::size_t bytes = 0;
  };

  ShowState now() const { return stateOf(plugin_, run_.list, present_); }
  void go(std::deque<Step>& from, std::deque<Step>& to);
  bool goesOn(const StepName& name) const;
  void forget(std::deque<Step>& steps);
  void keepWithin();

  Plugin& plugin_;
  ShowRun& run_;
  ShowState present_;
  std::deque<Step> undo_, redo_;
  std::size_t bytes_ = 0;
  std::int64_t changedAt_ = 0;
  std::int64_t press_ = 0;
  std::int64_t version_ = 0;
  bool open_ = false;  // the newest step may still grow
};

}  // namespace korvane
