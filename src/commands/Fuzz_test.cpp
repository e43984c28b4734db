// Throws random commands at a whole plug-in: whatever a person, the desk or a file does, the
// process goes on and every reply keeps its form. The sanitizers watch.

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "commands/ConsoleHost.h"
#include "commands/ConsolePlatform.h"
#include "commands/Interpreter.h"
#include "commands/Operations.h"
#include "platform/Text.h"

namespace korvane {
namespace {

constexpr int kLines = 20000;

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

TEST(Fuzz, RandomCommandsNeverBreakThePlugIn) {
  const std::string folder = testing::TempDir() + "korvane-console-fuzz";
  std::filesystem::create_directories(folder);
  ConsolePlatform platform;
  ConsoleHost host({"show", folder + "/show"}, 512);
  Plugin plugin(platform);
  Engine& engine = plugin.engine;
  plugin.plugIn.ITharnPlugin_Init("", "", host);
  const std::vector<Operation> operations = operationsOf(plugin, host);
  Interpreter interpreter({engine, platform, host.calls, operations,
                           [&](std::int64_t time, const TimerQueue::Gate& gate) {
                             engine.timers.advanceTo(engine.timers.now() + time, gate);
                           }});
  RandomCommands commands(engine.desktop, operations, folder);
  interpreter.answer("open");
  int good = 0;
  for (int i = 0; i < kLines; ++i) {
    const std::string line = commands.next();
    if (line.empty()) continue;
    SCOPED_TRACE("line " + std::to_string(i) + ": " + line);
    const std::string text = interpreter.answer(line).value_or("");
    const Json reply = Json::parse(text, nullptr, false);
    ASSERT_TRUE(reply.is_object()) << text;
    const bool ok = reply["ok"] == true;
    ASSERT_TRUE(ok || reply.contains("error") || reply.contains("failure")) << text;
    good += ok ? 1 : 0;
  }
  EXPECT_GT(good, kLines / 10) << "most lines were refused: the test reaches too little";
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace korvane
