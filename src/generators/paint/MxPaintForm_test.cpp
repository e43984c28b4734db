#include "generators/paint/MxPaintForm.h"

#include "testing/PaintTest.h"

namespace korvane {
namespace {

class PaintBox : public PaintTest {};
KORVANE_BOTH_DECKS(PaintBox);

TEST_P(PaintBox, OpensWithThePictureThatTheDeckWasShowing) {
  ASSERT_TRUE(open());
  resize(3, 2);
  deck.frame = frameOf({"RGB", "YCM"});
  ASSERT_TRUE(choose(deck.type, kPaint));
  ASSERT_TRUE(click(panel.edit));
  EXPECT_EQ(form.caption(), "Painting");
  EXPECT_TRUE(form.visible());
  EXPECT_FALSE(form.modal());
  EXPECT_EQ(form.myName.text(), "new effect");
  EXPECT_TRUE(form.PPoint.pressed());
  expectPainted({"RGB", "YCM"});
}

TEST_P(PaintBox, CancelGoesBackToWhatItWasWhenTheDialogOpened) {
  openWithGrid(2, 1);
  clickCell(0, 0);
  clickAt(10, 15);
  click(form.Cancel);
  EXPECT_FALSE(form.visible());
  expectPainted({".."});
  click(panel.edit);
  event([&] { form.Bild.resize(30, 30); });
  clickAt(10, 15);
  click(form.OK);
  click(panel.edit);
  clickAt(20, 15);
  expectPainted({"RR"});
  click(form.Cancel);
  expectPainted({"R."});
}

TEST_P(PaintBox, OKTakesTheNameAndMarksTheEffect) {
  openWithGrid(2, 2);
  type(form.myName, "face");
  click(form.OK);
  EXPECT_FALSE(form.visible());
  EXPECT_TRUE(deck.efxEdited[0]);
  EXPECT_EQ(deck.effect().name, "face");
  EXPECT_EQ(texts(deck.efxList), std::vector<std::string>{"face"});
}

TEST_P(PaintBox, EnterInTheNameActsAsOK) {
  openWithGrid(2, 2);
  event([&] { form.myName.keyPress(13); });
  EXPECT_FALSE(form.visible());
  EXPECT_TRUE(deck.efxEdited[0]);
}

TEST_P(PaintBox, ThePressedButtonIsTheToolInUse) {
  openWithGrid(2, 2);
  const std::pair<PictureButton*, int> tools[] = {
      {&form.PPoint, 1}, {&form.PLine, 2},    {&form.PRect, 3}, {&form.PCircle, 4},
      {&form.PRect2, 5}, {&form.PCircle2, 6}, {&form.PFill, 7}};
  for (const auto& [button, number] : tools) {
    tool(*button);
    EXPECT_EQ(form.paintTool, number);
    for (const auto& [each, its] : tools) EXPECT_EQ(each->pressed(), each == button);
  }
}

TEST_P(PaintBox, TenPaletteBoxesGiveTheDrawingColour) {
  openWithGrid(2, 2);
  ASSERT_EQ(form.myPalette.size(), 10U);
  for (int i = 0; i < 10; ++i) {
    ColorBox& box = *form.myPalette[static_cast<std::size_t>(i)];
    EXPECT_EQ(box.name(), "myPalette(" + std::to_string(i) + ")");
    event([&] { box.click(); });
    EXPECT_EQ(form.PColor.backColor(), box.backColor());
  }
}

TEST_P(PaintBox, TheDrawingColourComesFromTheMixer) {
  openWithGrid(2, 2);
  event([&] { form.PColor.click(); });
  MxColorMixer& mixer = plugin.dialogs.mixer;
  EXPECT_TRUE(mixer.modal());
  move(mixer.Sgreen, 10);
  click(mixer.Bok);
  EXPECT_EQ(form.PColor.backColor(), rgb(255, 10, 0));
}

TEST_P(PaintBox, TheRubberBandFollowsTheMouseAndLeavesThePixelsAlone) {
  openWithGrid(4, 4);
  const Raster before = form.Bild.raster();
  color(kBlue);
  tool(form.PLine);
  mouse(Mouse::Down, 10, 10);
  mouse(Mouse::Move, 30, 20);
  using DrawnLines = std::vector<PictureBox::Line>;
  EXPECT_EQ(form.Bild.overlay(), (DrawnLines{{10, 10, 30, 20, kBlue}}));
  mouse(Mouse::Move, 12, 40);
  EXPECT_EQ(form.Bild.overlay(), (DrawnLines{{10, 10, 12, 40, kBlue}}));
  EXPECT_EQ(form.Bild.raster(), before);
  mouse(Mouse::Up, 12, 40);
  EXPECT_TRUE(form.Bild.overlay().empty());
  tool(form.PCircle);
  mouse(Mouse::Down, 10, 11);
  mouse(Mouse::Move, 30, 21);
  EXPECT_EQ(form.Bild.overlay(), (DrawnLines{{10, 11, 30, 11, kBlue},
                                             {10, 21, 30, 21, kBlue},
                                             {10, 11, 10, 21, kBlue},
                                             {30, 11, 30, 21, kBlue}}));
}

TEST_P(PaintBox, ThePointAndReplaceToolsHaveNoRubberBand) {
  openWithGrid(4, 4);
  for (PictureButton* button : {&form.PPoint, &form.PFill}) {
    tool(*button);
    mouse(Mouse::Down, 10, 10);
    mouse(Mouse::Move, 30, 20);
    EXPECT_TRUE(form.Bild.overlay().empty());
    mouse(Mouse::Up, 30, 20);
  }
}

TEST_P(PaintBox, HoveringOutlinesTheCellAndPaintsNothing) {
  openWithGrid(4, 4);
  mouse(Mouse::Move, 17, 28);
  const Color white = rgb(255, 255, 255);
  EXPECT_EQ(form.Bild.overlay(), (std::vector<PictureBox::Line>{{15, 25, 24, 25, white},
                                                                {15, 34, 24, 34, white},
                                                                {15, 25, 15, 34, white},
                                                                {24, 25, 24, 34, white}}));
  expectPainted({"....", "....", "....", "...."});
  EXPECT_TRUE(takeCalls().empty());
  mouse(Mouse::Move, 2, 28);
  EXPECT_TRUE(form.Bild.overlay().empty()) << "the margin has no cell";
}

TEST_P(PaintBox, TheGridIsDrawnInTheMiddleAndFollowsTheWindow) {
  openWithGrid(4, 2);
  clickAt(5, 15);  // the grid is 40 x 20 pixels in an area of 50 x 50, from (5, 15) on
  expectPainted({"R...", "...."});
  EXPECT_EQ(form.Bild.raster().pixel(5, 15), kRed);
  EXPECT_EQ(form.Bild.raster().pixel(14, 24), kRed);
  EXPECT_EQ(form.Bild.raster().pixel(15, 24), 0);
  EXPECT_EQ(form.Bild.raster().pixel(4, 15), form.Bild.backColor());
  event([&] { form.Bild.resize(90, 200); });
  EXPECT_EQ(form.Bild.raster().pixel(5, 80), kRed);
  EXPECT_EQ(form.Bild.raster().pixel(24, 99), kRed);
  EXPECT_EQ(form.Bild.raster().pixel(5, 79), form.Bild.backColor());
}

TEST_P(PaintBox, AnAreaTooSmallForTheGridPaintsNothingAndFailsNowhere) {
  openWithGrid(4, 4);
  for (const int side : {12, 10, 5, 1}) {
    event([&] { form.Bild.resize(side, side); });
    clickAt(5, 5);
    drag(0, 0, side, side);
    mouse(Mouse::Move, 3, 3);
  }
  expectPainted({"....", "....", "....", "...."});
  EXPECT_EQ(takeFailure(), 0);
}

TEST_P(PaintBox, EveryStrokeReachesTheDeckAndTheLamps) {
  openWithGrid(2, 2);
  v.masterValue = deck.isB() ? 1 : 0;
  event([&] { plugin.matrixForm.active.setValue(1); });
  takeCalls();
  clickCell(0, 0);
  EXPECT_EQ(takeCalls().at(0), "UserInteraction");
  EXPECT_EQ(rgb(v.frameM.at(0, 0)), kRed);
}

TEST_P(PaintBox, AStrokeOnAnEffectThatIsNoPaintingIsIgnored) {
  openWithGrid(3, 3);
  click(panel.add);
  pick(deck.efxList, 1);
  clickCell(1, 1);
  tool(form.PRect);
  dragCells(0, 0, 2, 2);
  EXPECT_EQ(takeFailure(), 0);
  EXPECT_TRUE(deck.effect().paintPixels.empty());
}

TEST_P(PaintBox, AGridThatGrowsOrShrinksKeepsThePicture) {
  openWithGrid(3, 2);
  other.frame = frameOf({"RGB", "YCM"});
  click(form.PGet);
  click(form.OK);
  resize(5, 3);
  pick(deck.efxList, 0);
  expectPainted({"RGB..", "YCM..", "....."});
  resize(2, 3);
  pick(deck.efxList, 0);
  expectPainted({"RG", "YC", ".."});
  resize(2, 1);
  pick(deck.efxList, 0);
  expectPainted({"RG"});
}

TEST_P(PaintBox, ATooSmallPictureIsGivenTheGridsSizeWhenItIsOpened) {
  openWithGrid(2, 2);
  other.frame = frameOf({"RG", "BY"});
  click(form.PGet);
  click(form.OK);
  const Grid<Color> small = deck.effect().paintPixels;
  resize(3, 3);
  deck.effect().paintPixels = small;  // as after a paste from before the change of the grid
  ASSERT_TRUE(click(panel.edit));
  expectPainted({"RG.", "BY.", "..."});
}

TEST_P(PaintBox, AChangeOfTheGridUnderTheOpenDialogIsSurvived) {
  openWithGrid(2, 2);
  clickCell(0, 0);
  resize(4, 4);
  click(form.PUndo);
  clickAt(20, 20);
  click(form.BUp);
  click(form.Cancel);
  EXPECT_EQ(takeFailure(), 0);
  expectPainted({"....", "....", "....", "...."});
}

TEST_P(PaintBox, ActivatingTheWindowDrawsWhatTheRecordHoldsByNow) {
  openWithGrid(2, 2);
  event([&] { engine.desktop.activate(plugin.matrixForm); });
  deck.effect().paintPixels.at(1, 0) = kGreen;
  event([&] { engine.desktop.activate(form); });
  EXPECT_EQ(form.Bild.raster().pixel(mid(1), mid(0)), kGreen);
  expectPainted({".G", ".."});
}

TEST_P(PaintBox, AnotherGridIsDrawnAtOnce) {
  openWithGrid(2, 2);
  clickCell(0, 1);
  event([&] { plugin.plugIn.ITharnPlugin_Configure(); });
  choose(plugin.matrixConf.ncol, 2);
  choose(plugin.matrixConf.nrow, 2);
  EXPECT_EQ(form.Bild.raster().pixel(6, 14), kRed);  // cells of 20 / 3, rounded
  EXPECT_EQ(form.Bild.raster().pixel(6, 21), rgb(0, 0, 0));
}

// A window left open while the deck plays something else.
TEST_P(PaintBox, ActivatingTheWindowLeavesADeckThatHasGoneOnAlone) {
  openWithGrid(2, 2);
  event([&] { engine.desktop.activate(plugin.matrixForm); });
  choose(deck.type, kFluid);
  const Frame before = deck.frame;
  event([&] { engine.desktop.activate(form); });
  for (int col = 0; col < 2; ++col) EXPECT_EQ(deck.frame.at(col, 0), before.at(col, 0));
  EXPECT_NE(deck.frame.at(0, 0), Rgb{});
  EXPECT_EQ(takeFailure(), 0);
}

TEST_P(PaintBox, AChangeOfTheGridLeavesTheFrameThatItCleared) {
  openWithGrid(2, 2);
  clickCell(0, 0);
  event([&] { plugin.plugIn.ITharnPlugin_Configure(); });
  takeCalls();
  choose(plugin.matrixConf.ncol, 2);
  EXPECT_EQ(takeCalls(), std::vector<std::string>{});
  expectPicture(deck.frame, {"...", "..."});
}

}  // namespace
}  // namespace korvane
