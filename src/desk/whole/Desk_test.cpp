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
      EffectDialog& dialog = *plugin.dialogs.byType.at(type);
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

TEST_F(TestDesk, LampsThatNoOutputCarriesAreCounted) {
  click(desk.form.tool);
  event([this] {
    for (int row = 0; row < 3; ++row) v.channelMap.set(0, row, 1, 513);
  });
  EXPECT_EQ(desk.form.wrong.look().caption, "") << "nothing is sent at all";
  event([this] { desk.setup.use(parseOutput("sacn:1@127.0.0.1:5999")); });
  EXPECT_EQ(desk.form.wrong.look().caption,
            "3 of 144 lamps stay dark: no output carries their universe.");
  event([this] { desk.setup.panel.universes.setText("1-2"); });
  EXPECT_EQ(desk.form.wrong.look().caption, "");
}

TEST_F(TestDesk, AnotherKindHasUniversesAndReceiversOfItsOwn) {
  click(desk.form.wiring);
  event([this] { desk.wiring.setPlan({.cols = 20, .rows = 20}); });
  click(desk.wiring.apply);
  OutputPanel& panel = desk.setup.panel;
  click(desk.setup.addOutput);
  EXPECT_EQ(panel.universes.text(), "1-3") << "as many as the wall has";
  event([&] { panel.interface.setText("lo"); });
  EXPECT_EQ(describe(feed.outputs.at(0).config()), "sACN universes 1-3 to their groups by lo");
  event([&] { panel.kind.choose(1); });
  EXPECT_EQ(describe(feed.outputs.at(0).config()),
            "Art-Net universes 0-2 to 255.255.255.255:6454 by lo");
  event([&] { panel.way.choose(2); });
  EXPECT_TRUE(feed.outputs.at(0).config().toNodes);
  EXPECT_EQ(
      desk.setup.figures.look().caption,
      "Port address 0 (net 0, sub-net 0, universe 0) to 2 (net 0, sub-net 0, universe 2). Off: "
      "there is no thread and no socket of it.");
  EXPECT_FALSE(panel.address.look().enabled);
  event([&] { panel.kind.choose(2); });
  EXPECT_EQ(desk.setup.state.look().caption,
            "address '' is not an IPv4 address such as 192.168.1.20; not taken yet.");
  EXPECT_EQ(feed.outputs.at(0).config().kind, OutputKind::Artnet) << "it goes on as it was";
  event([&] { panel.address.setText("10.0.0.7"); });
  EXPECT_EQ(describe(feed.outputs.at(0).config()), "DDP to 10.0.0.7:4048 by lo");
  event([&] { panel.interface.setText(""); });
  EXPECT_FALSE(panel.universes.look().enabled);
}

TEST_F(TestDesk, OutputsAreAddedSwitchedAndRemovedWhileTheShowRuns) {
  light();
  for (int i = 0; i < 3; ++i) {
    click(desk.setup.addOutput);
    event([&] {
      desk.setup.panel.way.choose(1);
      desk.setup.panel.address.setText("127.0.0.1:5999");
      desk.setup.panel.name.setText("wall " + std::to_string(i) + ", left");
    });
  }
  EXPECT_FALSE(desk.setup.sending());
  EXPECT_EQ(desk.setup.list.cell(1, 0), "wall 1, left");
  check(desk.setup.on);
  EXPECT_TRUE(feed.outputs.at(2).on());
  EXPECT_EQ(desk.form.sent.look().caption, "wall 2, left");
  event([this] { desk.setup.list.click(0, 0); });
  EXPECT_FALSE(desk.setup.on.checked()) << "of the row that was clicked";
  check(desk.setup.on);
  EXPECT_EQ(desk.form.sent.look().caption, "2 outputs");
  click(desk.setup.removeOutput);
  EXPECT_EQ(feed.outputs.size(), 2U);
  EXPECT_EQ(desk.setup.list.cell(0, 0), "wall 1, left");
  event([this] { desk.setup.list.click(1, 0); });
  check(desk.setup.on, false);
  EXPECT_EQ(desk.form.sent.look().caption, "Nothing is sent: no output is on.");
}

TEST_F(TestDesk, EverySettingOfAnOutputIsShownAndTaken) {
  for (const char* text : {"sacn:3=101+5-6=7-8@127.0.0.1:7000%lo,rate=30,priority=7,source=Left%2C "
                           "wall,sync=9,end=hold,"
                           "gamma=2.2,smooth=on,balance=100/90/80,name=A 100 %25",
                           "artnet:0-3@nodes,sync=on,end=release", "artnet:4@10.0.0.1",
                           "ddp@10.0.0.2:99,rate=20", "ola:1-2", "ola:0@10.0.0.9"}) {
    SCOPED_TRACE(text);
    OutputConfig config = parseOutput(text);
    config.name += ", %2C";
    OutputPanel panel;
    panel.show(config);
    EXPECT_EQ(parseOutput(panel.text()), config);
  }
}

