#include "output/MatrixCode.h"

#include <gtest/gtest.h>

#include "testing/Drawing.h"
#include "testing/EngineTest.h"

namespace korvane {
namespace {

using Calls = std::vector<std::string>;

// A grid whose decks show one colour each, with deck A chosen.
class Sending : public EngineTest {
 protected:
  void SetUp() override { start(2, 2); }

  void start(int cols, int rows) {
    redim(cols, rows);
    v.outputActive = true;
  }
  void show(const Drawing& drawing) {
    v.frameA = frameOf(drawing);
    mixFrame(engine, 0);
  }
};

TEST_F(Sending, OnePassAnnouncesItselfThenSendsColumnRowRedGreenBlue) {
  show({"RW", ".C"});
  EXPECT_EQ(host.take(), (Calls{"UserInteraction",
                                "SetChannel 1 255",     // column 0, row 0, red
                                "SetChannel 7 255",     // column 1, row 0, red,
                                "SetChannel 8 255",     // green,
                                "SetChannel 9 255",     // blue
                                "SetChannel 11 255",    // column 1, row 1, green,
                                "SetChannel 12 255"}))  // blue
      << "what is black stays as the host has it from the start";
}

TEST_F(Sending, AFrameThatRepeatsTheLastOneMakesOneCall) {
  show({"RW", ".C"});
  host.take();
  mixFrame(engine, 0);
  EXPECT_EQ(host.take(), Calls{"UserInteraction"});
}

TEST_F(Sending, OnlyTheComponentsThatChangedAreSent) {
  show({"RR", "RR"});
  host.take();
  show({"RR", "RY"});
  EXPECT_EQ(host.take(), (Calls{"UserInteraction", "SetChannel 11 255"}));
  show({"GR", "RY"});
  EXPECT_EQ(host.take(), (Calls{"UserInteraction", "SetChannel 1 0", "SetChannel 2 255"}));
}

TEST_F(Sending, TheBytesOfThePictureAreSentAsTheyAre) {
  v.frameA.at(1, 1) = {1, 128, 254};
  mixFrame(engine, 0);
  EXPECT_EQ(host.take(), (Calls{"UserInteraction", "SetChannel 10 1", "SetChannel 11 128",
                                "SetChannel 12 254"}));
}

TEST_F(Sending, FrameSentHoldsWhatTheHostWasGiven) {
  show({"RW", ".C"});
  expectPicture(v.frameSent, {"RW", ".C"});
}

TEST_F(Sending, WithoutTheCheckBoxNothingIsSentAndNothingIsRemembered) {
  v.outputActive = false;
  show({"RW", ".C"});
  mixCell(engine, 0, 0, 0);
  EXPECT_EQ(host.take(), Calls{});
  expectPicture(v.frameSent, {"..", ".."});
}

TEST_F(Sending, TurningOutputOffAndOnDoesNotRepeatWhatIsUnchanged) {
  show({"RR", "RR"});
  host.take();
  v.outputActive = false;
  show({"RG", "RR"});
  v.outputActive = true;
  sendFrame(engine);
  EXPECT_EQ(host.take(), (Calls{"UserInteraction", "SetChannel 7 0", "SetChannel 8 255"}));
}

TEST_F(Sending, AfterDimensioningEveryByteThatIsNotZeroIsSent) {
  show({"RR", "RR"});
  host.take();
  start(2, 2);
  show({"R.", ".."});
  EXPECT_EQ(host.take(), (Calls{"UserInteraction", "SetChannel 1 255"}));
}

TEST_F(Sending, ACellIsAnnouncedAndSentAlone) {
  v.frameA = frameOf({"RW", ".C"});
  mixCell(engine, 0, 1, 0);
  EXPECT_EQ(host.take(),
            (Calls{"UserInteraction", "SetChannel 7 255", "SetChannel 8 255", "SetChannel 9 255"}));
  expectPicture(v.frameM, {".W", ".."});
  expectPicture(v.frameSent, {".W", ".."});
  mixCell(engine, 0, 1, 0);
  EXPECT_EQ(host.take(), Calls{"UserInteraction"});
}

TEST_F(Sending, Channel512IsSentAnd513IsNot) {
  v.channelMap.set(0, 0, 0, 512);
  v.channelMap.set(0, 0, 1, 513);
  v.channelMap.set(0, 0, 2, 8192);
  show({"W.", ".."});
  EXPECT_EQ(host.take(), (Calls{"UserInteraction", "SetChannel 512 255"}));
  EXPECT_EQ(v.frameSent.at(0, 0), (Rgb{255, 0, 0}));
  show({"W.", ".."});
  EXPECT_EQ(host.take(), Calls{"UserInteraction"});
  mixCell(engine, 0, 0, 0);
  EXPECT_EQ(host.take(), Calls{"UserInteraction"});
}

TEST_F(Sending, AChannelAbove512DoesNotHideTheOthersOfItsColumn) {
  for (int component = 0; component < 3; ++component) v.channelMap.set(0, 0, component, 600);
  show({"W.", "R."});
  EXPECT_EQ(host.take(), (Calls{"UserInteraction", "SetChannel 4 255"}));
}

TEST_F(Sending, ChannelZeroAndBelowAreSentLikeAnyOther) {
  v.channelMap.redim(2, 2);
  v.channelMap.set(0, 0, 1, -5);
  show({"W.", ".."});
  EXPECT_EQ(host.take(), (Calls{"UserInteraction", "SetChannel 0 255", "SetChannel -5 255",
                                "SetChannel 0 255"}));
}

TEST_F(Sending, TwoLampsMayShareAChannel) {
  v.channelMap.set(1, 0, 0, 1);
  show({"RR", ".."});
  EXPECT_EQ(host.take(), (Calls{"UserInteraction", "SetChannel 1 255", "SetChannel 1 255"}));
}

TEST_F(Sending, AChannelThatTheHostRefusesKeepsItsOldByteAndIsTriedAgain) {
  host.refuseAt = 3;
  EXPECT_EQ(failureOf([&] { show({"W.", ".G"}); }), FakeHost::kRefused);
  EXPECT_EQ(host.take(),
            (Calls{"UserInteraction", "SetChannel 1 255", "SetChannel 2 255 refused"}));
  EXPECT_EQ(v.frameSent.at(0, 0), (Rgb{255, 0, 0}));
  host.refuseAt = 0;
  sendFrame(engine);
  EXPECT_EQ(host.take(), (Calls{"UserInteraction", "SetChannel 2 255", "SetChannel 3 255",
                                "SetChannel 11 255"}));
  expectPicture(v.frameSent, {"W.", ".G"});
}

TEST_F(Sending, ACellThatTheHostRefusesIsTriedAgain) {
  v.frameA = frameOf({"Y.", ".."});
  host.refuseAt = 2;
  EXPECT_EQ(failureOf([&] { mixCell(engine, 0, 0, 0); }), FakeHost::kRefused);
  host.take();
  host.refuseAt = 0;
  mixCell(engine, 0, 0, 0);
  EXPECT_EQ(host.take(), (Calls{"UserInteraction", "SetChannel 1 255", "SetChannel 2 255"}));
}

TEST_F(Sending, AnAnnouncementThatTheHostRefusesEndsThePass) {
  host.refuseAt = 1;
  EXPECT_EQ(failureOf([&] { show({"W.", ".."}); }), FakeHost::kRefused);
  EXPECT_EQ(host.take(), Calls{"UserInteraction refused"});
  expectPicture(v.frameM, {"W.", ".."});
  expectPicture(v.frameSent, {"..", ".."});
}

TEST_F(Sending, WithoutAHostSendingIsAFailureAndMixingIsNot) {
  v.host = nullptr;
  EXPECT_EQ(failureOf([&] { sendFrame(engine); }), kObjectNotSet);
  v.outputActive = false;
  EXPECT_EQ(failureOf([&] { mixFrame(engine, 0.5); }), 0);
}

TEST_F(Sending, AGridWithoutCellsIsAnnouncedAndNothingElse) {
  for (const auto& [cols, rows] : {std::pair(0, 0), {0, 5}, {5, 0}}) {
    start(cols, rows);
    for (const std::int16_t type : {kCrossFade, kBlackFade, kRandom, kAdd}) {
      v.fadeTypeNow = type;
      mixFrame(engine, 0.3);
      EXPECT_EQ(host.take(), Calls{"UserInteraction"}) << cols << " x " << rows;
    }
  }
}

TEST_F(Sending, ANegativeGridAsABrokenDefinitionLeavesItHasNoCells) {
  v.matrixCols = -3;
  mixFrame(engine, 0.3);
  EXPECT_EQ(host.take(), Calls{"UserInteraction"});
}

TEST(FreshEngine, MixesAndSendsNothing) {
  HeadlessPlatform platform;
  FakeHost host;
  Engine engine(platform);
  engine.v.host = &host;
  engine.v.outputActive = true;
  mixFrame(engine, 0.3);
  EXPECT_EQ(host.take(), Calls{"UserInteraction"});
}

TEST_F(Sending, AGridLeftBehindBySizeIsASubscriptFailure) {
  for (Frame* stale : {&v.frameA, &v.frameB, &v.frameM}) {
    start(3, 3);
    stale->redim(2, 3);
    EXPECT_EQ(failureOf([&] { mixFrame(engine, 0.3); }), kSubscript);
    stale->redim(3, 2);
    EXPECT_EQ(failureOf([&] { mixFrame(engine, 0.3); }), kSubscript);
    stale->redim(4, 4);
    EXPECT_EQ(failureOf([&] { mixFrame(engine, 0.3); }), kSubscript);
  }
  start(3, 3);
  v.fadeMap.redim(2, 3);
  EXPECT_EQ(failureOf([&] { mixFrame(engine, 0.3); }), kSubscript);
  start(3, 3);
  v.frameSent.redim(2, 3);
  EXPECT_EQ(failureOf([&] { sendFrame(engine); }), kSubscript);
  start(3, 3);
  v.channelMap.redim(2, 3);
  EXPECT_EQ(failureOf([&] { sendFrame(engine); }), kSubscript);
}

TEST_F(Sending, ACellOutsideTheGridIsASubscriptFailure) {
  const auto expectRefused = [this](std::int16_t col, std::int16_t row) {
    EXPECT_EQ(failureOf([&] { mixCell(engine, 0.3, col, row); }), kSubscript);
    EXPECT_EQ(failureOf([&] { sendCell(engine, col, row); }), kSubscript);
  };
  expectRefused(-1, 0);
  expectRefused(0, -1);
  expectRefused(3, 0);
  expectRefused(0, 3);
}

TEST_F(Sending, AResultOutsideAByteIsAnOverflowAndSendsNothing) {
  engine.master.MFadeColor.setBackColor(0);
  v.frameA.fill({255, 255, 255});
  v.frameB.fill({});
  host.take();
  for (const std::int16_t type : {kCrossFade, kBlackFade, kColorFade}) {
    v.fadeTypeNow = type;
    for (const double m : {-0.1, -1e300}) {
      EXPECT_EQ(failureOf([&] { mixFrame(engine, m); }), kOverflow);
      EXPECT_EQ(failureOf([&] { mixCell(engine, m, 0, 0); }), kOverflow);
    }
  }
  EXPECT_EQ(host.take(), Calls{});
  v.fadeTypeNow = kRandom;  // takes no notice of the position
  EXPECT_EQ(failureOf([&] { mixFrame(engine, 7); }), 0);
}

// Beyond the ends of the fader the formulas go on: a picture may come out of them all the same.
TEST_F(Sending, BeyondTheFadersEndsOnlyAResultOutsideAByteFails) {
  struct Case {
    std::int16_t type;
    double m;
    int mixed;
  };
  v.frameA.fill({100, 100, 100});
  v.frameB.fill({110, 110, 110});
  engine.master.MFadeColor.setBackColor(rgb(100, 100, 100));
  for (const Case& row :
       {Case{kCrossFade, 1.5, 115}, Case{kCrossFade, -0.5, 95}, Case{kBlackFade, 1.5, 220},
        Case{kBlackFade, -0.25, 150}, Case{kColorFade, 1.5, 120}, Case{kColorFade, -0.5, 100},
        Case{kAdd, 1.5, 10}, Case{kAdd, -0.25, 45}}) {
    v.fadeTypeNow = row.type;
    const auto byte = static_cast<std::uint8_t>(row.mixed);
    EXPECT_EQ(failureOf([&] { mixFrame(engine, row.m); }), 0) << row.type << " at " << row.m;
    EXPECT_EQ(v.frameM.at(1, 1), (Rgb{byte, byte, byte})) << row.type << " at " << row.m;
    EXPECT_EQ(v.fadeMap.at(1, 1), row.m > 0.5 ? 1.0F : 0.0F);
    EXPECT_EQ(failureOf([&] { mixCell(engine, row.m, 0, 1); }), 0);
  }
}

TEST_F(Sending, BeyondTheFadersEndsTheComponentsBeforeAFailureAreMixed) {
  v.frameA.fill({100, 100, 100});
  v.frameB = v.frameA;
  v.frameB.at(1, 0) = {110, 255, 110};
  v.frameM.fill({});
  EXPECT_EQ(failureOf([&] { mixFrame(engine, 2); }), kOverflow);
  EXPECT_EQ(v.frameM.at(0, 1), (Rgb{100, 100, 100}));
  EXPECT_EQ(v.frameM.at(1, 0), (Rgb{120, 0, 0}));
  EXPECT_EQ(v.frameM.at(1, 1), Rgb{});
}

class Simulation : public EngineTest {
 protected:
  // A surface on which two columns and two rows of boxes with a pitch of 4 x 3 stand from (2, 1).
  void SetUp() override {
    redim(2, 2);
    engine.sim.resize(11, 8);
    v.simCellW = 4;
    v.simCellH = 3;
    v.simLeft = 2;
    v.simTop = 1;
    v.simActive = true;
    v.frameA = frameOf({"RG", "BW"});
  }
};

TEST_F(Simulation, BoxesAreOneLessThanThePitch) {
  mixFrame(engine, 0);
  expectPicture(engine.sim.raster(), {"...........",  //
                                      "..RRR.GGG..",  //
                                      "..RRR.GGG..",  //
                                      "...........",  //
                                      "..BBB.WWW..",  //
                                      "..BBB.WWW..",  //
                                      "...........",  //
                                      "..........."});
}

TEST_F(Simulation, ACellDrawsItsBoxAlone) {
  mixCell(engine, 0, 1, 0);
  expectPicture(engine.sim.raster(), {"...........",  //
                                      "......GGG..",  //
                                      "......GGG..",  //
                                      "...........",  //
                                      "...........",  //
                                      "...........",  //
                                      "...........",  //
                                      "..........."});
}

TEST_F(Simulation, WithoutTheCheckBoxNothingIsDrawn) {
  v.simActive = false;
  mixFrame(engine, 0);
  mixCell(engine, 0, 0, 0);
  EXPECT_EQ(engine.sim.raster(), Raster(11, 8));
}

TEST_F(Simulation, TheWindowIsDrawnAfterTheHostWasServed) {
  v.outputActive = true;
  bool drawnBefore = true;
  engine.sim.onPixels = [&](int, int, int, int) { drawnBefore = host.calls.empty(); };
  mixFrame(engine, 0);
  EXPECT_FALSE(drawnBefore);
  host.refuseAt = 1;
  host.take();
  engine.sim.clear();
  EXPECT_EQ(failureOf([&] { mixFrame(engine, 0); }), FakeHost::kRefused);
  EXPECT_EQ(engine.sim.raster(), Raster(11, 8));
}

TEST_F(Simulation, AFrameIsOneChangeForTheViewAndACellItsBox) {
  std::vector<std::array<int, 4>> changes;
  engine.sim.onPixels = [&](int x1, int y1, int x2, int y2) {
    changes.push_back({x1, y1, x2, y2});
  };
  mixFrame(engine, 0);
  EXPECT_EQ(changes, (std::vector<std::array<int, 4>>{{0, 0, 10, 7}}));
  changes.clear();
  mixCell(engine, 0, 1, 0);
  EXPECT_EQ(changes, (std::vector<std::array<int, 4>>{{6, 1, 8, 2}}));
}

TEST_F(Simulation, ThePlaceOfABoxIsReckonedInSixteenBits) {
  v.simCellW = 32767;
  v.simLeft = 1;
  EXPECT_EQ(failureOf([&] { simDrawCell(engine, 1, 0); }), kOverflow);
  v.simCellW = 20000;
  redim(3, 3);
  EXPECT_EQ(failureOf([&] { simDrawCell(engine, 2, 0); }), kOverflow);
  EXPECT_EQ(failureOf([&] { simDrawFrame(engine); }), kOverflow);
}

TEST_F(Simulation, APitchOfZeroCollapsesTheBoxes) {
  v.simCellW = 0;
  v.simCellH = 0;
  EXPECT_EQ(failureOf([&] { mixFrame(engine, 0); }), 0);
  EXPECT_EQ(engine.sim.raster().pixel(2, 1), rgb(255, 255, 255));  // the last cell's colour
  EXPECT_EQ(engine.sim.raster().pixel(6, 4), 0);
}

TEST_F(Simulation, AGridWithoutCellsDrawsNothing) {
  redim(0, 0);
  EXPECT_EQ(failureOf([&] { mixFrame(engine, 0); }), 0);
  EXPECT_EQ(engine.sim.raster(), Raster(11, 8));
}

}  // namespace
}  // namespace korvane
