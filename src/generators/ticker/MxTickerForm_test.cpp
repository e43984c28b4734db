#include "generators/ticker/MxTickerForm.h"

#include "testing/CellEffects.h"

namespace korvane {
namespace {

class TickerDialog : public CellEffects {
 protected:
  void SetUp() override {
    CellEffects::SetUp();
    event([this] { deck.type.setIndex(kTicker); });  // by no person
    effect().name = "news";
    click(panel.edit);
    ASSERT_TRUE(platform.failures.empty());
  }
  void expectPressed(int direction) {
    for (const int index : {1, 3, 5, 7})
      EXPECT_EQ(dialog.richtung.button(index).pressed(), index == direction) << index;
  }
  bool check(CheckBox& box, bool on) {
    return event([&] { box.setValue(on ? 1 : 0); });
  }
  /// Lets the text run, and tells whether an action starts it anew with a clean picture.
  template <class Action>
  bool restarts(Action action) {
    advance(3L * deck.timer1.interval());
    EXPECT_GT(deck.step, 0);
    action();
    if (deck.step != 0) return false;
    for (int col = 0; col < 12; ++col) {
      for (int row = 0; row < 12; ++row) EXPECT_EQ(rgb(deck.frame.at(col, row)), effect().color2);
    }
    return true;
  }
  /// Opens the dialog anew on the record as it is now.
  void reopen() {
    click(dialog.OK);
    click(panel.edit);
  }

