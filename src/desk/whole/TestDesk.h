#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "desk/whole/Desk.h"
#include "platform/Events.h"
#include "platform/HeadlessPlatform.h"
#include "testing/SourceFolder.h"

namespace korvane {

/// The machine of a program that stands alone, on which every picture can be read.
class PicturePlatform : public HeadlessPlatform {
 public:
  Raster loadPicture(const std::string&) override { return {8, 8, rgb(9, 9, 9)}; }
  bool startsWithout(const BrokenGrid& grid) override {
    boxes.push_back(grid.told());
    return true;
  }
};

/// The desk without a screen, with the examples, in a folder of its own, in virtual time.
class TestDesk : public testing::Test {
 protected:
  TestDesk() {
    std::filesystem::create_directories(folder);
    event([this] { desk.show(); });
  }
  ~TestDesk() override { std::filesystem::remove_all(folder); }

  static std::string bytesOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }
  std::string write(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder + name, std::ios::binary) << bytes;
    return folder + name;
  }
  bool event(const std::function<void()>& what) {
    const bool well = runEvent(machine, what);
    desk.refresh();
    return well;
  }
  template <class Clickable>
  void click(Clickable& control) {
    event([&control] { control.click(); });
  }
  void pick(ListView& list, int row) {
    event([&list, row] { list.click(row, 0); });
  }
  void check(CheckBox& box, bool on = true) {
    event([&box, on] { box.setValue(on ? 1 : 0); });
  }
  void advance(std::int64_t milliseconds) {
    TimerQueue& timers = desk.engine().timers;
    timers.advanceTo(timers.now() + milliseconds,
                     [this](const std::function<void()>& tick) { runEvent(machine, tick); });
    desk.settle();
  }
  DeskPlaces places() const {
    return {.project = folder + "mine",
            .examples = examples,
            .recentShows = folder + "config/recent",
            .choices = folder + "config/choices",
            .keys = folder + "config/keys.json"};
  }
  /// Chooses "Open ..." and a file.
  void open(const std::string& path) {
    machine.answers = {path};
    click(desk.form.open);
  }
  /// The level of a channel as it leaves the desk.
  int level(std::size_t channel) { return desk.leaving().universe(1).at(channel - 1); }
  /// Lets the first lamp be lit in full by the left deck.
  void light() {
    click(desk.form.tool);
    check(tool.active);
    click(tool.fadeA);
    ASSERT_EQ(level(1), 255);
  }

  std::string folder =
      (std::filesystem::path(testing::TempDir()) /
       ("korvane-desk-" +
        std::string(testing::UnitTest::GetInstance()->current_test_info()->name())) /
       "")
          .string();
  PicturePlatform machine;
  LampFeed feed{"korvane-tests"};
  std::vector<Example> examples = examplesIn(sourceFolder() + "/examples");
  Desk desk{machine, feed, places()};
  Plugin& plugin = desk.session.plugin;
  MatrixForm& tool = plugin.matrixForm;
  Variablen& v = plugin.engine.v;
};

}  // namespace korvane
