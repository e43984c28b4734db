// Throws random commands at a whole plug-in: whatever a person, the desk or a file does, the
// process goes on and every reply keeps its form. The sanitizers watch.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "commands/ConsoleHost.h"
#include "commands/ConsolePlatform.h"
#include "commands/Interpreter.h"
#include "commands/Operations.h"
#include "persistence/MatrixDefinition.h"
#include "persistence/ProjectFile.h"
#include "platform/Text.h"

namespace korvane {
namespace {

constexpr int kLines = 20000;
constexpr int kSaves = 100;
constexpr int kLinesBetweenSaves = 30;

class RandomCommands {
 public:
  RandomCommands(const Desktop& desktop, const std::vector<Operation>& operations,
                 std::string folder)
      : desktop_(desktop), folder_(std::move(folder)) {
    for (const auto table : {personCommands(), deskCommands(), lookCommands()})
      commands_.insert(commands_.end(), table.begin(), table.end());
    for (const Form* form : desktop.forms()) {
      forms_.push_back(form->name());
      for (const Control* control : form->controls())
        controls_.push_back(form->name() + "." + control->name());
    }
    for (const Operation& operation : operations) operations_.emplace_back(operation.name);
  }

  std::string next() {
    if (desktop_.active() == nullptr) return "open";
    if (oneIn(3)) return anything();
    if (desktop_.modal() != nullptr) return fitting(*desktop_.modal());
    const Form& form = *pick(desktop_.forms());
    return form.visible() ? fitting(form) : anything();
  }

 private:
  /// A command that a person could give to a control of the window.
  std::string fitting(const Form& form) {
    if (form.controls().empty()) return "key " + form.name() + " " + pick(kKeys);
    const Control& control = *pick(form.controls());
    const std::string name = " " + form.name() + "." + control.name() + " ";
    switch (control.kind()) {
      case Kind::ListView:
        return oneIn(2) ? "pick" + name + number() + number()
                        : "edit" + name + number() + number() + pick(kTexts);
      case Kind::PictureBox:
        return oneIn(2) ? "mouse" + name + pick(kActions) + " " + number() + number()
                        : "drag" + name + number() + number() + number() + number();
      case Kind::ListBox:
      case Kind::Slider:
        return "set" + name + number();
      case Kind::TextBox:
        return oneIn(4) ? "key" + name + pick(kKeys) : "set" + name + pick(kTexts);
      default:
        return "click" + name;
    }
  }

  std::string anything() {
    const Command& command = pick(commands_);
    if (command.name == std::string("quit") || command.name == std::string("snapshot")) return "";
    std::string line = command.name;
    for (const std::string& argument : split(command.arguments, ' ')) {
      if (argument.starts_with('[') && oneIn(2)) break;
      if (!argument.empty()) line += " " + (oneIn(50) ? pick(kOdd) : value(argument));
    }
    return line;
  }

  bool oneIn(int count) { return std::uniform_int_distribution(1, count)(random_) == 1; }
  template <class Choices>
  typename Choices::value_type pick(const Choices& choices) {
    return choices[std::uniform_int_distribution<std::size_t>(0, std::size(choices) - 1)(random_)];
  }

  std::string number() { return std::string(pick(kNumbers)) + " "; }

  std::string value(const std::string& argument) {
    if (argument == "NAME") return oneIn(8) ? pick(forms_) : pick(controls_);
    if (argument == "FORM") return pick(forms_);
    if (argument == "DECK" || argument == "FRAME") return pick(kDecks);
    if (argument == "OPERATION") return pick(operations_);
    if (argument == "ACTION") return pick(kActions);
    if (argument == "PATH") return oneIn(2) ? "cancel" : folder_ + "/" + pick(kFiles);
    if (argument == "COLOR") return pick(kColors);
    if (argument == "CODE") return pick(kKeys);
    if (argument == "TEXT") return pick(kTexts);
    if (argument == "VALUE" && oneIn(3)) return pick(kTexts);
    return pick(kNumbers);
  }

  static constexpr std::array<const char*, 6> kOdd = {"x",    "-1", "99999999999",
                                                      "\"\"", "\"", "1e9"};
  static constexpr std::array<const char*, 3> kDecks = {"A", "B", "M"};
  static constexpr std::array<const char*, 5> kActions = {"down", "move", "up", "click",
                                                          "dblclick"};
  static constexpr std::array<const char*, 4> kFiles = {"a.Korvane", "b.Korvane", "c.korvaneconf",
                                                        "none.bmp"};
  static constexpr std::array<const char*, 3> kColors = {"000000", "FF8001", "ffffff"};
  static constexpr std::array<const char*, 4> kKeys = {"13", "27", "32", "65"};
  static constexpr std::array<const char*, 10> kTexts = {
      "\"\"", "x", "\"Text with ä and €\"", "0", "-1", "1,5", "1.5", "801", "32768", "1e400"};
  static constexpr std::array<const char*, 16> kNumbers = {
      "0", "0", "0", "1", "1", "2", "2", "3", "4", "5", "8", "11", "20", "49", "100", "400"};