  MxTickerForm& dialog = plugin.window<MxTickerForm>();
};
KORVANE_BOTH_DECKS(TickerDialog);

TEST_P(TickerDialog, ShowsTheRecord) {
  EXPECT_TRUE(dialog.visible());
  EXPECT_FALSE(dialog.modal());
  EXPECT_EQ(dialog.caption(), "Ticker");
  EXPECT_EQ(dialog.myName.text(), "news");
  EXPECT_EQ(dialog.myTicker.text(), "Korvane - TharnDesk - ");
  EXPECT_EQ(dialog.Color1.backColor(), rgb(255, 255, 255));
  EXPECT_EQ(dialog.Color2.backColor(), rgb(0, 0, 0));
  EXPECT_EQ(dialog.myFont.text(), "5-point");
  EXPECT_EQ(dialog.slSpeed.value(), 75);
  EXPECT_EQ(dialog.slOffset.value(), 0);
  expectPressed(3);
  for (const CheckBox* box : {&dialog.Beat, &dialog.Backward, &dialog.Mirror, &dialog.Letter})
    EXPECT_FALSE(box->checked()) << box->name();
}

TEST_P(TickerDialog, HasItsTexts) {
  struct Text {
    const Control& control;
    const char *words, *toolTip;
  };
  const std::vector<Text> all = {{dialog.myName, "Name : ", ""},
                                 {dialog.myTicker, "Text : ", ""},
                                 {dialog.Color1, "Text Color : ", ""},
                                 {dialog.Color2, "Background Color : ", ""},
                                 {dialog.myFont, "Font : ", ""},
                                 {dialog.slSpeed, "Speed : ", "slow - fast"},
                                 {dialog.slOffset, "Offset : ", "postion of the ticker"},
                                 {dialog.directionLabel, "Direction : ", ""},
                                 {dialog.Beat, "Beat Control", ""},
                                 {dialog.Backward, "Backward", "reverses the text-string"},
                                 {dialog.Mirror, "Mirrored", "mirrors the letters"},
                                 {dialog.Letter, "LetterMode", "every step the next letter"}};
  for (const Text& text : all) {
    const Look& look = text.control.look();
    EXPECT_EQ(look.label.empty() ? look.caption : look.label, text.words);
    EXPECT_TRUE(*text.toolTip == 0 || look.toolTip == text.toolTip) << look.toolTip;
    EXPECT_FALSE(look.toolTip.empty()) << text.words;
  }
  EXPECT_EQ(dialog.myFont.items(),
            (std::vector<std::string>{"5-point", "7-point", "10-point", "15-point"}));
}

TEST_P(TickerDialog, ShowsTheFontOfTheRecordAndNeverStoresIt) {
  for (const auto& [size, name] : {std::pair(7, "7-point"), std::pair(10, "10-point"),
                                   std::pair(15, "15-point"), std::pair(5, "5-point")}) {
    effect().tickerFont = static_cast<std::int16_t>(size);
    reopen();
    EXPECT_EQ(dialog.myFont.text(), name);
  }
  choose(dialog.myFont, 2);
  EXPECT_EQ(effect().tickerFont, 5);
}

TEST_P(TickerDialog, ATextIsStoredAndBuilt) {
  EXPECT_TRUE(restarts([this] { type(dialog.myTicker, "l"); }));
  EXPECT_EQ(effect().tickerText, "l");
  EXPECT_EQ(deck.steps, 2);
  EXPECT_TRUE(deck.timer1.enabled());
}

TEST_P(TickerDialog, ColoursAreStoredAndBuilt) {
  EXPECT_TRUE(restarts([this] {
    event([this] { dialog.Color2.click(); });
    move(plugin.dialogs.mixer.Sgreen, 99);
    click(plugin.dialogs.mixer.Bok);
  }));
  EXPECT_EQ(effect().color2, rgb(0, 99, 0));
  EXPECT_TRUE(restarts([this] {
    event([this] { dialog.Color1.click(); });
    move(plugin.dialogs.mixer.Sgreen, 1);
    click(plugin.dialogs.mixer.Bok);
  }));
  EXPECT_EQ(effect().color1, rgb(255, 1, 255));
}

TEST_P(TickerDialog, SpeedSetsTheIntervalAtOnceAndGoesOn) {
  EXPECT_EQ(deck.timer1.interval(), 300);
  EXPECT_FALSE(restarts([this] { move(dialog.slSpeed, 100); }));
  EXPECT_EQ(effect().speed, 100);
  EXPECT_EQ(deck.timer1.interval(), 50);
}

TEST_P(TickerDialog, OffsetPlacesTheTextAndBuilds) {
  EXPECT_TRUE(restarts([this] { move(dialog.slOffset, 99); }));
  EXPECT_EQ(effect().amount, 99);
  EXPECT_EQ(deck.imagePosY, 7);
  EXPECT_EQ(deck.imagePosX, 0);
}

TEST_P(TickerDialog, BackwardAndMirrorAreStoredAndBuilt) {
  EXPECT_TRUE(restarts([this] { check(dialog.Backward, true); }));
  EXPECT_EQ(effect().tickerBackward, 1);
  EXPECT_TRUE(restarts([this] { check(dialog.Mirror, true); }));
  EXPECT_EQ(effect().tickerMirror, 1);
  EXPECT_TRUE(restarts([this] { check(dialog.Mirror, false); }));
  EXPECT_EQ(effect().tickerMirror, 0);
  check(dialog.Backward, false);
  EXPECT_EQ(effect().tickerBackward, 0);
}

TEST_P(TickerDialog, ADirectionPutsTheTextBackToTheEdge) {
  move(dialog.slOffset, 50);
  check(dialog.Letter, true);
  EXPECT_TRUE(restarts([this] { click(dialog.richtung.button(7)); }));
  expectPressed(7);
  EXPECT_EQ(effect().direction, 7);
  EXPECT_EQ(effect().amount, 0);
  EXPECT_EQ(dialog.slOffset.value(), 0);
  EXPECT_EQ(deck.imagePosX, 0);
  EXPECT_EQ(deck.imagePosY, 0);
  EXPECT_EQ(effect().tickerLetter, 1) << "letter mode is not touched";
}

TEST_P(TickerDialog, LetterModeAfterASidewaysDirectionFailsAndTheRestGoesOn) {
  check(dialog.Letter, true);
  click(dialog.richtung.button(3));
  other.effect().type = kFluid;
  other.timer1.enable();
  advance(3000);
  EXPECT_EQ(takeFailure(), kSubscript);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_TRUE(other.timer1.enabled());
  click(dialog.richtung.button(1));
  EXPECT_TRUE(deck.timer1.enabled()) << "a build starts it again";
}

TEST_P(TickerDialog, LetterModeStandsUprightInTheMiddle) {
  move(dialog.slOffset, 50);
  check(dialog.Letter, true);
  EXPECT_EQ(effect().tickerLetter, 1);
  EXPECT_EQ(effect().direction, 1);
  expectPressed(1);
  EXPECT_EQ(effect().amount, 0);
  EXPECT_EQ(deck.imagePosX, 0);
  EXPECT_EQ(deck.imagePosY, 3);
  EXPECT_EQ(deck.steps, 22 * 6);
  EXPECT_TRUE(deck.timer1.enabled());
  move(dialog.slOffset, 100);
  EXPECT_EQ(deck.imagePosX, 9) << "the widest of these letters has four columns";
}

TEST_P(TickerDialog, LeavingLetterModeShowsUpButKeepsTheDirection) {
  check(dialog.Letter, true);
  click(dialog.richtung.button(7));
  move(dialog.slOffset, 50);
  check(dialog.Letter, false);
  EXPECT_EQ(effect().tickerLetter, 0);
  EXPECT_EQ(effect().direction, 7);
  expectPressed(1);
  EXPECT_EQ(effect().amount, 0);
  EXPECT_EQ(deck.imagePosX, 0);
  EXPECT_EQ(deck.imagePosY, 0);
  EXPECT_EQ(deck.step, 0);
}

TEST_P(TickerDialog, BeatControlStopsBothTimersAndListens) {
  deck.timer2.enable();
  check(dialog.Beat, true);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_FALSE(deck.timer2.enabled());
  EXPECT_EQ(deck.timer2.interval(), 200);
  EXPECT_EQ(effect().beatControl, 1);
  EXPECT_TRUE(deck.beatOn);
  EXPECT_TRUE(v.beatControlSeen);
  EXPECT_FALSE(other.beatOn);
  click(dialog.richtung.button(5));
  EXPECT_FALSE(deck.timer1.enabled()) << "a build leaves it to the beat";
  check(dialog.Beat, false);
  EXPECT_TRUE(deck.timer1.enabled());
  EXPECT_EQ(effect().beatControl, 0);
  EXPECT_FALSE(deck.beatOn);
  EXPECT_FALSE(v.beatControlSeen);
}

TEST_P(TickerDialog, OKMarksNamesAndHides) {
  type(dialog.myName, "headlines");
  event([this] { dialog.myName.keyPress(13); });
  EXPECT_EQ(effect().name, "headlines");
  EXPECT_EQ(texts(deck.efxList).at(0), "headlines");
  EXPECT_TRUE(deck.efxEdited.at(0));
  EXPECT_FALSE(dialog.visible());
}

struct Kept {
  std::int16_t letter, direction, amount, backward, mirror, beat;
};

// The handlers run while the dialog fills its boxes; the record keeps what it held all the same.
TEST_P(TickerDialog, OpeningKeepsTheRecordWhateverTheBoxesShowedBefore) {
  const std::vector<Kept> records = {{0, 3, 40, 0, 0, 0}, {1, 1, 70, 1, 0, 0}, {0, 7, 20, 0, 1, 1},
                                     {1, 3, 0, 0, 0, 1},  {0, 5, 99, 1, 1, 0}, {1, 7, 30, 0, 0, 0},
                                     {0, 3, 0, 0, 0, 0},  {0, 1, 40, 0, 0, 0}};
  for (const Kept& kept : records) {
    click(dialog.OK);
    Effect& e = effect();
    e.tickerLetter = kept.letter;
    e.direction = kept.direction;
    e.amount = kept.amount;
    e.tickerBackward = kept.backward;
    e.tickerMirror = kept.mirror;
    e.beatControl = kept.beat;
    click(panel.edit);
    EXPECT_EQ(takeFailure(), 0);
    EXPECT_EQ(e.tickerLetter, kept.letter);
    EXPECT_EQ(e.direction, kept.direction);
    EXPECT_EQ(e.amount, kept.amount);
    EXPECT_EQ(e.tickerBackward, kept.backward);
    EXPECT_EQ(e.tickerMirror, kept.mirror);
    EXPECT_EQ(e.beatControl, kept.beat);
    EXPECT_EQ(dialog.Letter.value(), kept.letter);
    EXPECT_EQ(dialog.slOffset.value(), kept.amount);
    EXPECT_EQ(dialog.Backward.value(), kept.backward);
    EXPECT_EQ(dialog.Mirror.value(), kept.mirror);
    EXPECT_EQ(dialog.Beat.value(), kept.beat);
    EXPECT_EQ(deck.beatOn, kept.beat != 0);
    expectPressed(kept.direction);
  }
}

}  // namespace
}  // namespace korvane
