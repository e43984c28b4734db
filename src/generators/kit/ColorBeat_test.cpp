#include <gtest/gtest.h>

#include "generators/colorchange/MxColorChange.h"
#include "testing/ColorEffects.h"

namespace korvane {
namespace {

// Color Change on the beat, switched on in its dialog.
class ColorChangeOnBeat : public ColorEffectsOnDecks<kColorChange> {
 protected:
  void play(const std::vector<Color>& colors, std::int16_t mode = 0) {
    setColors(colors, std::vector<double>(colors.size(), 1), {});
    effect.amount = 100;
    effect.fadeMode = mode;
    start();
    ASSERT_TRUE(edit());
  }
  void switchBeat() { toggle(plugin.window<MxColorChange>().beatControl); }
};

KORVANE_BOTH_DECKS(ColorChangeOnBeat);

TEST_P(ColorChangeOnBeat, EachBeatCutsToTheNextColour) {
  resize(2, 1);
  play({kRed, kGreen, kBlue}, kFadeScrollDown);
  switchBeat();
  for (const char* picture : {"GG", "BB", "RR"}) {
    beat();
    expectPicture(deck.frame, {picture});
    advance(200);
  }
  EXPECT_EQ(effect.color2, kBlue);
  EXPECT_EQ(effect.color1, kRed);
}

TEST_P(ColorChangeOnBeat, WithoutABeatTheColourStays) {
  resize(2, 1);
  play({kRed, kGreen});
  switchBeat();
  advance(60'000);
  expectPicture(deck.frame, {"RR"});
}

TEST_P(ColorChangeOnBeat, OfBeats100MillisecondsApartEverySecondOneIsDropped) {
  play({kRed, kGreen, kBlue});
  switchBeat();
  std::vector<int> indices;
  for (int i = 0; i < 6; ++i) {
    beat();
    indices.push_back(deck.colorIndex);
    advance(100);
  }
  EXPECT_EQ(indices, (std::vector<int>{1, 1, 2, 2, 0, 0}));
}

TEST_P(ColorChangeOnBeat, ABeatIsAcceptedAgain200MillisecondsAfterTheLastOne) {
  play({kRed, kGreen});
  switchBeat();
  beat();
  advance(199);
  beat();
  EXPECT_EQ(deck.colorIndex, 1);
  advance(1);
  beat();
  EXPECT_EQ(deck.colorIndex, 0);
}

TEST_P(ColorChangeOnBeat, TheLockOutEndsWithoutStartingTheStepTimer) {
  play({kRed, kGreen});
  switchBeat();
  beat();
  EXPECT_TRUE(deck.timer2.enabled());
  advance(200);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_FALSE(deck.timer2.enabled());
}

TEST_P(ColorChangeOnBeat, WithOneColourABeatChangesNothingNotEvenTheLockOut) {
  play({kRed});
  switchBeat();
  beat();
  EXPECT_FALSE(deck.timer2.enabled());
  EXPECT_EQ(deck.colorIndex, 0);
}

TEST_P(ColorChangeOnBeat, ABeatGoesOnWithTheTransitionInWhichTheBeatWasSwitchedOn) {
  play({kRed, kGreen, kBlue}, kFadeScrollDown);
  advance(1000 + 2 * 250);  // two of four rows are green
  expectPicture(deck.frame, {"GGGG", "GGGG", "RRRR", "RRRR"});
  switchBeat();
  advance(60'000);
  expectPicture(deck.frame, {"GGGG", "GGGG", "RRRR", "RRRR"});

  beat();
  expectPicture(deck.frame, {"BBBB", "BBBB", "BBBB", "BBBB"});
  EXPECT_EQ(effect.color2, kGreen);
  EXPECT_TRUE(deck.timer2.enabled());
  EXPECT_EQ(deck.step, 2);
  advance(200);
  EXPECT_EQ(deck.step, 3) << "from where it stood, now every 200 ms";
  beat();
  EXPECT_EQ(deck.colorIndex, 2) << "dropped: the transition runs";
  advance(200);
  EXPECT_TRUE(deck.transitionRunning);
  EXPECT_FALSE(deck.timer1.enabled());

  advance(200);
  EXPECT_FALSE(deck.transitionRunning);
  EXPECT_EQ(effect.fadeMode, 0);
  EXPECT_TRUE(deck.timer1.enabled()) << "although the effect follows the beat";
  EXPECT_EQ(effect.beatControl, 1);
}

TEST_P(ColorChangeOnBeat, SwitchedOffInMidTransitionTheNextStepBeginsANewOne) {
  play({kRed, kGreen}, kFadeScrollDown);
  advance(1000 + 250);
  switchBeat();
  switchBeat();
  EXPECT_TRUE(deck.timer1.enabled());
  EXPECT_FALSE(deck.timer2.enabled());
  advance(1000);
  EXPECT_EQ(deck.step, 0);
  EXPECT_EQ(deck.colorIndex, 0);
  EXPECT_TRUE(deck.timer2.enabled());
}

TEST_P(ColorChangeOnBeat, AFlagLeftByAnotherEffectIsIgnoredByATypeWithoutBeats) {
  play({kRed, kGreen});
  switchBeat();
  choose(deck.type, kGradient);
  const Frame before = deck.frame;
  EXPECT_TRUE(deck.beatOn);
  beat();
  EXPECT_EQ(deck.frame.at(0, 0), before.at(0, 0));
  EXPECT_FALSE(deck.timer2.enabled());
  EXPECT_EQ(takeFailure(), 0);
}

class ColorScrollOnBeat : public ColorEffectsOnDecks<kColorScroll> {
 protected:
  void play(std::int16_t beatControl) {
    resize(3, 1);
    setColors({kRed, kGreen}, {}, {1, 1});
    effect.direction = 3;
    effect.beatControl = beatControl;
    deck.frame = frameOf({"..."});
    start();
  }
};

KORVANE_BOTH_DECKS(ColorScrollOnBeat);

TEST_P(ColorScrollOnBeat, SelectingTheEffectSetsTheFlagAndLeavesTheTimerOff) {
  play(1);
  EXPECT_TRUE(deck.beatOn);
  EXPECT_FALSE(deck.timer1.enabled());
  play(0);
  EXPECT_FALSE(deck.beatOn);
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(ColorScrollOnBeat, EachBeatIsOneTickUnlessItComesTooSoon) {
  play(1);
  deck.timer2.setInterval(200);
  beat();
  expectPicture(deck.frame, {"..R"});
  advance(100);
  beat();
  expectPicture(deck.frame, {"..R"});
  advance(100);
  beat();
  expectPicture(deck.frame, {".RG"});
  EXPECT_FALSE(deck.timer1.enabled());
}

TEST_P(ColorScrollOnBeat, TheLockOutIsWhateverTheLastEffectLeftInTheTimer) {
  deck.timer2.setInterval(5000);
  play(1);
  beat();
  advance(4999);
  beat();
  expectPicture(deck.frame, {"..R"});
  advance(1);
  beat();
  expectPicture(deck.frame, {".RG"});
}

}  // namespace
}  // namespace korvane
