#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "commands/RandomPerson.h"
#include "commands/TestOperatorSession.h"
#include "testing/SourceFolder.h"

namespace korvane {

inline long fromEnvironment(const char* name, long otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : std::atol(text);
}

/// What many sessions came to: shows saved, saves refused, commands, and those that were done.
struct Tally {
  int saved = 0, refused = 0, actions = 0, done = 0;
};

/// Presses what a person can press, and makes the way to a loss short.
template <class Console>
class RandomOperator {
 public:
  using Script = std::vector<Action>;

  explicit RandomOperator(std::uint64_t seed) : seed_(seed) {}

  /// Plays a session; what was lost, empty if all was well. The script is what
  /// was done.
  std::string play(int actions, Tally& tally) {
    OperatorSession<Console> session = fresh();
    RandomPerson person(session.engine().desktop, seed_);
    std::ofstream trace(tracePath());
    const auto perform = [&](const Action& action) {
      script.push_back(action);
      trace << text(action) << std::flush;
      session.perform(action);
    };
    std::string lost;
    try {
      for (int i = 0; i < actions && !session.over(); ++i) {
        Action action{person.next()};
        if (!asks_.empty() && person.oneIn(30)) action.line = "click " + someAsker(person);
        const std::string name = nameIn(action.line);
        if (asks_.contains(name) && !person.oneIn(8)) {
          perform({"answer " + session.folder() + "/" + person.fileFor(asks_.at(name))});
          if (person.oneIn(6)) action.room = static_cast<std::size_t>(person.upTo(4000));
        }
        perform(action);
        if (!session.asked.empty()) asks_[name] = session.asked.back();
        ++tally.actions;
        tally.done += session.reply["ok"] == Json(true) ? 1 : 0;
      }
    } catch (const ShowLost& failure) {
      lost = failure.what();
    }
    tally.saved += session.saved;
    tally.refused += session.refused;
    std::filesystem::remove(tracePath());
    return lost;
  }

  /// Leaves out of the script whatever the loss does not need.
  void shorten() {
    int replays = kMostReplays;
    for (std::size_t part = script.size() / 2; part > 0; part /= 2) {
      for (std::size_t at = 0; at < script.size() && replays > 0;) {
        Script shorter = script;
        const auto from = shorter.begin() + static_cast<std::ptrdiff_t>(at);
        shorter.erase(from,
                      from + static_cast<std::ptrdiff_t>(std::min(part, shorter.size() - at)));
        --replays;
        if (loses(shorter))
          script = shorter;
        else
          at += part;
      }
    }
  }

  std::string scriptText() const {
    std::string all;
    for (const Action& action : script) all += text(action);
    return all;
  }

  Script script;

 private:
  static constexpr int kMostReplays = 150;  // while a failing script is made shorter

  // What was done so far, should the process end.
  std::string tracePath() const {
    return testing::TempDir() + "korvane-operator-" + std::to_string(seed_) + ".script";
  }
  OperatorSession<Console> fresh() const { return {sourceFolder() + "/examples", seed_}; }

  bool loses(const Script& actions) const {
    OperatorSession<Console> session = fresh();
    try {
      for (const Action& action : actions) session.perform(action);
    } catch (const ShowLost&) {
      return true;
    }
    return false;
  }

  static std::string text(const Action& action) {
    const std::string room =
        action.room == SimulatedDisk::kUnlimited
            ? ""
            : "# the disk has room for " + std::to_string(action.room) + " bytes:\n";
    return room + action.line + "\n";
  }

  static std::string nameIn(const std::string& line) {
    const std::vector<std::string> words = tokens(line);
    return words.size() < 2 ? "" : words[1];
  }

  std::string someAsker(RandomPerson& person) const {
    return std::next(asks_.begin(), person.upTo(static_cast<int>(asks_.size()) - 1))->first;
  }

  std::uint64_t seed_;
  std::map<std::string, FileQuestion> asks_;
};

/// Plays sessions, each from a seed of its own, until so many commands were given:
/// KORVANE_ACTIONS, or else `usual`, from KORVANE_SEED on. Whatever was said to be saved can be
/// loaded and holds the same, and nothing crashes.
template <class Console>
void playRandomly(long usual) {
  constexpr int kSessionActions = 1500;
  const long actions = fromEnvironment("KORVANE_ACTIONS", usual);
  Tally tally;
  for (long seed = fromEnvironment("KORVANE_SEED", 1); tally.actions < actions; ++seed) {
    RandomOperator<Console> someone(static_cast<std::uint64_t>(seed));
    const std::string lost = someone.play(kSessionActions, tally);
    if (lost.empty()) continue;
    std::cout << "KORVANE_SEED=" << seed << ": " << lost << "; looking for the shortest way there\n"
              << std::flush;
    someone.shorten();
    ADD_FAILURE() << "KORVANE_SEED=" << seed << ": " << lost << "\nafter\n" << someone.scriptText();
  }
  std::cout << tally.actions << " actions, " << tally.done << " done, " << tally.saved
            << " shows saved, " << tally.refused << " saves refused\n";
  EXPECT_GT(tally.done, actions / 2) << "most commands were refused: the test reaches too little";
  EXPECT_GT(tally.saved, actions / 1000) << "hardly anything was saved";
}

}  // namespace korvane
