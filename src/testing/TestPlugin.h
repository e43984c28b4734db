#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/Events.h"
#include "platform/HeadlessPlatform.h"
#include "shell/Plugin.h"
#include "testing/FakeHost.h"

namespace korvane {

/// A whole plug-in with a desk around it, pressed as a person presses it: every event goes through
/// the one place where failures are caught.
class TestPlugin : public testing::Test {
 protected:
  TestPlugin() {
    std::filesystem::create_directories(folder);
    host.baseFilename = folder + "/show";
    plugin.plugIn.ITharnPlugin_Init("desk", "korvane", host);
  }
  ~TestPlugin() override { std::filesystem::remove_all(folder); }

  /// Opens the tool window; true if nothing failed.
  bool open() {
    return event([this] { engine.desktop.show(plugin.matrixForm); });
  }
  bool event(const std::function<void()>& what) { return runEvent(platform, what); }
  bool click(Button& button) {
    return event([&] { button.click(); });
  }
  bool click(PictureButton& button) {
    return event([&] { button.click(); });
  }
  bool pick(ListView& list, int row) {
    return event([&] { list.click(row, 0); });
  }
  bool choose(ListBox& list, int index) {
    return event([&] { list.choose(index); });
  }
  bool type(TextBox& box, const std::string& text) {
    return event([&] { box.setText(text); });
  }
  bool move(Slider& slider, int value) {
    return event([&] { slider.setValue(value); });
  }
  void advance(std::int64_t milliseconds) {
    engine.timers.advanceTo(
        engine.timers.now() + milliseconds,
        [this](const std::function<void()>& tick) { runEvent(platform, tick); });
  }
  /// Another size of the grid, through the window that defines it.
  void resize(int cols, int rows) {
    event([&] { plugin.plugIn.ITharnPlugin_Configure(); });
    choose(plugin.matrixConf.ncol, cols - 1);
    choose(plugin.matrixConf.nrow, rows - 1);
    click(plugin.matrixConf.OK);
  }
  /// Texts of the rows of a list.
  static std::vector<std::string> texts(const ListView& list) {
    std::vector<std::string> all;
    for (const ListView::Row& row : list.rows()) all.push_back(row.text);
    return all;
  }
  /// Slot numbers of the rows of a list.
  static std::vector<std::string> slots(const ListView& list) {
    std::vector<std::string> all;
    for (const ListView::Row& row : list.rows()) all.push_back(row.sub.at(0));
    return all;
  }
  std::vector<std::string> takeCalls() { return host.take(); }
  std::vector<std::string> takeBoxes() { return std::exchange(platform.boxes, {}); }
  /// Number of the failure reported last, 0 for none; forgets all.
  int takeFailure() {
    const int number = platform.failures.empty() ? 0 : platform.failures.back().number;
    platform.failures.clear();
    return number;
  }
  void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
  }
  static std::string readFile(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

  static std::string folderOf(const testing::TestInfo& test) {
    std::string name = std::string("korvane-") + test.test_suite_name() + "-" + test.name();
    std::replace(name.begin(), name.end(), '/', '-');
    return testing::TempDir() + name;
  }

  std::string folder = folderOf(*testing::UnitTest::GetInstance()->current_test_info());
  HeadlessPlatform platform;
  FakeHost host;
  Plugin plugin{platform};
  Engine& engine = plugin.engine;
  Variablen& v = engine.v;
  Master& master = engine.master;
};

/// The same over both decks: each test runs for A and for B.
class TestDecks : public TestPlugin, public testing::WithParamInterface<Side> {
 protected:
  Deck& deck = GetParam() == Side::A ? v.A : v.B;
  Deck& other = GetParam() == Side::A ? v.B : v.A;
  DeckPanel& panel = GetParam() == Side::A ? plugin.matrixForm.panelA : plugin.matrixForm.panelB;
};

inline std::string sideName(const testing::TestParamInfo<Side>& info) {
  return info.param == Side::A ? "A" : "B";
}

}  // namespace korvane

/// Runs a suite derived from TestDecks for both decks.
#define KORVANE_BOTH_DECKS(suite)                                                            \
  INSTANTIATE_TEST_SUITE_P(Deck, suite, testing::Values(korvane::Side::A, korvane::Side::B), \
                           korvane::sideName)
