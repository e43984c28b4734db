#include "desk/wall/Wiring.h"

#include "testing/DefinitionTest.h"

namespace korvane {
namespace {

using Codes = ChannelMap::Codes;
using Mouse = PictureBox::Mouse;

class WiringWindow : public DefinitionTest {
 protected:
  void SetUp() override {
    wiring.onTest = [this](const std::optional<WallPicture>& picture) { tests.push_back(picture); };
    ASSERT_TRUE(open());
    ASSERT_TRUE(event([this] { engine.desktop.show(wiring); }));
  }
  bool check(CheckBox& box, int value = 1) {
    return event([&] { box.setValue(value); });
  }
  bool pickText(ListBox& list, const std::string& text) {
    const auto found = std::find(list.items().begin(), list.items().end(), text);
    EXPECT_NE(found, list.items().end()) << text;
    return choose(list, static_cast<int>(found - list.items().begin()));
  }
  void size(int cols, int rows) {
    choose(wiring.planPanel.cols, cols - 1);
    choose(wiring.planPanel.rows, rows - 1);
  }
  void clickLamp(int x, int y) {
    for (const Mouse mouse : {Mouse::Down, Mouse::Up, Mouse::Click})
      event([&] { wiring.wall.mouse(mouse, x, y); });
  }
  std::string words() const { return wiring.words.look().caption; }

