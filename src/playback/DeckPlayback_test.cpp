#include "playback/DeckPlayback.h"

#include "testing/TestPlugin.h"

namespace korvane {
namespace {

class DeckPlayback : public TestDecks {
 protected:
  void SetUp() override { ASSERT_TRUE(open()); }
};
KORVANE_BOTH_DECKS(DeckPlayback);

TEST_P(DeckPlayback, AStillEffectNeedsNoTimer) {
  pick(deck.efxList, 0);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_FALSE(deck.timer2.enabled());
}

TEST_P(DeckPlayback, FireRunsAtFiftyMillisecondsAtFullSpeedAndSlowestAtFourSeconds) {
  choose(deck.type, kFire);
  deck.effect().speed = 100;
  pick(deck.efxList, 0);
  EXPECT_EQ(deck.timer1.interval(), 50);
  deck.effect().speed = 0;
  pick(deck.efxList, 0);
  EXPECT_EQ(deck.timer1.interval(), 4050);
}

TEST_P(DeckPlayback, TheDefaultsOfTheMovingTypesSetTheirIntervals) {
  choose(deck.type, kFluid);
  EXPECT_EQ(deck.timer1.interval(), 210);
  choose(deck.type, kTicker);
  EXPECT_EQ(deck.timer1.interval(), 300);
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(DeckPlayback, AStepTickOfAStillEffectLeavesItsTimerOff) {
  deck.timer1.enable();
  advance(1000);
  EXPECT_FALSE(deck.timer1.enabled());
}

TEST_P(DeckPlayback, ASequenceTickOfAnEffectWithoutSequenceLeavesItsTimerOff) {
  choose(deck.type, kFire);
  deck.timer2.enable();
  advance(1000);
  EXPECT_FALSE(deck.timer2.enabled());
}

TEST_P(DeckPlayback, AStepTickThatRunsOnArmsItsTimerAgain) {
  choose(deck.type, kFire);
  advance(1000);
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(DeckPlayback, AStillEffectMixesInAFadeOnlyIfItsStepsAreLong) {
  plugin.matrixForm.active.setValue(1);
  v.fadeRunning = true;
  master.timerM.setInterval(400);
  takeCalls();
  pick(deck.efxList, 0);
  EXPECT_TRUE(takeCalls().empty());
  master.timerM.setInterval(401);
  pick(deck.efxList, 0);
  EXPECT_EQ(takeCalls(), std::vector<std::string>{"UserInteraction"});
}

}  // namespace
}  // namespace korvane
