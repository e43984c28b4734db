// The outputs of the desk: their window, what they send, and what the monitor shows of it.

#include <algorithm>

#include "desk/whole/Desk.h"
#include "desk/whole/TestDesk.h"
#include "testing/UdpReceiver.h"

namespace korvane {
namespace {

TEST_F(TestDesk, LampsThatNoOutputCarriesAreCounted) {
  click(desk.form.tool);
  event([this] {
    for (int row = 0; row < 3; ++row) v.channelMap.set(0, row, 1, 513);
  });
  EXPECT_EQ(desk.form.wrong.look().caption, "") << "nothing is sent at all";
  const UdpReceiver own;  // a place that no other program sends to
  event([&] { desk.setup.use(parseOutput("sacn:1" + own.place())); });
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
  for (const char* text :
       {("sacn:3=101+5-6=7-8@127.0.0.1:7000%lo,rate=30,priority=7,source=Left%2C "
         "wall,sync=9,end=hold,"
         "gamma=2.2,smooth=on,balance=100/90/80,name=A 100 %25"),
        "artnet:0-3@nodes,sync=on,end=release", "artnet:4@10.0.0.1", "ddp@10.0.0.2:99,rate=20",
        "ola:1-2", "ola:0@10.0.0.9"}) {
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

// By sACN the values begin at byte 126.
TEST_F(TestDesk, TheMonitorShowsWhatIsSentByteForByte) {
  const UdpReceiver receiver;
  click(desk.form.wiring);
  event([this] { desk.wiring.setPlan({.cols = 20, .rows = 20}); });
  click(desk.wiring.apply);
  light();
  event([&] {
    desk.setup.use(
        parseOutput("sacn:2=7" + receiver.place() + ",gamma=2.2,smooth=on,balance=90/80/70"));
  });
  event([this] { desk.form.grandMaster.setValue(63); });
  click(desk.form.channels);
  const std::vector<std::string> names = desk.monitor.universe.items();
  const auto sent = std::ranges::find(names, "1. sACN, universe 7");
  ASSERT_NE(sent, names.end());
  event([&] { desk.monitor.universe.choose(static_cast<int>(sent - names.begin())); });
  const auto shown = desk.monitor.shown();
  EXPECT_EQ(std::ranges::count_if(shown, [](int level) { return level > 0; }), 170) << "red lamps";
  std::vector<int> values;
  for (int packet = 0; packet < 50 && !std::ranges::equal(values, shown); ++packet) {
    const auto bytes = receiver.packet();
    ASSERT_EQ(bytes.size(), 638U);
    values.assign(bytes.begin() + 126, bytes.end());
  }
  EXPECT_TRUE(std::ranges::equal(values, shown));
}

}  // namespace
}  // namespace korvane
