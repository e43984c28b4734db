#include "generators/kit/BeatCode.h"

#include "generators/Effects.h"
#include "generators/colorchange/ColorChangeCode.h"
#include "generators/colorchange/MxColorChange.h"
#include "generators/colorscroll/ColorScrollCode.h"
#include "generators/ticker/TickerCode.h"
#include "testing/CellEffects.h"
#include "testing/Drawing.h"

namespace korvane {
namespace {

const Drawing kHalfDone = {"GGGG", "GGGG", "RRRR", "RRRR"};
constexpr std::int32_t kLockOut = 200;  // what the dialogs set, in milliseconds

class Beats : public CellEffects {
 protected:
  void SetUp() override {
    CellEffects::SetUp();
    deck.beatOn = true;
    deck.timer2.setInterval(kLockOut);
  }
  void beat() {
    event([this] { plugin.plugIn.ITharnPlugin_MessageHandle(kMessageBeat, 0, 0); });
  }
  /// A ticker of a text of ten steps.
  void ticker() {
    effect().type = kTicker;
    effect().color1 = kWhite;
    effect().tickerText = "HH";
    effect().tickerFont = 5;
    effect().direction = 3;
    effect().beatControl = 1;
    event([this] { tickerBuild(engine, deck); });
  }
  void colorChange(const std::vector<Color>& colors) {
    effect().type = kColorChange;
    effect().colors = colors;
    effect().colors.push_back(0);
    effect().colorCount = static_cast<std::int16_t>(colors.size());
    effect().itemTimes.assign(colors.size() + 1, 1);
    effect().fadeMode = 0;
    effect().beatControl = 1;
    deck.colorIndex = 0;
  }
};
KORVANE_BOTH_DECKS(Beats);

TEST_P(Beats, ABeatIsOneStepOfTheTicker) {
  ticker();
  EXPECT_FALSE(deck.timer1.enabled());
  beat();
  EXPECT_EQ(deck.step, 1);
  EXPECT_EQ(deck.frame.at(11, 0), (Rgb{255, 255, 255}));
  EXPECT_TRUE(deck.timer2.enabled());
  EXPECT_FALSE(deck.timer1.enabled());
}

TEST_P(Beats, OfBeatsAHundredMillisecondsApartEverySecondIsDropped) {
  ticker();
  std::vector<int> steps;
  for (int i = 0; i < 8; ++i) {
    beat();
    steps.push_back(deck.step);
    advance(100);
  }
  EXPECT_EQ(steps, (std::vector<int>{1, 1, 2, 2, 3, 3, 4, 4}));
}

TEST_P(Beats, TheLockOutEndsToTheMillisecond) {
  ticker();
  beat();
  advance(kLockOut - 1);
  beat();
  EXPECT_EQ(deck.step, 1);
  advance(1);
  EXPECT_FALSE(deck.timer2.enabled()) << "its tick does nothing but end it";
  beat();
  EXPECT_EQ(deck.step, 2);
}

TEST_P(Beats, AreNotCountedWhileTheDeckDoesNotListen) {
  ticker();
  deck.beatOn = false;
  beat();
  advance(1000);
  EXPECT_EQ(deck.step, 0);
  EXPECT_FALSE(deck.timer2.enabled());
  deck.beatOn = true;
  beat();
  EXPECT_EQ(deck.step, 1);
}

TEST_P(Beats, StepDeckAFirstThenDeckB) {
  std::string order;
  for (Deck* each : {&v.A, &v.B}) {
    each->beatOn = true;
    Effect& own = each->effect();
    own = {};
    own.type = kTicker;
    own.color1 = kWhite;
    own.tickerText = "H";
    own.tickerFont = 5;
    own.direction = 3;
    own.beatControl = 1;
    event([&] { tickerBuild(engine, *each); });
    each->picture.onPixels = [&order, each](int, int, int, int) {
      const char letter = each->isB() ? 'B' : 'A';
      if (order.empty() || order.back() != letter) order += letter;
    };
  }
  beat();
  EXPECT_EQ(order, "AB");
  for (Deck* each : {&v.A, &v.B}) each->picture.onPixels = nullptr;
}

TEST_P(Beats, AreIgnoredByAnEffectOfAnotherType) {
  for (std::int16_t type : {kColor, kGradient, kPaint, kImage, kFire, kFluid}) {
    effect().type = type;
    beat();
    EXPECT_FALSE(deck.timer2.enabled()) << kindOf(type)->name;
    EXPECT_TRUE(deck.beatOn) << "the deck goes on listening";
    EXPECT_EQ(takeFailure(), 0);
  }
}

TEST_P(Beats, CutToTheNextColourAndRoundAgain) {
  dimension(1, 1);
  const std::vector<Color> colors = {rgb(255, 0, 0), rgb(0, 255, 0), rgb(0, 0, 255)};
  colorChange(colors);
  for (const int next : {1, 2, 0, 1}) {
    const Color before = colors[static_cast<std::size_t>(deck.colorIndex)];
    const Color after = colors[static_cast<std::size_t>(next)];
    beat();
    EXPECT_EQ(deck.colorIndex, next);
    EXPECT_EQ(effect().color2, before);
    EXPECT_EQ(effect().color1, after);
    EXPECT_EQ(rgb(deck.frame.at(0, 0)), after);
    EXPECT_EQ(rgb(v.frameM.at(0, 0)), after);
    beat();
    EXPECT_EQ(deck.colorIndex, next) << "locked out";
    advance(kLockOut);
    EXPECT_FALSE(deck.timer1.enabled()) << "the lock-out is no end of a transition";
    EXPECT_FALSE(deck.timer2.enabled());
  }
}

TEST_P(Beats, ChangeNothingOnASingleColour) {
  colorChange({rgb(255, 0, 0)});
  effect().color1 = rgb(1, 2, 3);
  effect().color2 = rgb(4, 5, 6);
  takeCalls();
  beat();
  EXPECT_EQ(effect().color1, rgb(1, 2, 3));
  EXPECT_EQ(effect().color2, rgb(4, 5, 6));
  EXPECT_EQ(deck.colorIndex, 0);
  EXPECT_FALSE(deck.timer2.enabled()) << "not even the lock-out starts";
  EXPECT_TRUE(takeCalls().empty());
}

TEST_P(Beats, MoveAColorScroll) {
  dimension(3, 1);
  effect().type = kColorScroll;
  effect().direction = 3;
  effect().colors = {rgb(255, 0, 0), rgb(0, 0, 255), 0};
  effect().itemWidths = {1, 1, 0};
  effect().colorCount = 2;
  deck.colorIndex = 0;
  event([this] { buildScrollStrip(engine, deck); });
  beat();
  expectPicture(deck.frame, {"..R"});
  beat();
  expectPicture(deck.frame, {"..R"});
  advance(kLockOut);
  beat();
  expectPicture(deck.frame, {".RB"});
}

// Beat control comes on in the middle of a transition: it stops where it stands. The next beat
// wakes it with the timer that it shares, and its end starts the step timer of an effect that
// follows the beat (docs/kept.md, beat-transition).
TEST_P(Beats, WakeATransitionThatBeatControlStopped) {
  dimension(4, 4);
  colorChange({rgb(255, 0, 0), rgb(0, 255, 0), rgb(0, 0, 255)});
  effect().beatControl = 0;
  deck.beatOn = false;
  effect().amount = 100;  // one second for a transition
  event([this] { startColorChange(engine, deck); });
  deck.timer1.enable();
  choose(deck.type, kColorChange);
  click(panel.edit);
  MxColorChange& dialog = plugin.window<MxColorChange>();
  choose(dialog.cbFadeMode, 6);  // "ScrollDown"
  advance(1000 + 2 * 250);
  expectPicture(deck.frame, kHalfDone);
  event([&] { dialog.beatControl.setValue(1); });
  advance(5000);
  expectPicture(deck.frame, kHalfDone);
  beat();
  expectPicture(deck.frame, {"BBBB", "BBBB", "BBBB", "BBBB"});
  EXPECT_EQ(deck.step, 2);
  EXPECT_TRUE(deck.timer2.enabled());
  advance(2L * kLockOut);
  EXPECT_EQ(deck.step, 4);
  EXPECT_TRUE(deck.transitionRunning);
  beat();
  EXPECT_EQ(deck.colorIndex, 2) << "beats are dropped as long as it runs";
  advance(kLockOut);
  EXPECT_FALSE(deck.transitionRunning);
  EXPECT_FALSE(deck.timer2.enabled());
  EXPECT_TRUE(deck.timer1.enabled());
  EXPECT_EQ(effect().fadeMode, 0);
}

}  // namespace
}  // namespace korvane
