// A random operator in the component: what it says that it is saved can be loaded, and holds the
// same.

#include <fstream>

#include "commands/OperatorConsole.h"
#include "commands/RandomPerson.h"
#include "hosts/com/ComTest.h"
#include "platform/Disk.h"

namespace korvane {
namespace {

constexpr int kActions = 600;
constexpr int kActionsBetweenSaves = 30;
constexpr int kHeadLines = 3;  // title, version, and the fader, which comes back in its steps

/// What is pressed is found in the windows of a console that is told the same.
class RandomPlay : public ComTest {
 protected:
  RandomPlay() {
    std::filesystem::create_directories(folder / "again");
    EXPECT_EQ(window->Show(), S_OK);
  }
  ~RandomPlay() override { std::filesystem::remove_all(folder); }

  Json tell(const std::string& line) {
    guide.answer(line);
    return Json::parse(run(*window.Get(), line));
  }
  Json tellOfFile(const std::string& file, const std::string& line) {
    tell("answer " + file);
    return tell(line);
  }
  std::string file(const std::string& name) const { return (folder / name).generic_string(); }
  /// The lines of a show below its head, without empty names: such an effect comes back as a new
  /// one (docs/kept.md, show-names).
  static std::string contentsOf(const std::string& show) {
    std::ifstream stream(show, std::ios::binary);
    std::string line, contents;
    for (int number = 1; std::getline(stream, line); ++number) {
      if (number > kHeadLines && line != "\r" && line != "new effect\r") contents += line + "\n";
    }
    return contents;
  }
  /// Whether the component says that it saved the show.
  bool save() {
    tell("boxes");
    const Json reply = tellOfFile(file("show.Korvane"), "click MatrixForm.save");
    if (reply != Json{{"ok", true}}) {  // another window is open modally: the answer waits on
      tell("call ITharnTool_SaveProjectData");
      return false;
    }
    const Json boxes = Json::parse(run(*window.Get(), "boxes"))["boxes"];
    return std::find(boxes.begin(), boxes.end(), "Matrix Project saved") != boxes.end();
  }
  void expectKept() {
    tellOfFile(file("again/show.korvaneconf"), "call ITharnTool_SaveProjectData");
    OperatorConsole other(machineDisk(), file("again/show"), 1);
    other.answer("answer " + file("show.Korvane"));
    Json loaded = other.answer("click MatrixForm.load");
    // A Gradient has no way over one column or one row; all was read by then.
    ASSERT_TRUE(loaded["ok"] == true || loaded["failure"]["number"] == kDivisionByZero) << loaded;
    other.answer("answer " + file("again/show.Korvane"));
    other.answer("click MatrixForm.save");
    EXPECT_EQ(contentsOf(file("again/show.Korvane")), contentsOf(file("show.Korvane")));
  }

  const std::filesystem::path folder =
      std::filesystem::path(testing::TempDir()) / "korvane-component-play";
  ComPtr<::ITharnPlugin> plugIn = create();
  ComPtr<IToolWindow> window = tool(*plugIn.Get());
  OperatorConsole guide{machineDisk(), file("guide"), 1};
};

TEST_F(RandomPlay, WhatTheComponentSaysThatItIsSavedCanBeLoadedAndHoldsTheSame) {
  RandomPerson person(guide.engine().desktop, 1);
  int saved = 0;
  for (int action = 1; action <= kActions; ++action) {
    tell(person.next());
    if (action % kActionsBetweenSaves != 0 || !save()) continue;
    ++saved;
    expectKept();
  }
  EXPECT_GT(saved, kActions / kActionsBetweenSaves / 3) << "hardly anything was saved";
}

}  // namespace
}  // namespace korvane
