// What a person does on the desk, without a display.

#include "desk/whole/Desk.h"

#include "desk/whole/TestDesk.h"

namespace korvane {
namespace {

TEST_F(TestDesk, BeginsWithAPageOfShows) {
  EXPECT_TRUE(desk.form.visible());
  EXPECT_FALSE(tool.visible());
  EXPECT_TRUE(desk.form.begin.look().visible);
  EXPECT_EQ(desk.form.examples.size(), 6U);
  EXPECT_EQ(desk.form.examples[0]->look().caption, "Club night");
  EXPECT_FALSE(desk.form.save.look().enabled) << "there is nothing to save";
}

TEST_F(TestDesk, TheToolStandsWithinItsWindow) {
  click(desk.form.tool);
  EXPECT_TRUE(tool.visible());
  EXPECT_EQ(tool.within(), &desk.form);
  EXPECT_FALSE(desk.form.begin.look().visible);
  EXPECT_TRUE(tool.panelA.add.reachable());
  click(tool.Closeall);
  EXPECT_FALSE(tool.panelA.add.reachable());
  EXPECT_TRUE(desk.form.begin.look().visible);
}

TEST_F(TestDesk, TabGoesThroughTheToolBeforeTheRowBelowIt) {
  const std::vector<Control*> all = desk.form.shownControls();
  const auto place = [&](const Control& control) {
    return std::find(all.begin(), all.end(), &control) - all.begin();
  };
  EXPECT_LT(place(desk.form.open), place(tool.panelA.add));
  EXPECT_LT(place(tool.panelA.add), place(desk.form.dmx));
  EXPECT_LT(place(desk.form.dmx), place(desk.form.wiring));
}

TEST_F(TestDesk, BlackoutIsDarkAndTheDecksPlayOn) {
  light();
  click(desk.form.blackout);
  EXPECT_EQ(level(1), 0);
  EXPECT_TRUE(desk.form.blackout.lit());
  EXPECT_EQ(desk.session.host.levels().at(1), 255) << "the plug-in knows nothing of it";
  EXPECT_TRUE(desk.form.sent.look().caption.empty() || machine.boxes.empty());
  click(desk.form.blackout);
  EXPECT_EQ(level(1), 255);
  EXPECT_FALSE(desk.form.blackout.lit());
}

TEST_F(TestDesk, FreezeHoldsWhatTheLampsShow) {
  light();
  click(desk.form.freeze);
  click(tool.fadeB);
  EXPECT_EQ(desk.session.host.levels().at(1), 0);
  EXPECT_EQ(level(1), 255);
  click(desk.form.blackout);
  EXPECT_EQ(level(1), 0) << "Blackout is stronger";
  click(desk.form.blackout);
  EXPECT_EQ(level(1), 255);
  click(desk.form.freeze);
  EXPECT_EQ(level(1), 0);
}

TEST_F(TestDesk, TheAnswersOfThePlugInDoNotStandInTheWay) {
  click(desk.form.tool);
  click(desk.form.blackout);
  click(desk.form.freeze);
  EXPECT_TRUE(machine.boxes.empty());
}

TEST_F(TestDesk, TheGrandMasterTakesPercentOfEveryLevel) {
  light();
  event([this] { desk.form.grandMaster.setValue(50); });
  EXPECT_EQ(level(1), 128);
  event([this] { desk.form.grandMaster.setValue(0); });
  EXPECT_EQ(level(1), 0);
}

TEST_F(TestDesk, DmxThatGoesOffLeavesTheLampsDark) {
  light();
  check(tool.active, false);
  EXPECT_EQ(level(1), 0);
  click(desk.form.dmx);
  EXPECT_EQ(level(1), 255);
  click(tool.Closeall);
  EXPECT_EQ(level(1), 0) << "so does closing the tool";
}

TEST_F(TestDesk, DmxThatGoesOffHoldsIfThatIsChosen) {
  event([this] { desk.setup.off.setIndex(1); });
  light();
  click(tool.Closeall);
  EXPECT_EQ(level(1), 255);
}

TEST_F(TestDesk, DmxThatGoesOffAsksIfThatIsChosen) {
  event([this] {
    desk.setup.off.setIndex(2);
    desk.setup.use(parseOutput("sacn:1@127.0.0.1:5999"));
  });
  light();
  check(tool.active, false);
  ASSERT_TRUE(desk.question.modal());
  EXPECT_EQ(desk.question.text.look().caption, "DMX is off. What shall the lamps do?");
  EXPECT_EQ(level(1), 255) << "until it is answered";
  click(desk.question.first);
  EXPECT_EQ(level(1), 0);
}

TEST_F(TestDesk, TheBeatStepsAnEffectThatFollowsIt) {
  click(desk.form.tool);
  event([this] {
    v.A.effect().type = kColorChange;
    v.A.effect().colors = {rgb(255, 0, 0), rgb(0, 255, 0)};
    v.A.effect().colorCount = 2;
    v.A.colorIndex = 0;
    v.A.beatOn = true;
  });
  click(desk.form.beat);
  EXPECT_EQ(rgb(v.frameA.at(0, 0)), rgb(0, 255, 0));
}

TEST_F(TestDesk, TheViewsOfTheToolAreItsMessages) {
  click(desk.form.tool);
  click(desk.form.narrow);
  EXPECT_FALSE(tool.panelA.frame.look().visible);
  click(desk.form.full);
  EXPECT_TRUE(tool.panelA.frame.look().visible);
}

TEST_F(TestDesk, EveryWindowComesWhenItIsAskedFor) {
  const std::pair<MenuItem*, const char*> cases[] = {
      {&desk.form.output, "DeskOutput"}, {&desk.form.channels, "DeskChannels"},
      {&desk.form.wiring, "Wiring"},     {&desk.form.configure, "MatrixConf"},
      {&desk.form.help, "DeskHelp"},     {&desk.form.front, "Desk"},
      {&desk.form.tool, "MatrixForm"}};
  for (const auto& [item, name] : cases) {
    click(*item);
    ASSERT_NE(plugin.engine.desktop.active(), nullptr);
    EXPECT_EQ(plugin.engine.desktop.active()->name(), name);
  }
}

TEST_F(TestDesk, AnOpenDialogBelongsToItsRow) {
  click(desk.form.tool);
  for (const EffectType type : {kColor, kPaint, kFire}) {
    for (Deck* deck : {&v.A, &v.B}) {
      SCOPED_TRACE(deck->named(std::to_string(type) + " "));
      DeckPanel& panel = deck->isB() ? tool.panelB : tool.panelA;
      click(panel.add);
      const int row = deck->efxList.count() - 1;
      pick(deck->efxList, row);
      event([&] { deck->type.setIndex(type); });
      click(panel.edit);
      EffectDialog& dialog = *plugin.dialogs.byType.at(static_cast<std::size_t>(type));
      event([&] { dialog.myName.setText("mine"); });
      pick(deck->efxList, 0);
      EXPECT_FALSE(dialog.visible());
      EXPECT_EQ(deck->efxList.cell(row, 0), "mine");
      EXPECT_EQ(deck->efx.at(static_cast<std::size_t>(row)).name, "mine");
      EXPECT_NE(deck->efxList.cell(0, 0), "mine");
    }
  }
}

TEST_F(TestDesk, AnOpenPaintDialogNeverDrawsIntoTheOtherDeck) {
  click(desk.form.tool);
  event([this] { v.A.type.setIndex(kPaint); });
  click(tool.panelA.edit);
  event([this] { plugin.dialogs.byType.at(kPaint)->myName.setText("drawn"); });
  click(tool.panelB.edit);
  EXPECT_FALSE(plugin.dialogs.byType.at(kPaint)->visible());
  EXPECT_EQ(v.A.effect().name, "drawn");
  EXPECT_TRUE(plugin.dialogs.byType.at(kColor)->visible());
}

TEST_F(TestDesk, ReopeningTheToolPlaysOn) {
  click(desk.form.tool);
  event([this] { v.A.type.setIndex(kFire); });
  ASSERT_TRUE(v.A.timer1.enabled());
  click(tool.Closeall);
  ASSERT_FALSE(v.A.timer1.enabled());
  click(desk.form.tool);
  EXPECT_TRUE(v.A.timer1.enabled());
}

TEST_F(TestDesk, WhatAFieldLacksIsSaidInWords) {
  click(desk.form.tool);
  click(desk.form.configure);
  click(plugin.matrixConf.fastConfig);
  click(plugin.quickConfiguration.OKButton);
  EXPECT_EQ(machine.boxes,
            std::vector<std::string>{"Choose the address and the universe of the first lamp."});
  EXPECT_TRUE(machine.failures.empty());
}

TEST_F(TestDesk, ATimeIsTypedWithAPointOrAComma) {
  for (const char decimal : {'.', ','}) {
    machine.format = {decimal, decimal == '.' ? ',' : '.'};
    click(desk.form.newShow);
    for (const char* typed : {"1.5", "1,5"}) {
      event([&] { plugin.engine.master.fadeTimeText.setText("2"); });
      event([&] { plugin.engine.master.fadeTimeText.setText(typed); });
      EXPECT_EQ(v.fadeTime, 1.5) << typed << " under " << decimal;
    }
    if (desk.question.visible()) click(desk.question.second);
  }
}

TEST_F(TestDesk, EscapeClosesADialogAndEnterPressesItsOk) {
  click(desk.form.tool);
  for (const auto& dialog : plugin.dialogs.byType) {
    SCOPED_TRACE(dialog->name());
    event([&dialog] { dialog->open(); });
    event([&dialog] { dialog->key(27); });
    EXPECT_FALSE(dialog->visible());
    event([&dialog] { dialog->open(); });
    event([&dialog] { dialog->key(13); });
    EXPECT_FALSE(dialog->visible());
  }
}

TEST_F(TestDesk, ARowOfTheOtherDeckLeavesTheDialogOpen) {
  click(desk.form.tool);
  click(tool.panelA.edit);
  pick(v.B.efxList, 0);
  EXPECT_TRUE(plugin.dialogs.byType.at(kColor)->visible());
}

TEST_F(TestDesk, AnotherGridStartsTheEffectsAgain) {
  click(desk.form.tool);
  click(tool.fadeA);
  click(desk.form.configure);
  event([this] { plugin.matrixConf.ncol.setIndex(4); });
  EXPECT_EQ(v.matrixCols, 5);
  EXPECT_EQ(rgb(v.frameA.at(4, 11)), rgb(255, 0, 0)) << "the red of the selected row";
}

TEST_F(TestDesk, PreviewsFollowAnotherGridAtOnce) {
  click(desk.form.tool);
  click(desk.form.configure);
  event([this] { plugin.matrixConf.ncol.setIndex(5); });
  event([this] { plugin.matrixConf.nrow.setIndex(3); });
  EXPECT_EQ(v.previewA.cell, v.A.picture.width() / 6) << "not that of twelve columns";
  EXPECT_EQ(v.previewM.cell, plugin.engine.master.picture.width() / 6);
  event([this] { plugin.engine.desktop.close(plugin.matrixConf); });
  EXPECT_EQ(v.previewA.cell, v.A.picture.width() / 6) << "left without OK";
}

TEST_F(TestDesk, TheQuickConfigurationDoesNotSayThatOtherUniversesStayDark) {
  EXPECT_EQ(plugin.quickConfiguration.Universe.look().toolTip, "universe of the first lamp's red");
}

TEST_F(TestDesk, AWallIsWiredAndItsEffectsStartAgain) {
  light();
  click(desk.form.wiring);
  Wiring& wiring = desk.wiring;
  event([&] { wiring.setPlan({.cols = 16, .rows = 9, .order = ColorOrder::GRB}); });
  click(wiring.apply);
  EXPECT_EQ(v.matrixCols, 16);
  EXPECT_EQ(v.frameM.at(15, 8)[0], 255) << "the effect that was selected";
  EXPECT_EQ(level(1), 0);
  EXPECT_EQ(level(2), 255) << "green comes first";
}

TEST_F(TestDesk, TheLampTestGoesPastBlackoutAndShowsOnTheMonitor) {
  light();
  click(desk.form.blackout);
  click(desk.form.wiring);
  check(desk.wiring.testPanel.test);
  EXPECT_EQ(level(1), 255);
  EXPECT_EQ(level(2), 0) << "red of the first lamp alone";
  click(desk.wiring.testPanel.next);
  EXPECT_EQ(level(1), 0);
  EXPECT_EQ(level(2), 255);
  event([&] { desk.engine().desktop.close(desk.wiring); });
  EXPECT_EQ(level(2), 0) << "the blackout again";
  click(desk.form.blackout);
  EXPECT_EQ(level(1), 255);
}

TEST_F(TestDesk, GrandMasterAndCurveHaveKeys) {
  event([this] { desk.setup.use(parseOutput("sacn:1@127.0.0.1:5999")); });
  light();
  click(desk.form.masterDown);
  click(desk.form.masterDown);
  EXPECT_EQ(desk.form.grandMaster.value(), 90);
  EXPECT_EQ(level(1), 230);
  click(desk.form.masterUp);
  EXPECT_EQ(level(1), 242);
  for (int i = 0; i < 12; ++i) click(desk.form.steeper);
  EXPECT_EQ(desk.setup.panel.gamma.text(), "2.2");
  EXPECT_EQ(feed.outputs.at(0).newest().universes[0][0], 228);  // 255 x 0.95 ^ 2.2
  for (int i = 0; i < 20; ++i) click(desk.form.flatter);
  EXPECT_EQ(desk.setup.panel.gamma.text(), "1");
}

TEST_F(TestDesk, WhiteBalanceHasKeys) {
  event([this] { desk.setup.use(parseOutput("sacn:1@127.0.0.1:5999")); });
  light();  // red
  click(desk.form.lessRed);
  click(desk.form.lessRed);
  click(desk.form.lessBlue);
  click(desk.form.lessGreen);
  EXPECT_EQ(feed.outputs.at(0).config().look.balance, (std::array{90, 95, 95}));
  EXPECT_EQ(feed.outputs.at(0).newest().universes[0][0], 230) << "90 % of 255";
  click(desk.form.whiteBack);
  EXPECT_EQ(feed.outputs.at(0).newest().universes[0][0], 255);
}

TEST_F(TestDesk, ClosesAtOnceIfNothingWouldBeLost) {
  bool quit = false;
  desk.onQuit = [&quit] { quit = true; };
  click(desk.form.tool);
  event([this] { plugin.engine.desktop.close(desk.form); });
  EXPECT_TRUE(quit);
  EXPECT_FALSE(desk.question.visible());
}

TEST_F(TestDesk, ARunningOutputIsNotEndedByTheWay) {
  bool quit = false;
  desk.onQuit = [&quit] { quit = true; };
  event([this] { desk.setup.use(parseOutput("sacn:1@127.0.0.1:5999")); });
  light();
  click(desk.form.quit);
  EXPECT_EQ(desk.question.text.look().caption,
            "The matrix is sending to the lamps. Close the desk all the same?");
  click(desk.question.third);
  EXPECT_FALSE(quit);
  EXPECT_EQ(level(1), 255);
  click(desk.form.quit);
  click(desk.question.second);
  EXPECT_TRUE(quit);
  EXPECT_FALSE(desk.setup.sending());
}

TEST_F(TestDesk, HelpIsOnThisMachine) {
  click(desk.form.tool);
  click(tool.help);
  EXPECT_TRUE(desk.helpWindow.visible());
  EXPECT_NE(desk.helpWindow.text.text().find("F10"), std::string::npos);
  event([this] { plugin.engine.desktop.show(plugin.matrixHelp); });
  click(plugin.matrixHelp.Page);
  EXPECT_TRUE(machine.pages.empty()) << "no page of the network is needed";
}

TEST_F(TestDesk, TheMonitorShowsWhatLeavesTheDesk) {
  click(desk.form.channels);
  light();
  advance(110);
  const Color lit = rgb(0x3d, 0x8f, 0xd9);
  const auto bar = [this] { return desk.monitor.levels.raster().pixel(10, 10); };
  EXPECT_EQ(bar(), lit);
  click(desk.form.blackout);
  advance(110);
  EXPECT_NE(bar(), lit);
}

}  // namespace
}  // namespace korvane
