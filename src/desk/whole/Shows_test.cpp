// Shows begun and opened on the desk.

#include "desk/project/ShowPath.h"
#include "desk/whole/TestReceiver.h"
#include "desk/whole/TestShows.h"

namespace korvane {
namespace {

TEST_F(Shows, ExamplesAreNamedAfterTheirFiles) {
  std::string titles;
  for (const Example& example : examples) titles += example.title + ", ";
  EXPECT_EQ(titles, "Club night, Ticker wall, Fire wall, Slide show, Paint animation, Beat show, ");
  EXPECT_TRUE(examplesIn(folder).empty());
  EXPECT_TRUE(examplesIn("").empty());
}

TEST_F(Shows, OneClickOpensAnExampleOnItsGrid) {
  const std::pair<int, int> grids[] = {{12, 12}, {48, 8}, {24, 16}, {20, 15}, {16, 16}, {12, 12}};
  for (std::size_t i = 0; i < examples.size(); ++i) {
    SCOPED_TRACE(examples[i].title);
    openExample(i);
    const auto [cols, rows] = grids[i];
    EXPECT_EQ(v.matrixCols, cols);
    EXPECT_EQ(v.matrixRows, rows);
    EXPECT_EQ(name(), showName(examples[i].path));
    EXPECT_EQ(desk.form.caption(), name() + " - Korvane");
    EXPECT_GT(v.efxACount, 1);
    EXPECT_TRUE(tool.visible());
    EXPECT_FALSE(desk.session.changed());
  }
  EXPECT_EQ(machine.boxes, std::vector<std::string>());
  EXPECT_TRUE(machine.failures.empty());
}

TEST_F(Shows, PreviewsKeepNothingOfTheGridBefore) {
  openExample(0);
  openExample(2);
  ASSERT_EQ(v.matrixRows, 16);
  const std::pair<PictureBox*, PreviewGeometry> previews[] = {
      {&v.A.picture, v.previewA},
      {&v.B.picture, v.previewB},
      {&plugin.engine.master.picture, v.previewM}};
  for (const auto& [box, place] : previews) {
    ASSERT_GT(place.top, 10) << "24 by 16 leave room above";
    for (int y = 0; y < place.top; ++y)
      for (int x = 0; x < box->width(); ++x)
        ASSERT_EQ(box->raster().pixel(x, y), 0) << x << "," << y;
  }
}

// Whatever was on the desk before, a show plays as in a plug-in that was just made.
TEST_F(Shows, AShowPlaysAlikeWhateverWasThereBefore) {
  const auto play = [](Desk& where, PicturePlatform& on, const std::string& path) {
    where.engine().random.seed(7);
    where.session.open(path);
    TimerQueue& timers = where.engine().timers;
    timers.advanceTo(timers.now() + 4000, [&](const auto& tick) { runEvent(on, tick); });
    const Variablen& state = where.engine().v;
    std::vector<Rgb> cells;
    for (const Frame* frame :
         std::initializer_list<const Frame*>{&state.frameA, &state.frameB, &state.frameM})
      cells.insert(cells.end(), frame->data(), frame->data() + frame->span());
    return cells;
  };
  for (const Example& example : examples) {
    PicturePlatform freshMachine;
    LampFeed off("korvane-tests");
    Desk fresh(freshMachine, off, {folder + "fresh"});
    fresh.show();
    const auto expected = play(fresh, freshMachine, example.path);
    for (const Example& before : examples) {
      SCOPED_TRACE(example.title + " after " + before.title);
      desk.session.open(before.path);
      click(plugin.engine.master.AutoFadeB);
      advance(700);
      EXPECT_TRUE(play(desk, machine, example.path) == expected);
    }
  }
}

TEST_F(Shows, LookingAtAShowDoesNotChangeIt) {
  for (std::size_t i = 0; i < examples.size(); ++i) {
    SCOPED_TRACE(examples[i].title);
    openExample(i);
    Master& master = plugin.engine.master;
    for (ListView* list : {&v.A.efxList, &v.B.efxList, &master.efxXList}) {
      for (int row = 0; row < list->count(); ++row) pick(*list, row);
    }
    event([&] { master.faderM.setValue(33); });
    click(master.AutoFadeB);
    advance(20);
    EXPECT_FALSE(desk.session.changed());
  }
}

TEST_F(Shows, AShowOfOnesOwnIsItsOwnProject) {
  open(examples[1].path);
  ASSERT_EQ(machine.questions.size(), 1U);
  EXPECT_EQ(machine.questions[0].filter,
            "Project: show, desk or grid (*.Korvane, *.korvanedesk, *.korvaneconf)"
            "|*.Korvane;*.korvanedesk;*.korvaneconf");
  EXPECT_EQ(machine.questions[0].initialDirectory, folder);
  EXPECT_EQ(name(), "2-ticker-wall");
  EXPECT_EQ(v.matrixCols, 48);
  machine.answers = {std::nullopt};
  click(desk.form.open);
  EXPECT_EQ(name(), "2-ticker-wall") << "a cancelled dialog changes nothing";
}

TEST_F(Shows, TheOutputGoesOnAndTheChannelsOfTheOldShowGoToZero) {
  light();
  machine.answers = {folder + "small.Korvane"};
  click(tool.save);
  write("small.korvaneconf", "small\r\n1,1,False\r\n2,3,4\r\n");
  open(folder + "small.Korvane");
  EXPECT_EQ(name(), "small");
  EXPECT_EQ(level(1), 0);
  EXPECT_TRUE(v.outputActive);
  EXPECT_TRUE(tool.active.checked());
  EXPECT_EQ(level(2), v.frameM.at(0, 0)[0]);
}

TEST_F(Shows, WhatIsShownGoesToTheLamps) {
  Receiver receiver;
  event([&] { desk.setup.use(parseOutput(receiver.target())); });
  light();
  std::array<int, 3> levels{};
  for (int packets = 0; packets < 100 && levels[0] != 255; ++packets) {
    const auto next = receiver.next();
    ASSERT_TRUE(next) << "nothing comes";
    levels = *next;
  }
  EXPECT_EQ(levels[0], 255);
}

TEST_F(Shows, ExamplesLargerThanAUniversePlayWhole) {
  event([this] { desk.setup.use(parseOutput("sacn:1-16@127.0.0.1:5999")); });
  int wrong = 0, litBeyond = 0;
  const auto compare = [&](const WallPicture& sent, int col, int row) {
    for (std::size_t component = 0; component < 3; ++component) {
      const auto channel = wallChannel(v.channelMap.at(col, row)[component]);
      if (!channel) return ++wrong;
      const auto at = static_cast<std::size_t>(channel->channel - 1);
      const std::uint8_t value = sent.universe(channel->universe).at(at);
      wrong += value != v.frameM.at(col, row)[component];
      litBeyond += channel->universe > 1 && value > 0;
    }
    return 0;
  };
  int larger = 0;
  for (std::size_t i = 0; i < examples.size(); ++i) {
    SCOPED_TRACE(examples[i].title);
    openExample(i);
    check(tool.active);
    for (int step = 0; step < 4; ++step) {
      advance(700);
      pick(v.A.efxList, step % v.A.efxList.count());
      click(step == 1 ? tool.fadeB : tool.fadeA);
      const WallPicture sent = desk.leaving();
      for (int col = 0; col < v.matrixCols; ++col) {
        for (int row = 0; row < v.matrixRows; ++row) compare(sent, col, row);
      }
    }
    EXPECT_EQ(wrong, 0);
    larger += v.matrixCols * v.matrixRows * 3 > kUniverseChannels;
    EXPECT_EQ(desk.form.wrong.look().caption.find("lamps stay dark"), std::string::npos);
  }
  EXPECT_EQ(larger, 4);
  EXPECT_GT(litBeyond, 1000);
}

TEST_F(Shows, AScrollBeginsOnDarkLamps) {
  openExample(0);
  int lit = 0;
  for (int row = 0; row < v.matrixRows; ++row) {
    for (int col = 0; col < v.matrixCols; ++col) lit += rgb(v.frameA.at(col, row)) != 0 ? 1 : 0;
  }
  EXPECT_EQ(v.A.effect().type, kColorScroll);
  EXPECT_LE(lit, 1) << "before its first step";
}

TEST_F(Shows, AFileThatIsNoShowLeavesThePresentOne) {
  openExample(2);
  check(tool.active);
  const std::string whole = bytesOf(examples[0].path);
  const std::pair<std::string, const char*> cases[] = {
      {folder + "none.Korvane", "none.Korvane"},
      {folder, "File not found"},
      {write("empty.Korvane", ""), "empty.Korvane, line 1"},
      {write("old.Korvane", "old\r\nV0.9\r\n"), "no show of version V1.0"},
      {write("binary.Korvane", std::string(100, '\0') + "\n\xff\xd8\n"), "binary.Korvane, line 2"},
      {write("cut.Korvane", whole.substr(0, whole.size() / 2)), "cut.Korvane, line"},
  };
  for (const auto& [path, text] : cases) {
    SCOPED_TRACE(path);
    machine.boxes.clear();
    open(path);
    ASSERT_EQ(machine.boxes.size(), 1U);
    EXPECT_NE(machine.boxes[0].find(text), std::string::npos) << machine.boxes[0];
    EXPECT_EQ(name(), "3-fire-wall");
    EXPECT_TRUE(v.outputActive);
    EXPECT_TRUE(v.A.timer1.enabled());
    EXPECT_FALSE(desk.session.changed());
  }
}

TEST_F(Shows, RecentShowsStandInTheMenuAndAreKept) {
  openExample(0);
  openExample(1);
  EXPECT_EQ(desk.form.recent[0]->look().caption, "2-ticker-wall");
  EXPECT_EQ(desk.form.recent[1]->look().caption, "1-club-night");
  EXPECT_FALSE(desk.form.recent[2]->look().visible);
  click(*desk.form.recent[1]);
  EXPECT_EQ(name(), "1-club-night");
  const RecentShows kept(folder + "config/recent");
  EXPECT_EQ(kept.paths(), (std::vector<std::string>{examples[0].path, examples[1].path}));
}

TEST_F(Shows, AnEffectWithoutItsPictureIsToldAndTheShowOpens) {
  write("bare.korvaneconf", bytesOf(projectOf(examples[3].path) + ".korvaneconf"));
  open(write("bare.Korvane", bytesOf(examples[3].path)));
  EXPECT_EQ(name(), "bare");
}

TEST_F(Shows, OneWithABrokenGridOpensOnTheDefaultGridWhichCanBeMended) {
  click(desk.form.tool);
  machine.answers = {folder + "gig.Korvane"};
  click(desk.form.save);
  const std::string broken = "my wall\r\nabc,12,False\r\n";
  const std::string file = write("gig.korvaneconf", broken);
  open(folder + "gig.Korvane");
  ASSERT_EQ(machine.boxes.size(), 1U);
  EXPECT_NE(machine.boxes[0].find("line 2: 'abc'"), std::string::npos) << machine.boxes[0];
  EXPECT_EQ(name(), "gig");
  EXPECT_EQ(v.matrixCols, 12);
  click(desk.form.save);
  EXPECT_EQ(bytesOf(file), broken) << "the file stays as it is";
  click(desk.form.configure);
  machine.answers = {file};
  click(plugin.matrixConf.save);
  EXPECT_NE(bytesOf(file).find("\n12,12,"), std::string::npos);
  open(folder + "gig.Korvane");
  EXPECT_FALSE(desk.session.changed());
}

}  // namespace
}  // namespace korvane
