#include "generators/paint/PaintTools.h"

#include "testing/PaintTest.h"

namespace korvane {
namespace {

class PaintTools : public PaintTest {};
KORVANE_BOTH_DECKS(PaintTools);

TEST_P(PaintTools, AClickSetsTheCellUnderTheMouse) {
  openWithGrid(4, 4);
  clickCell(2, 1);
  color(kGreen);
  clickCell(0, 3);
  expectPainted({"....",  //
                 "..R.",  //
                 "....",  //
                 "G..."});
}

TEST_P(PaintTools, ACellReachesFromItsFirstPixelToItsLast) {
  openWithGrid(4, 4);
  clickAt(5, 15);
  color(kGreen);
  clickAt(14, 24);
  expectPainted({"....", "G...", "....", "...."});
  clickAt(15, 25);
  expectPainted({"....", "G...", ".G..", "...."});
}

TEST_P(PaintTools, AClickInTheMarginPaintsNothing) {
  openWithGrid(4, 4);
  for (PictureButton* button : {&form.PPoint, &form.PLine, &form.PRect, &form.PRect2, &form.PCircle,
                                &form.PCircle2, &form.PFill}) {
    tool(*button);
    for (const auto& [x, y] : {std::pair{2, 20},
                               {4, 20},
                               {20, 4},
                               {0, 0},
                               {45, 20},
                               {20, 45},
                               {49, 49},
                               {-7, 20},
                               {20, 900},
                               {40000, 20}}) {
      clickAt(x, y);
    }
  }
  expectPainted({"....", "....", "....", "...."});
  // The spare cells must stay black too: they come into view when the grid grows.
  const Grid<Color>& picture = deck.effect().paintPixels;
  for (int i = 0; i <= 4; ++i) {
    EXPECT_EQ(picture.at(4, i), 0);
    EXPECT_EQ(picture.at(i, 4), 0);
  }
  EXPECT_EQ(takeFailure(), 0);
}

TEST_P(PaintTools, TheSecondOfTwoQuickClicksPaintsAsWell) {
  openWithGrid(4, 4);
  clickCell(0, 0);
  for (const Mouse what : {Mouse::Down, Mouse::DblClick, Mouse::Up}) mouse(what, mid(1), mid(0));
  expectPainted({"RR..", "....", "....", "...."});
}

TEST_P(PaintTools, AHorizontalLineOver12ColumnsSetsOneCellInEach) {
  openWithGrid(12, 12);
  tool(form.PLine);
  dragCells(0, 7, 11, 7);
  for (int col = 0; col < 12; ++col) {
    for (int row = 0; row < 12; ++row)
      EXPECT_EQ(deck.effect().paintPixels.at(col, row), row == 7 ? kRed : 0);
  }
}

TEST_P(PaintTools, LinesAreSampledOnTheCentreLinesOfTheScreen) {
  openWithGrid(6, 6);
  tool(form.PLine);
  dragCells(0, 0, 5, 2);
  expectPainted({"RR....",  //
                 "..RR..",  //
                 "....RR",  //
                 "......",  //
                 "......",  //
                 "......"});
  color(kGreen);
  dragCells(4, 5, 1, 1);    // steep, from its lower end
  expectPainted({"RR....",  //
                 ".GRR..",  //
                 "..G.RR",  //
                 "...G..",  //
                 "...G..",  //
                 "....G."});
}

TEST_P(PaintTools, AVeryShortLineMayPaintNothing) {
  openWithGrid(4, 4);
  tool(form.PLine);
  drag(16, 16, 17, 19);  // the row's centre line is at 20
  expectPainted({"....", "....", "....", "...."});
  drag(16, 16, 17, 20);
  expectPainted({"....", ".R..", "....", "...."});
  color(kGreen);
  drag(20, 20, 20, 20);  // on the centre line, but without a direction
  expectPainted({"....", ".R..", "....", "...."});
}

TEST_P(PaintTools, ALineThatLeavesTheMatrixGoesOnInside) {
  openWithGrid(4, 4);
  tool(form.PLine);
  drag(-30, 20, 80, 20);
  expectPainted({"....", "RRRR", "....", "...."});
  EXPECT_EQ(takeFailure(), 0);
}

TEST_P(PaintTools, RectanglesReachFromCornerToCorner) {
  openWithGrid(5, 5);
  tool(form.PRect);
  dragCells(3, 3, 1, 0);
  expectPainted({".RRR.",  //
                 ".RRR.",  //
                 ".RRR.",  //
                 ".RRR.",  //
                 "....."});
  color(kGreen);
  tool(form.PRect2);
  dragCells(0, 4, 4, 1);
  expectPainted({".RRR.",  //
                 "GGGGG",  //
                 "GRRRG",  //
                 "GRRRG",  //
                 "GGGGG"});
}

TEST_P(PaintTools, ARectangleBeyondTheMatrixIsCutOff) {
  openWithGrid(4, 4);
  tool(form.PRect2);
  drag(mid(1), mid(1), 200, 200);
  expectPainted({"....",  //
                 ".RRR",  //
                 ".R..",  //
                 ".R.."});
  EXPECT_EQ(takeFailure(), 0);
}

TEST_P(PaintTools, CirclesFillTheirBox) {
  openWithGrid(6, 6);
  tool(form.PCircle);
  dragCells(0, 0, 5, 3);
  expectPainted({".RRRR.",  //
                 "RRRRRR",  //
                 "RRRRRR",  //
                 ".RRRR.",  //
                 "......",  //
                 "......"});
  color(kGreen);
  tool(form.PCircle2);
  dragCells(5, 5, 2, 2);
  expectPainted({".RRRR.",  //
                 "RRRRRR",  //
                 "RRRGGR",  //
                 ".RGRRG",  //
                 "..G..G",  //
                 "...GG."});
}

TEST_P(PaintTools, AHugeCircleIsCutOffAtOnce) {
  openWithGrid(3, 3);
  tool(form.PCircle);
  drag(-32000, -32000, 32000, 32000);
  expectPainted({"RRR", "RRR", "RRR"});
}

TEST_P(PaintTools, ReplacingAColourOfAPlainPictureRepaintsItAll) {
  openWithGrid(3, 3);
  tool(form.PFill);
  clickCell(1, 1);
  expectPainted({"RRR", "RRR", "RRR"});
}

TEST_P(PaintTools, ReplacingReachesCellsThatDoNotTouch) {
  openWithGrid(3, 3);
  clickCell(0, 0);
  clickCell(2, 2);
  color(kBlue);
  clickCell(1, 0);
  tool(form.PFill);
  color(kGreen);
  clickCell(2, 2);
  expectPainted({"GB.", "...", "..G"});
}

TEST_P(PaintTools, ReplacingTakesTheColourUnderTheRelease) {
  openWithGrid(3, 3);
  clickCell(0, 0);
  tool(form.PFill);
  color(kGreen);
  dragCells(2, 2, 0, 0);
  expectPainted({"G..", "...", "..."});
}

TEST_P(PaintTools, ShiftsWrapRoundInEightDirections) {
  openWithGrid(3, 2);
  deck.frame = frameOf({"RGB", "YCM"});
  const struct {
    PictureButton& button;
    Drawing shown;
  } shifts[] = {{form.BUp, {"YCM", "RGB"}},       {form.BDown, {"YCM", "RGB"}},
                {form.BLeft, {"GBR", "CMY"}},     {form.BRight, {"BRG", "MYC"}},
                {form.BUpLeft, {"CMY", "GBR"}},   {form.BUpRight, {"MYC", "BRG"}},
                {form.BDownLeft, {"CMY", "GBR"}}, {form.BDownRight, {"MYC", "BRG"}}};
  for (const auto& [button, shown] : shifts) {
    other.frame = frameOf({"RGB", "YCM"});
    click(form.PGet);
    expectPainted({"RGB", "YCM"});
    click(button);
    expectPainted(shown);
  }
}

TEST_P(PaintTools, AShiftDownAndUpRestoresThePicture) {
  openWithGrid(3, 4);
  other.frame = frameOf({"RGB", "YCM", "...", "WWR"});
  click(form.PGet);
  click(form.BDown);
  expectPainted({"WWR", "RGB", "YCM", "..."});
  click(form.BUp);
  expectPainted({"RGB", "YCM", "...", "WWR"});
}

TEST_P(PaintTools, UndoAfterAShiftRestoresTheStateBeforeTheStroke) {
  openWithGrid(3, 1);
  clickCell(0, 1);
  color(kGreen);
  clickCell(1, 1);
  click(form.BRight);
  expectPainted({".RG"});
  click(form.PUndo);
  expectPainted({"R.."});
  click(form.PUndo);
  expectPainted({"R.."});
}

TEST_P(PaintTools, UndoBeforeTheFirstStrokeChangesNothing) {
  openWithGrid(3, 1);
  clickCell(0, 1);
  click(form.OK);
  click(panel.edit);
  click(form.PUndo);
  expectPainted({"R.."});
}

TEST_P(PaintTools, ClearCanBeUndone) {
  openWithGrid(3, 1);
  clickCell(0, 1);
  click(form.PClear);
  expectPainted({"..."});
  click(form.PUndo);
  expectPainted({"R.."});
}

TEST_P(PaintTools, TheOtherSidesPictureIsFrozenIntoTheDrawing) {
  openWithGrid(2, 2);
  other.frame = frameOf({"RG", "BY"});
  EXPECT_EQ(form.PGet.look().toolTip, "Get from other side");
  click(form.PGet);
  other.frame = frameOf({"..", ".."});
  expectPainted({"RG", "BY"});
}

TEST_P(PaintTools, DiagonalShiftsShowThePictureBetween) {
  openWithGrid(2, 2);
  event([&] { plugin.matrixForm.active.setValue(1); });
  takeCalls();
  click(form.BDownLeft);
  const std::vector<std::string> calls = takeCalls();
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "UserInteraction"), 2);
}

}  // namespace
}  // namespace korvane
