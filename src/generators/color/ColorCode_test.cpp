#include "generators/color/ColorCode.h"

#include <cmath>

#include "generators/color/MxColorForm.h"
#include "generators/color/MxGradientForm.h"
#include "testing/TestPlugin.h"

namespace korvane {
namespace {

class ColorEffect : public TestDecks {
 protected:
  void SetUp() override { ASSERT_TRUE(open()); }

  void gradient(std::int16_t direction, Color first, Color second) {
    deck.effect().type = kGradient;
    deck.effect().color1 = first;
    deck.effect().color2 = second;
    deck.effect().direction = direction;
  }
  bool render() {
    return event([this] { renderGradient(engine, deck); });
  }
};
KORVANE_BOTH_DECKS(ColorEffect);

constexpr Color kRedColor = rgb(255, 0, 0);
constexpr Color kBlueColor = rgb(0, 0, 255);

// Cell by cell: where a cell stands on the way from the first colour to the second, along the
// arrow.
struct Place {
  int p, n;
  bool fromFirst;
};

Place placeOf(int direction, int c, int r, int cols, int rows) {
  const int lastCol = cols - 1;
  const int lastRow = rows - 1;
  const int ring = std::min({c, r, lastCol - c, lastRow - r});
  const int shorter = std::min(cols, rows);
  const int rings = (shorter + 1) / 2 - 1;
  switch (direction) {
    case 1:
      return {lastRow - r, lastRow, true};
    case 2:
      return {lastCol - c + lastRow - r, lastCol + lastRow, true};
    case 3:
      return {lastCol - c, lastCol, true};
    case 4:
      return {r + lastCol - c, lastCol + lastRow, true};
    case 5:
      return {r, lastRow, true};
    case 6:
      return {c + r, lastCol + lastRow, true};
    case 7:
      return {c, lastCol, true};
    case 8:
      return {c + lastRow - r, lastCol + lastRow, true};
    case 9:
      return {std::min(ring, rings), rings, true};
    default:
      return {std::min(ring, rings), rings, false};
  }
}

int expectedComponent(const Place& place, int first, int second) {
  const int start = place.fromFirst ? first : second;
  const int end = place.fromFirst ? second : first;
  return static_cast<int>(
      std::nearbyint(static_cast<double>(start * (place.n - place.p) + end * place.p) / place.n));
}

TEST_P(ColorEffect, GradientsRunInAllTenDirectionsOnAllShapes) {
  for (const auto& [cols, rows] :
       {std::pair(12, 12), std::pair(7, 5), std::pair(3, 10), std::pair(50, 3)}) {
    resize(cols, rows);
    for (std::int16_t direction = 1; direction <= 10; ++direction) {
      gradient(direction, rgb(255, 10, 0), rgb(0, 200, 131));
      ASSERT_TRUE(render());
      for (int c = 0; c < cols; ++c) {
        for (int r = 0; r < rows; ++r) {
          const Place place = placeOf(direction, c, r, cols, rows);
          ASSERT_EQ(deck.frame.at(c, r)[0], expectedComponent(place, 255, 0))
              << direction << ": " << c << "," << r;
          ASSERT_EQ(deck.frame.at(c, r)[1], expectedComponent(place, 10, 200))
              << direction << ": " << c << "," << r;
          ASSERT_EQ(deck.frame.at(c, r)[2], expectedComponent(place, 0, 131))
              << direction << ": " << c << "," << r;
        }
      }
    }
  }
}

TEST_P(ColorEffect, DownwardsOnTwelveRowsRunsFromPureRedToPureBlue) {
  gradient(5, kRedColor, kBlueColor);
  render();
  for (int col = 0; col < 12; ++col) {
    EXPECT_EQ(deck.frame.at(col, 0), (Rgb{255, 0, 0}));
    EXPECT_EQ(deck.frame.at(col, 11), (Rgb{0, 0, 255}));
  }
}

TEST_P(ColorEffect, AValueBetweenTwoIntegersGoesToTheEvenOne) {
  resize(3, 3);
  gradient(7, rgb(255, 253, 0), rgb(0, 0, 0));
  render();
  EXPECT_EQ(deck.frame.at(1, 0)[0], 128);  // 127.5
  EXPECT_EQ(deck.frame.at(1, 0)[1], 126);  // 126.5
}

TEST_P(ColorEffect, OppositeDirectionsAreEachOtherWithTheColoursExchanged) {
  resize(7, 5);
  for (const auto& [there, back] :
       {std::pair(1, 5), std::pair(2, 6), std::pair(3, 7), std::pair(4, 8), std::pair(9, 10)}) {
    gradient(static_cast<std::int16_t>(there), rgb(1, 100, 200), rgb(250, 30, 7));
    render();
    const Frame first = deck.frame;
    gradient(static_cast<std::int16_t>(back), rgb(250, 30, 7), rgb(1, 100, 200));
    render();
    for (int c = 0; c < 7; ++c) {
      for (int r = 0; r < 5; ++r) ASSERT_EQ(first.at(c, r), deck.frame.at(c, r)) << there;
    }
  }
}

TEST_P(ColorEffect, AMatrixOfOneRowCanNotBeDividedByItsHeight) {
  resize(12, 1);
  deck.frame.fill({7, 7, 7});
  for (const std::int16_t direction : std::initializer_list<std::int16_t>{1, 5, 9, 10}) {
    gradient(direction, kRedColor, kBlueColor);
    EXPECT_FALSE(render());
    EXPECT_EQ(takeFailure(), kDivisionByZero) << direction;
    EXPECT_EQ(deck.frame.at(0, 0), (Rgb{7, 7, 7}));
  }
  gradient(3, kRedColor, kBlueColor);
  EXPECT_TRUE(render());
}

TEST_P(ColorEffect, AScaleAboveOneHundredAndTwentyEightOverflows) {
  v.matrixCols = 130;
  v.matrixRows = 2;
  for (Frame* frame : {&v.frameA, &v.frameB, &v.frameM, &v.frameSent}) frame->redim(130, 2);
  v.fadeMap.redim(130, 2);
  gradient(7, kRedColor, kBlueColor);
  EXPECT_FALSE(render());
  EXPECT_EQ(takeFailure(), kOverflow);
  gradient(7, rgb(200, 0, 0), kBlueColor);
  v.matrixCols = 129;
  for (Frame* frame : {&v.frameA, &v.frameB, &v.frameM, &v.frameSent}) frame->redim(129, 2);
  v.fadeMap.redim(129, 2);
  EXPECT_TRUE(render());
}

TEST_P(ColorEffect, ADirectionThatDoesNotExistIsReportedAtEachRenderAndPaintsNothing) {
  deck.frame.fill({7, 8, 9});
  for (const std::int16_t direction : std::initializer_list<std::int16_t>{0, 11, -1}) {
    gradient(direction, kRedColor, kBlueColor);
    EXPECT_TRUE(render());
    EXPECT_EQ(takeBoxes(), std::vector<std::string>{"direction not correct !"});
    EXPECT_EQ(deck.frame.at(5, 5), (Rgb{7, 8, 9}));
  }
}

TEST_P(ColorEffect, RenderersMixOnlyWhileNoFadeRuns) {
  plugin.matrixForm.active.setValue(1);
  takeCalls();
  renderColor(engine, deck);
  EXPECT_EQ(takeCalls(), std::vector<std::string>{"UserInteraction"});
  v.fadeRunning = true;
  master.timerM.setInterval(1000);
  renderColor(engine, deck);
  EXPECT_TRUE(takeCalls().empty());
}

TEST_P(ColorEffect, APickedColourShowsAtOnceBeforeOK) {
  click(panel.edit);
  event([&] { plugin.window<MxColorForm>().Color.click(); });
  EXPECT_EQ(engine.desktop.modal(), &plugin.dialogs.mixer);
  move(plugin.dialogs.mixer.Sgreen, 100);
  click(plugin.dialogs.mixer.Bok);
  EXPECT_EQ(deck.frame.at(0, 0)[1], 100);
  EXPECT_EQ(colorPart(deck.effect().color1, kGreenMask), 100);
  EXPECT_FALSE(deck.efxEdited[0]);
}

TEST_P(ColorEffect, OKTakesTheNameToTheRowAndTheRecord) {
  click(panel.edit);
  type(plugin.window<MxColorForm>().myName, "warm");
  event([&] { plugin.window<MxColorForm>().myName.keyPress(13); });
  EXPECT_FALSE(plugin.window<MxColorForm>().visible());
  EXPECT_EQ(texts(deck.efxList), std::vector<std::string>{"warm"});
  EXPECT_EQ(deck.effect().name, "warm");
  EXPECT_TRUE(deck.efxEdited[0]);
}

TEST_P(ColorEffect, AnEmptyNameIsStoredAsItIs) {
  click(panel.edit);
  type(plugin.window<MxColorForm>().myName, "");
  click(plugin.window<MxColorForm>().OK);
  EXPECT_EQ(texts(deck.efxList), std::vector<std::string>{""});
  EXPECT_EQ(deck.effect().name, "");
}

// The left deck's backup is never filled: Cancel there empties the name and turns the effect black.
TEST_P(ColorEffect, CancelPutsTheRightDeckBackAndTurnsTheLeftOneBlack) {
  click(panel.edit);
  event([&] { plugin.window<MxColorForm>().Color.click(); });
  move(plugin.dialogs.mixer.Sgreen, 100);
  click(plugin.dialogs.mixer.Bok);
  click(plugin.window<MxColorForm>().Cancel);
  EXPECT_EQ(deck.frame.at(3, 3), deck.isB() ? (Rgb{0, 0, 255}) : (Rgb{0, 0, 0}));
  EXPECT_EQ(plugin.window<MxColorForm>().myName.text(), deck.isB() ? "new effect" : "");
  EXPECT_EQ(texts(deck.efxList), std::vector<std::string>{"new effect"});
  EXPECT_FALSE(deck.efxEdited[0]);
  EXPECT_FALSE(plugin.window<MxColorForm>().visible());
}

class ColorDialogs : public TestPlugin {};

TEST_F(ColorDialogs, HaveTheirTexts) {
  const MxColorForm& color = plugin.window<MxColorForm>();
  EXPECT_EQ(color.caption(), "Color");
  EXPECT_EQ(color.myName.text(), "Blue");
  EXPECT_EQ(color.myName.look().label, "Name : ");
  EXPECT_EQ(color.Color.look().label, "Color : ");
  EXPECT_EQ(color.Cancel.look().caption, "Cancel");
  const MxGradientForm& gradient = plugin.window<MxGradientForm>();
  EXPECT_EQ(gradient.caption(), "Gradient");
  EXPECT_EQ(gradient.myName.text(), "Blue-Red");
  EXPECT_EQ(gradient.Color1.look().label, "Color1 : ");
  EXPECT_EQ(gradient.Color2.look().label, "Color2 : ");
  EXPECT_EQ(gradient.richtung.controls().size(), 11U);
  EXPECT_EQ(gradient.Cancel.look().caption, "Cancel");
}

TEST_P(ColorEffect, GradientButtonsAct) {
  choose(deck.type, kGradient);
  click(panel.edit);
  MxGradientForm& dialog = plugin.window<MxGradientForm>();
  EXPECT_TRUE(dialog.richtung.button(7).pressed());
  click(dialog.richtung.button(5));
  EXPECT_EQ(deck.effect().direction, 5);
  EXPECT_TRUE(dialog.richtung.button(5).pressed());
  EXPECT_FALSE(dialog.richtung.button(7).pressed());
  click(dialog.richtung.button(0));
  EXPECT_EQ(deck.effect().direction, 5);
  EXPECT_TRUE(dialog.richtung.button(5).pressed());
}

TEST_P(ColorEffect, RingsCanNotBeChosenOnAMatrixShorterThanThree) {
  resize(12, 2);
  choose(deck.type, kGradient);
  click(panel.edit);
  click(plugin.window<MxGradientForm>().richtung.button(9));
  EXPECT_EQ(deck.effect().direction, 7);
  click(plugin.window<MxGradientForm>().richtung.button(8));
  EXPECT_EQ(deck.effect().direction, 8);
}

TEST_P(ColorEffect, GradientCancelRestoresColoursAndDirectionOnTheRightDeck) {
  choose(deck.type, kGradient);
  click(panel.edit);
  click(plugin.window<MxGradientForm>().richtung.button(5));
  click(plugin.window<MxGradientForm>().Cancel);
  EXPECT_EQ(deck.effect().direction, deck.isB() ? 7 : 0);
  EXPECT_EQ(takeBoxes().size(), deck.isB() ? 0U : 1U);
}

}  // namespace
}  // namespace korvane
