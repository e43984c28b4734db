#include "playback/EffectStart.h"

#include "generators/Effects.h"
#include "generators/colorscroll/ColorScrollCode.h"
#include "playback/EffectLists.h"
#include "testing/CellEffects.h"
#include "testing/Drawing.h"

namespace korvane {
namespace {

// What the moving effects do with the deck's picture and counters as they start: by a row of the
// list, by another type, or by the type that the record has already.
class EffectStart : public CellEffects {
 protected:
  /// The type list shows the type, the record is of it, and nothing runs.
  void become(EffectType type) {
    choose(deck.type, type);
    deck.timer1.disable();
    platform.failures.clear();
  }
  void selectRow() { ASSERT_TRUE(pick(deck.efxList, 0)); }
  void chooseAgain() {
    ASSERT_TRUE(event([this] { type_Click(engine, deck); }));
  }
  void chooseAnew(EffectType type) {
    effect().type = kColor;
    choose(deck.type, kColor);
    choose(deck.type, type);
  }
  void show(const Drawing& drawing) {
    dimension(static_cast<int>(drawing.front().size()), static_cast<int>(drawing.size()));
    deck.frame = frameOf(drawing);
  }
  void bands() {
    effect().colors = {rgb(255, 0, 0), rgb(0, 255, 0), 0};
    effect().itemWidths = {1, 1, 0};
    effect().colorCount = 2;
    effect().direction = 2;
  }
};
KORVANE_BOTH_DECKS(EffectStart);

TEST_P(EffectStart, ASelectedFireBurnsOnBlack) {
  become(kFire);
  effect().color1 = effect().color2 = 0;
  show({"WWW", "WWW"});
  selectRow();
  expectPicture(deck.frame, {"...", "..."});
  EXPECT_EQ(deck.timer1.interval(), 210);
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(EffectStart, ANewFireBurnsOnBlack) {
  show({"WWW", "WWW"});
  v.colorYellow = v.colorRed = 0;  // the colours of a new fire
  chooseAnew(kFire);
  expectPicture(deck.frame, {"...", "..."});
}

TEST_P(EffectStart, AFireChosenAgainBurnsOnThePictureThatIsThere) {
  become(kFire);
  effect().color1 = effect().color2 = 0;
  show({"WWW"});
  chooseAgain();
  int repainted = 0;
  for (int col = 0; col < 3; ++col) repainted += deck.frame.at(col, 0) == Rgb{} ? 1 : 0;
  EXPECT_EQ(repainted, 1) << "one step, one cell in three";
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(EffectStart, AFluidTakesAStepAndLetsThePictureFlowOut) {
  become(kFluid);
  effect().color1 = kBlue;
  effect().amount = 0;
  show({"RG", "YC", "MW"});
  selectRow();
  expectPicture(deck.frame, {"BB", "RG", "YC"});
  chooseAgain();
  expectPicture(deck.frame, {"BB", "BB", "RG"});
  EXPECT_EQ(deck.timer1.interval(), 210);
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(EffectStart, OnlyAChangeOfTypeResetsTheCounterOfAFluid) {
  become(kFluid);
  deck.step = 9;
  selectRow();
  chooseAgain();
  EXPECT_EQ(deck.step, 9);
  chooseAnew(kFluid);
  EXPECT_EQ(deck.step, 0);
}

// The type list leaves the window of a diagonal scroll as wide as it was.
TEST_P(EffectStart, OnlyASelectedRowResetsTheWindowOfAColorScroll) {
  become(kColorScroll);
  bands();
  show({"WGB", "..."});
  deck.step = 2;
  deck.colorIndex = 1;
  chooseAgain();
  EXPECT_EQ(deck.step, 2);
  EXPECT_EQ(deck.colorIndex, 0);
  chooseAnew(kColorScroll);
  EXPECT_EQ(deck.step, 2);
  selectRow();
  EXPECT_EQ(deck.step, 0);
}

TEST_P(EffectStart, AColorScrollStartsWithoutATickAndKeepsThePicture) {
  become(kColorScroll);
  bands();
  show({"WGB", "..."});
  selectRow();
  chooseAgain();
  expectPicture(deck.frame, {"WGB", "..."});
  EXPECT_EQ(deck.colorIndex, 0);
  EXPECT_EQ(deck.scrollLength, 2);
}

// The type list of the left deck clears the flag here; a selected row leaves it on both.
TEST_P(EffectStart, ASelectedColorScrollWithTooFewColoursLeavesTheBeatAsItIs) {
  become(kColorScroll);
  deck.beatOn = true;
  selectRow();
  EXPECT_TRUE(deck.beatOn);
  EXPECT_FALSE(deck.timer1.enabled());
}

TEST_P(EffectStart, ATickerOfTheTypeListTakesItsFirstStepAtOnce) {
  become(kTicker);
  effect().tickerText = "l";
  effect().color2 = kBlue;
  show({"RRR", "RRR", "RRR", "RRR", "RRR"});
  chooseAgain();
  EXPECT_EQ(deck.step, 1);
  expectPicture(deck.frame, {"BBW", "BBW", "BBW", "BBW", "BBW"});
  EXPECT_EQ(deck.timer1.interval(), 300);
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(EffectStart, ASelectedTickerWaitsForItsTimer) {
  become(kTicker);
  effect().tickerText = "l";
  effect().color2 = kBlue;
  show({"RRR", "RRR", "RRR", "RRR", "RRR"});
  selectRow();
  EXPECT_EQ(deck.step, 0);
  expectPicture(deck.frame, {"BBB", "BBB", "BBB", "BBB", "BBB"});
  advance(299);
  EXPECT_EQ(deck.step, 0);
  advance(1);
  EXPECT_EQ(deck.step, 1);
}

// The offset of a selected row is reckoned with the widest letter of the text before.
TEST_P(EffectStart, ASelectedTickerIsPlacedBeforeItIsBuilt) {
  become(kTicker);
  effect().direction = 1;
  effect().amount = 100;
  effect().tickerText = "M";
  selectRow();
  effect().tickerText = "l";
  selectRow();
  EXPECT_EQ(deck.imagePosX, 8) << "12 columns less 5, and one more";
  EXPECT_EQ(deck.tickerMaxWidth, 1);
  selectRow();
  EXPECT_EQ(deck.imagePosX, 12);
}

// The start of a text looks at no beat: its timer runs, and beats step it as well.
TEST_P(EffectStart, ATickerOnTheBeatStartsItsTimerAllTheSame) {
  become(kTicker);
  effect().beatControl = 1;
  deck.beatOn = false;
  selectRow();
  EXPECT_TRUE(deck.beatOn);
  EXPECT_TRUE(deck.timer1.enabled());
  deck.timer1.disable();
  chooseAgain();
  EXPECT_TRUE(deck.timer1.enabled());
  effect().beatControl = 0;
  selectRow();
  EXPECT_FALSE(deck.beatOn);
}

TEST_P(EffectStart, TheStepIntervalRunsFrom50MillisecondsToFourSeconds) {
  struct Speed {
    std::int16_t speed;
    std::int32_t interval;
  };
  for (const EffectType type : {kFire, kFluid, kTicker}) {
    become(type);
    for (const Speed& row : {Speed{0, 4050}, Speed{1, 3970}, Speed{50, 1050}, Speed{80, 210},
                             Speed{99, 50}, Speed{100, 50}}) {
      effect().speed = row.speed;
      selectRow();
      EXPECT_EQ(deck.timer1.interval(), row.interval) << kindOf(type)->name << " at " << row.speed;
    }
  }
}

TEST_P(EffectStart, AFluidStepsToTheMillisecond) {
  become(kFluid);
  effect().color1 = kBlue;
  effect().amount = 0;
  effect().speed = 100;
  show({".", ".", "."});
  selectRow();
  expectPicture(deck.frame, {"B", ".", "."});
  advance(49);
  expectPicture(deck.frame, {"B", ".", "."});
  advance(1);
  expectPicture(deck.frame, {"B", "B", "."});
  advance(50);
  expectPicture(deck.frame, {"B", "B", "B"});
}

struct Default {
  EffectType type;
  Color color1, color2;
  std::int16_t direction, speed, amount;
};

// A field that a type does not set keeps what it held.
TEST_P(EffectStart, AChangeOfTypeSetsItsDefaults) {
  constexpr Color kYellow = rgb(255, 255, 0);
  for (const Default& row :
       {Default{kFire, kYellow, kRed, 9, 80, 30}, Default{kFluid, kBlue, kWhite, 5, 80, 40},
        Default{kTicker, kWhite, 0, 3, 75, 17}}) {
    choose(deck.type, kColor);
    effect().direction = 9;
    effect().amount = 17;
    choose(deck.type, row.type);
    const Effect& e = effect();
    const char* name = kindOf(row.type)->name;
    EXPECT_EQ(e.color1, row.color1) << name;
    EXPECT_EQ(e.color2, row.color2) << name;
    EXPECT_EQ(e.direction, row.direction) << name;
    EXPECT_EQ(e.speed, row.speed) << name;
    EXPECT_EQ(e.amount, row.amount) << name;
  }
  EXPECT_EQ(effect().tickerText, "Korvane - TharnDesk - ");
  EXPECT_EQ(effect().tickerFont, 5);
}

}  // namespace
}  // namespace korvane
