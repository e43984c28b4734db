// A random operator works on the desk, and takes back all that was done: the first state stands
// there again, byte for byte; then makes it all again.
//   KORVANE_ACTIONS=1000000 KORVANE_SEED=1 korvane-commands-tests --gtest_filter='UndoneOperator.*'

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>

#include "commands/ConsolePlatform.h"
#include "commands/HostCalls.h"
#include "commands/Interpreter.h"
#include "commands/Operations.h"
#include "commands/RandomPerson.h"
#include "desk/cues/CueSections.h"
#include "desk/show/Examples.h"
#include "desk/whole/Desk.h"
#include "persistence/MatrixDefinition.h"
#include "persistence/ProjectFile.h"
#include "testing/SourceFolder.h"

namespace korvane {
namespace {

constexpr long kSmokeActions = 3000;
constexpr int kSessionActions = 300;
constexpr const char* kCues = "click Desk.cues";
constexpr const char* kUndo = "click Desk.undo";

long fromEnvironment(const char* name, long otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : std::atol(text);
}

/// A desk at which a random person works.
class WorkedDesk {
 public:
  explicit WorkedDesk(std::uint64_t seed)
      : person_(desk.engine().desktop, seed), folder_(testing::TempDir() + "korvane-undone") {
    std::filesystem::create_directories(folder_);
    platform_.clock = [this] { return desk.engine().timers.now(); };
    platform_.pictures = [](const std::string&) { return Raster(9, 7, rgb(200, 100, 50)); };
    desk.engine().random.seed(seed);
    desk.show();
    answer("click Desk.tool");
  }
  ~WorkedDesk() { std::filesystem::remove_all(folder_); }
  WorkedDesk(const WorkedDesk&) = delete;
  WorkedDesk& operator=(const WorkedDesk&) = delete;

  void work() {
    if (!desk.session.plugin.matrixForm.visible() && desk.engine().desktop.modal() == nullptr)
      answer("click Desk.tool");
    std::string line;
    do line = person_.next();
    while (leavesTheShow(line));
    if (line == "click MatrixForm.load" || line == "click MatrixConf.load")
      answer("answer " + person_.pick(examples_).path);
    else if (line.find(".save") != std::string::npos)
      answer("answer " + folder_ + "/some.any");
    answer(line);
  }
  std::string contents() {
    std::string text;
    TextWriter writer(&text);
    writeComposition(desk.engine(), {}, writer);
    writeDefinition(desk.engine(), desk.session.plugin.matrixConf.MName.text(), writer);
    for (const Section& section : cueSections(desk.cues.run)) {
      if (section.name == "cues") text += section.write().dump();
    }
    return text;
  }
  /// Closes what stands before a step, a question or the colour mixer. Whether there was one.
  bool closesModal() {
    const Form* modal = desk.engine().desktop.modal();
    if (modal != nullptr) answer("close " + modal->name());
    return modal != nullptr;
  }
  void answer(const std::string& line) {
    interpreter_.answer(line);
    desk.refresh();
    if (onAnswer) onAnswer(line == kUndo);
  }
  std::function<void(bool undone)> onAnswer;

 private:
  // Commands of the desk that begin another history or end it, and its own windows.
  bool leavesTheShow(const std::string& line) {
    for (const char* word : {" Desk", " Wiring", "call ", "open", " MatrixForm.Closeall"}) {
      if (line.find(word) != std::string::npos)
        return (line != kUndo && line != kCues) || !person_.oneIn(20);
    }
    return false;
  }

  ConsolePlatform platform_;
  LampFeed feed_{"korvane-tests"};
  HostCalls calls_{1000};

 public:
  Desk desk{platform_, feed_, {testing::TempDir() + "korvane-undone/show"}};

 private:
  Interpreter interpreter_{{desk.engine(), platform_, calls_,
                            operationsOf(desk.session.plugin, desk.session.host),
                            [this](std::int64_t time, const TimerQueue::Gate& gate) {
                              TimerQueue& timers = desk.engine().timers;
                              timers.advanceTo(timers.now() + time, gate);
                              desk.settle();
                            }}};
  RandomPerson person_;
  std::string folder_;
  std::vector<Example> examples_ = examplesIn(sourceFolder() + "/examples");
};

TEST(UndoneOperator, FindsTheFirstStateByteForByteAndTheLastOne) {
  const long actions = fromEnvironment("KORVANE_ACTIONS", kSmokeActions);
  const long first = fromEnvironment("KORVANE_SEED", 1);
  std::size_t all = 0, ofCues = 0;
  for (long seed = first; seed < first + (actions + kSessionActions - 1) / kSessionActions;
       ++seed) {
    SCOPED_TRACE("KORVANE_SEED=" + std::to_string(seed));
    WorkedDesk worked(static_cast<std::uint64_t>(seed));
    ShowHistory& history = worked.desk.history;
    std::vector<std::string> states = {worked.contents()};
    worked.onAnswer = [&](bool undone) {
      ASSERT_LE(history.steps(), states.size()) << "one event is one step";
      states.resize(history.steps() + 1);
      if (undone) {
        ASSERT_EQ(worked.contents(), states.back());
      }
      states.back() = worked.contents();  // what plays may have changed its own record
    };
    for (int i = 0; i < kSessionActions && !HasFatalFailure(); ++i) worked.work();
    while (worked.closesModal()) {
    }
    worked.onAnswer = nullptr;
    ASSERT_EQ(worked.contents(), states.back());
    all += history.steps();
    for (std::size_t step = history.steps(); step > 0; --step) {
      const std::string name = history.undoName();
      ofCues += name.find("cue") != std::string::npos ? 1 : 0;
      worked.answer(kUndo);
      ASSERT_EQ(history.steps(), step - 1) << name;
      ASSERT_EQ(worked.contents(), states[step - 1]) << "undo of " << name;
    }
    for (std::size_t step = 1; step < states.size(); ++step) {
      const std::string name = history.redoName();
      worked.answer("click Desk.redo");
      ASSERT_EQ(worked.contents(), states[step]) << "redo of " << name;
    }
  }
  EXPECT_GT(all, static_cast<std::size_t>(actions) / 40) << "hardly anything was changed";
  EXPECT_GT(ofCues, 0U);
  std::cout << all << " steps, " << ofCues << " of them of the cues\n";
}

}  // namespace
}  // namespace korvane