TEST_F(TestDesk, AWrongSettingIsToldAndMended) {
  event([this] { desk.setup.use(parseOutput("sacn:1@127.0.0.1:5999")); });
  event([this] { desk.setup.panel.address.setText("127.0.0.300"); });
  const std::string& wrong = desk.form.wrong.look().caption;
  EXPECT_NE(wrong.find("127.0.0.300"), std::string::npos) << wrong;
  EXPECT_EQ(desk.form.sent.look().caption, "sACN universe 1 to 127.0.0.1:5999. DMX is off");
  event([this] { desk.setup.panel.address.setText("127.0.0.1:5998"); });
  EXPECT_EQ(wrong.find("127.0.0.300"), std::string::npos) << wrong;
  EXPECT_EQ(desk.form.sent.look().caption, "sACN universe 1 to 127.0.0.1:5998. DMX is off");
  event([this] { desk.setup.panel.rate.setText("5000"); });
  EXPECT_EQ(wrong, "rate 5000 is out of range, expected 1 to 1000; not taken yet.");
}

TEST_F(TestDesk, OutputsAreRememberedBetweenStarts) {
  const DeskPlaces places{folder + "next", {}, "", folder + "config/outputs"};
  {
    LampFeed first("korvane-tests");
    Desk before(machine, first, places);
    before.setup.use(parseOutput("sacn:1-2@127.0.0.1:5999,name=Left"));
    before.setup.take({parseOutput("ddp@127.0.0.1:5998,end=hold"), false});
    before.setup.off.choose(1);
    before.finish();
  }
  LampFeed second("korvane-tests");
  Desk after(machine, second, places);
  ASSERT_EQ(after.setup.entries().size(), 2U);
  EXPECT_EQ(entryText(after.setup.entries()[0]), "on sacn:1-2@127.0.0.1:5999,name=Left");
  EXPECT_EQ(entryText(after.setup.entries()[1]), "off ddp@127.0.0.1:5998,end=hold");
  EXPECT_EQ(after.setup.whenOff(), OutputSetup::WhenOff::Hold);
}

TEST_F(TestDesk, AnOutputThatCannotBeReadIsToldAndStays) {
  std::filesystem::create_directories(folder + "config");
  const std::string file = write("config/outputs", "on sacn:1@127.0.0.1:5999\nalso smoke:1\n");
  LampFeed other("korvane-tests");
  Desk next(machine, other, {folder + "next", {}, "", file});
  EXPECT_EQ(next.setup.entries().size(), 1U);
  next.show();
  next.refresh();
  EXPECT_NE(next.form.wrong.look().caption.find("config/outputs, line 2: "), std::string::npos)
      << next.form.wrong.look().caption;
  next.setup.on.setValue(0);
  EXPECT_EQ(bytesOf(file), "dmx-off dark\r\noff sacn:1@127.0.0.1:5999\r\nalso smoke:1\r\n");
}

TEST_F(TestDesk, TheMonitorShowsTheBytesOfEachOutputAndUniverse) {
  click(desk.form.wiring);
  event([this] { desk.wiring.setPlan({.cols = 20, .rows = 20}); });
  click(desk.wiring.apply);
  light();
  event(
      [this] { desk.setup.use(parseOutput("sacn:3=9+1-2=7-8@127.0.0.1:5999,gamma=2,name=Left")); });
  event([this] { desk.setup.use(parseOutput("ddp@127.0.0.1:5998,balance=50/100/100")); });
  event([this] { desk.form.grandMaster.setValue(50); });
  click(desk.form.channels);
  const std::vector<std::string> names = {
      "wall, universe 1",       "wall, universe 2",         "wall, universe 3",
      "1. Left, universe 9",    "1. Left, universe 7",      "1. Left, universe 8",
      "2. DDP, lamps 1 to 170", "2. DDP, lamps 171 to 340", "2. DDP, lamps 341 to 400"};
  EXPECT_EQ(desk.monitor.universe.items(), names);
  const int first[] = {128, 128, 128, 64, 64, 64, 64, 64, 64};
  for (int i = 0; i < 9; ++i) {
    SCOPED_TRACE(names[static_cast<std::size_t>(i)]);
    event([&] { desk.monitor.universe.choose(i); });
    EXPECT_EQ(desk.monitor.shown()[0], first[i]);
  }
  EXPECT_EQ(desk.monitor.shown()[3 * 59], 64);
  EXPECT_EQ(desk.monitor.shown()[3 * 60], 0) << "the wall has 400 lamps";
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
  advance(60);
  const Color lit = rgb(0x3d, 0x8f, 0xd9);
  const auto bar = [this] { return desk.monitor.levels.raster().pixel(10, 10); };
  EXPECT_EQ(bar(), lit);
  click(desk.form.blackout);
  advance(60);
  EXPECT_NE(bar(), lit);
}

}  // namespace
}  // namespace korvane