  const Desktop& desktop_;
  std::string folder_;
  std::mt19937 random_{20};
  std::vector<Command> commands_;
  std::vector<std::string> forms_, controls_, operations_;
};

/// A desk with an open plug-in, in a folder of its own.
struct FuzzedDesk {
  explicit FuzzedDesk(const std::string& name) : folder(testing::TempDir() + name) {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    plugin.plugIn.ITharnPlugin_Init("", "", host);
  }
  ~FuzzedDesk() { std::filesystem::remove_all(folder); }
  FuzzedDesk(const FuzzedDesk&) = delete;
  FuzzedDesk& operator=(const FuzzedDesk&) = delete;

  std::string folder;
  ConsolePlatform platform;
  ConsoleHost host{{"show", folder + "/show"}, 512};
  Plugin plugin{platform};
  Engine& engine = plugin.engine;
  std::vector<Operation> operations = operationsOf(plugin, host);
  Interpreter interpreter{{engine, platform, host.calls, operations,
                           [this](std::int64_t time, const TimerQueue::Gate& gate) {
                             engine.timers.advanceTo(engine.timers.now() + time, gate);
                           }}};
  RandomCommands commands{engine.desktop, operations, folder};
};

TEST(Fuzz, RandomCommandsNeverBreakThePlugIn) {
  FuzzedDesk desk("korvane-console-fuzz");
  desk.interpreter.answer("open");
  int good = 0;
  for (int i = 0; i < kLines; ++i) {
    const std::string line = desk.commands.next();
    if (line.empty()) continue;
    SCOPED_TRACE("line " + std::to_string(i) + ": " + line);
    const std::string text = desk.interpreter.answer(line).value_or("");
    const Json reply = Json::parse(text, nullptr, false);
    ASSERT_TRUE(reply.is_object()) << text;
    const bool ok = reply["ok"] == true;
    ASSERT_TRUE(ok || reply.contains("error") || reply.contains("failure")) << text;
    good += ok ? 1 : 0;
  }
  EXPECT_GT(good, kLines / 10) << "most lines were refused: the test reaches too little";
}

std::string showOf(const Engine& engine) {
  std::string bytes;
  TextWriter writer(&bytes);
  writeProject(engine, {}, "show", writer);
  return bytes;
}

/// The lines of a show that another one has not. Left out is what loading makes of a show, as told:
/// the position of the master, which a slider rounds, a name for an effect without one, and a speed
/// of 0, which becomes 50 when the effect starts.
std::vector<std::string> differences(const std::string& saved, const std::string& loaded) {
  const std::vector<std::string> a = split(saved, '\n'), b = split(loaded, '\n');
  std::vector<std::string> found;
  if (a.size() != b.size()) found.push_back("another number of lines");
  for (std::size_t i = 1; i < std::min(a.size(), b.size()); ++i) {
    const bool made = (a[i] == "\r" && b[i] == "new effect\r") || (a[i] == "0\r" && b[i] == "50\r");
    if (a[i] != b[i] && i != 2 && !made)
      found.push_back(std::to_string(i + 1) + ": " + a[i] + " and " + b[i]);
  }
  return found;
}

/// Saves what the desk has; whether it says that it is saved. Then another desk can load it, and
/// has the same.
bool isKept(FuzzedDesk& desk) {
  const std::string path = desk.folder + "/kept.Korvane";
  desk.platform.boxes.clear();
  desk.platform.answers = {path};
  desk.plugin.matrixForm.save.click();
  desk.platform.answers.clear();
  if (desk.platform.boxes != std::vector<std::string>{"Matrix Project saved"}) return false;
  FuzzedDesk other("korvane-console-kept");
  writeDefinition(desk.engine, other.folder + "/show.korvaneconf", "grid");
  other.interpreter.answer("open");
  openProject(other.engine, path);
  EXPECT_THAT(differences(showOf(desk.engine), showOf(other.engine)), testing::IsEmpty());
  return true;
}

// Without unpick, which makes a list without a selection: such a show is not readable, as told.
TEST(Fuzz, WhatSaysThatItIsSavedCanBeLoadedAndHoldsTheSame) {
  FuzzedDesk desk("korvane-console-saves");
  desk.interpreter.answer("open");
  int saved = 0;
  for (int i = 0; i < kLinesBetweenSaves * kSaves; ++i) {
    const std::string line = desk.commands.next();
    if (line.empty() || line.starts_with("unpick")) continue;
    desk.interpreter.answer(line);
    if (i % kLinesBetweenSaves != 0) continue;
    SCOPED_TRACE("line " + std::to_string(i) + ": " + line);
    ASSERT_NO_THROW(saved += isKept(desk) ? 1 : 0);
    if (testing::Test::HasFailure()) return;
  }
  EXPECT_GT(saved, kSaves / 2) << "too few saves: the test reaches too little";
}

}  // namespace
}  // namespace korvane