  Wiring wiring{engine, plugin.matrixConf};
  PlanPanel& plan = wiring.planPanel;
  TestPanel& test = wiring.testPanel;
  std::vector<std::optional<WallPicture>> tests;
};

TEST_F(WiringWindow, OpensWithTheWiringThatIsInForce) {
  EXPECT_EQ(plan.cols.text() + " x " + plan.rows.text(), "12 x 12");
  EXPECT_EQ(plan.lamps.along.text(), "columns") << "the grid that needs no file";
  EXPECT_EQ(words(), "144 lamps in universe 1. Each has channels of its own.");
}

TEST_F(WiringWindow, ApplyWritesTheDefinitionThatThePlugInSavesAndLoads) {
  size(16, 9);
  check(plan.lamps.snake);
  choose(plan.lamps.along, 0);
  pickText(plan.order, "GRB");
  choose(plan.fill, static_cast<int>(UniverseFill::Count));
  choose(plan.lampsPerUniverse, 79);
  EXPECT_EQ(v.matrixCols, 12) << "nothing happens before Apply";
  EXPECT_TRUE(click(wiring.apply));
  EXPECT_EQ(v.matrixCols, 16);
  EXPECT_EQ(v.matrixRows, 9);
  EXPECT_EQ(v.channelMap.at(0, 0), (Codes{2, 1, 3}));
  EXPECT_EQ(v.channelMap.at(15, 1), (Codes{50, 49, 51}));
  EXPECT_EQ(v.channelMap.at(0, 5), (Codes{559, 558, 560}));
  EXPECT_TRUE(v.cellConfigured.at(15, 8));
  EXPECT_TRUE(v.configChanged);
  EXPECT_EQ(conf.ncol.text() + " x " + conf.nrow.text(), "16 x 9");
  EXPECT_EQ(v.previewA.cell, v.A.picture.width() / 16);
  EXPECT_EQ(words(), "144 lamps in universes up to 2. Each has channels of its own.");

  platform.answers.emplace_back(folder + "/saved.korvaneconf");
  click(wiring.save);
  EXPECT_TRUE(
      readFile(folder + "/saved.korvaneconf").starts_with("unnamed\r\n16,9,False\r\n2,1,3\r\n"));
  const ChannelMap before = v.channelMap;
  resize(3, 3);
  platform.answers.emplace_back(folder + "/saved.korvaneconf");
  click(conf.load);
  EXPECT_TRUE(Patch(before).madeFrom(v.channelMap));
}

TEST_F(WiringWindow, TheSameSizeLeavesThePicturesAlone) {
  v.A.frame.at(3, 4) = {9, 8, 7};
  v.frameM.at(3, 4) = {9, 8, 7};
  pickText(plan.order, "BGR");
  click(wiring.apply);
  EXPECT_EQ(v.A.frame.at(3, 4), (Rgb{9, 8, 7}));
  EXPECT_EQ(v.frameM.at(3, 4), (Rgb{9, 8, 7}));
  EXPECT_EQ(v.channelMap.at(0, 0), (Codes{3, 2, 1}));
}

TEST_F(WiringWindow, AfterApplyTheDeskIsToldOfANewPass) {
  plugin.matrixForm.active.setValue(1);
  takeCalls();
  pickText(plan.order, "GRB");
  click(wiring.apply);
  const std::vector<std::string> calls = takeCalls();
  ASSERT_FALSE(calls.empty());
  EXPECT_EQ(calls.front(), "UserInteraction");
  EXPECT_EQ(calls.size(), 1 + 144 * 2U) << "every byte that is not 0, as after a load";
}

TEST_F(WiringWindow, AWallThatIsTooLargeIsSaidAndCannotBeApplied) {
  check(plan.panels);
  choose(plan.across, 9);
  EXPECT_EQ(words(), "A wall has 1 to 50 columns and rows; this one would have 80 by 16.");
  EXPECT_FALSE(wiring.apply.look().enabled);
  choose(plan.across, 2);
  EXPECT_TRUE(wiring.apply.look().enabled);
  EXPECT_EQ(plan.cols.text() + " x " + plan.rows.text(), "24 x 16") << "the panels' size";
  EXPECT_FALSE(plan.cols.look().enabled);
}

TEST_F(WiringWindow, WhatIsOfNoAccountCannotBeReached) {
  EXPECT_FALSE(plan.lampsPerUniverse.look().enabled);
  EXPECT_FALSE(plan.turn.look().enabled);
  choose(plan.fill, static_cast<int>(UniverseFill::Count));
  EXPECT_TRUE(plan.lampsPerUniverse.look().enabled);
  check(plan.panels);
  EXPECT_TRUE(plan.turn.look().enabled);
  EXPECT_TRUE(plan.chain.snake.look().enabled);
}

TEST_F(WiringWindow, PanelsStayAsChosenAfterApply) {
  check(plan.panels);
  choose(plan.turn, static_cast<int>(PanelPlan::Turn::Quarter));
  choose(plan.skipped, 2);
  const WiringPlan chosen = wiring.plan();
  click(wiring.apply);
  EXPECT_EQ(wiring.plan(), chosen);
  EXPECT_EQ(v.matrixCols, 16);
}

TEST_F(WiringWindow, AsItIsShowsTheGridAgain) {
  size(20, 3);
  EXPECT_EQ(words(), "60 lamps in universe 1. Each has channels of its own.");
  click(wiring.revert);
  EXPECT_EQ(words(), "144 lamps in universe 1. Each has channels of its own.");
  EXPECT_EQ(plan.cols.text(), "12");
}

TEST_F(WiringWindow, APlanThatWasNotAppliedStaysWhenTheWindowIsLeft) {
  size(20, 3);
  event([&] { engine.desktop.activate(plugin.matrixForm); });
  event([&] { engine.desktop.activate(wiring); });
  EXPECT_EQ(plan.cols.text(), "20");
}

TEST_F(WiringWindow, AGridFromElsewhereIsShownWhenTheWindowComesBack) {
  configure();
  loadBytes("x\r\n2,1,False\r\n1,2,3\r\n1,5,9000\r\n");
  event([&] { engine.desktop.activate(wiring); });
  EXPECT_EQ(
      words(),
      "2 lamps in universe 1. 2 lamps share a channel. 1 lamp lies beyond universe 16 and stays "
      "dark. None of the choices above gives this.");
  EXPECT_EQ(plan.cols.text() + " x " + plan.rows.text(), "2 x 1");
}

TEST_F(WiringWindow, AGridTooLargeForTheListsIsShownAllTheSame) {
  configure();
  std::string cells;
  for (int i = 0; i < 60; ++i) cells += "0,0,0\r\n";
  writeFile(folder + "/wide.korvaneconf", "x\r\n60,1,False\r\n" + cells);
  platform.answers.emplace_back(folder + "/wide.korvaneconf");
  click(conf.load);
  EXPECT_TRUE(event([&] { engine.desktop.activate(wiring); }));
  EXPECT_EQ(plan.cols.index(), -1);
  EXPECT_FALSE(wiring.apply.look().enabled);
}

// The window may be the first one that a person opens.
TEST_F(DefinitionTest, AWallCanBeWiredBeforeTheToolIsOpened) {
  Wiring wiring{engine, conf};
  EXPECT_TRUE(event([&] { engine.desktop.show(wiring); }));
  EXPECT_EQ(wiring.words.look().caption, "144 lamps in universe 1. Each has channels of its own.");
  wiring.setPlan({.cols = 16, .rows = 9, .path = {.snake = true}, .order = ColorOrder::GRB});
  EXPECT_TRUE(click(wiring.apply));
  EXPECT_EQ(takeFailure(), 0);
  EXPECT_TRUE(open());
  EXPECT_EQ(v.matrixCols, 16);
  EXPECT_EQ(v.channelMap.at(15, 1), (Codes{50, 49, 51}));
}

TEST_F(WiringWindow, ThePointerTellsOfTheLampUnderIt) {
  event([&] { wiring.wall.resize(120, 120); });
  event([&] { wiring.wall.mouse(Mouse::Move, 15, 25); });
  EXPECT_EQ(wiring.lamp.look().caption, "lamp 15: column 2, row 3, universe 1, channels 43 to 45");
  event([&] { wiring.wall.mouse(Mouse::Move, -1, -1); });
  EXPECT_EQ(wiring.lamp.look().caption, " ");
}

TEST_F(WiringWindow, TheTestGoesToTheOutputsUntilItEnds) {
  EXPECT_TRUE(tests.empty()) << "nothing before it is switched on";
  check(test.test);
  ASSERT_EQ(tests.size(), 1U);
  EXPECT_EQ(tests[0], testPicture({}, Patch(v.channelMap)));
  EXPECT_EQ(test.testWords.look().caption,
            "Lamp 1 of 144, red: column 1, row 1, universe 1, channels 1 to 3");
  click(test.next);
  EXPECT_EQ(tests.back()->universe(1)[1], 255) << "green";
  click(test.previous);
  EXPECT_EQ(tests.back(), tests[0]);
  check(test.test, 0);
  EXPECT_FALSE(tests.back().has_value());
  EXPECT_EQ(test.testWords.look().caption, " ");
  const std::size_t before = tests.size();
  click(test.next);
  EXPECT_EQ(tests.size(), before);
}

TEST_F(WiringWindow, ClosingTheWindowEndsTheTest) {
  check(test.test);
  click(wiring.closeWindow);
  EXPECT_FALSE(tests.back().has_value());
  EXPECT_FALSE(wiring.visible());
  event([&] { engine.desktop.show(wiring); });
  check(test.test);
  event([&] { engine.desktop.close(wiring); });
  EXPECT_FALSE(tests.back().has_value());
}

TEST_F(WiringWindow, AClickOnALampLightsItWhileTheTestIsOn) {
  event([&] { wiring.wall.resize(120, 120); });
  clickLamp(15, 25);
  EXPECT_TRUE(tests.empty()) << "a stray click does not darken a show";
  choose(test.what, static_cast<int>(LampTest::What::Row));
  choose(test.light, static_cast<int>(LampTest::Light::Green));
  check(test.test);
  clickLamp(15, 25);
  EXPECT_EQ(test.what.text(), "one lamp");
  EXPECT_EQ(test.at.text(), "15");
  EXPECT_EQ(tests.back()->universe(1)[43], 255);
  clickLamp(125, 5);
  EXPECT_EQ(test.at.text(), "15") << "beside the wall";
}

TEST_F(WiringWindow, TheLitLampIsMarkedInThePicture) {
  event([&] { wiring.wall.resize(120, 120); });
  choose(test.light, static_cast<int>(LampTest::Light::Blue));
  check(test.test);
  clickLamp(15, 25);
  EXPECT_EQ(wiring.wall.raster().pixel(10, 20), rgb(255, 255, 255)) << "a white frame";
  EXPECT_EQ(wiring.wall.raster().pixel(17, 27), rgb(0, 0, 255));
  EXPECT_NE(wiring.wall.raster().pixel(3, 3), rgb(0, 0, 255));
}

TEST_F(WiringWindow, TheTestStepsByItselfAtItsPace) {
  check(test.test);
  check(test.byItself);
  pickText(test.pace, "5 a second");
  tests.clear();
  advance(1000);
  EXPECT_EQ(tests.size(), 5U);
  EXPECT_EQ(test.at.text(), "2") << "four colours of the first lamp, and one of the second";
  check(test.byItself, 0);
  advance(1000);
  EXPECT_EQ(tests.size(), 5U);
  check(test.byItself);
  check(test.test, 0);
  tests.clear();
  advance(1000);
  EXPECT_TRUE(tests.empty());
}

TEST_F(WiringWindow, ANumberGoesToTheLampAndABadOneChangesNothing) {
  check(test.test);
  type(test.at, "100");
  EXPECT_EQ(test.state().at, 99);
  type(test.at, "many");
  EXPECT_EQ(test.at.text(), "100");
  type(test.at, "5000");
  EXPECT_EQ(test.at.text(), "144") << "the last one";
  type(test.at, "-3");
  EXPECT_EQ(test.at.text(), "1");
  EXPECT_EQ(takeFailure(), 0);
}

TEST_F(WiringWindow, TheTestFollowsThePlanThatThePictureShows) {
  check(test.test);
  type(test.at, "144");
  size(4, 4);
  EXPECT_EQ(test.at.text(), "16");
  EXPECT_EQ(tests.back(), testPicture(test.state(), Patch(wire(wiring.plan()))));
}

}  // namespace
}  // namespace korvane
