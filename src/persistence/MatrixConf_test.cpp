#include "persistence/MatrixConf.h"

#include "testing/DefinitionTest.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

class DefinitionWindow : public DefinitionTest {};

TEST_F(DefinitionWindow, AnotherSizeLeavesAMapOfZerosAndAllCellsGrey) {
  ASSERT_TRUE(open());
  configure();
  loadBytes("x\r\n2,1,False\r\n1,2,3\r\n4,5,6\r\n");
  choose(conf.ncol, 12);
  EXPECT_EQ(v.matrixCols, 13);
  EXPECT_EQ(v.channelMap.at(0, 0), (ChannelMap::Codes{0, 0, 0}));
  EXPECT_FALSE(v.cellConfigured.at(0, 0));
  EXPECT_EQ(v.frameM.cols(), 13);
}

TEST_F(DefinitionWindow, ActivatingTheWindowDoesNotWipeTheMap) {
  ASSERT_TRUE(open());
  configure();
  event([&] { engine.desktop.activate(plugin.matrixForm); });
  event([&] { engine.desktop.activate(conf); });
  EXPECT_EQ(v.channelMap.at(0, 0), (ChannelMap::Codes{1, 2, 3}));
}

TEST_F(DefinitionWindow, CellsTakeTheirSizeFromTheSideThatLimitsThem) {
  ASSERT_TRUE(open());
  configure();
  event([&] { conf.mxbild.resize(300, 200); });
  const auto pixel = [this](int x, int y) { return conf.mxbild.raster().pixel(x, y); };
  choose(conf.ncol, 0);
  choose(conf.nrow, 0);
  EXPECT_EQ(pixel(200, 100), rgb(0, 0, 0));  // one cell of 200 pixels
  EXPECT_EQ(pixel(199, 100), rgb(180, 180, 180));
  choose(conf.ncol, 49);
  choose(conf.nrow, 2);
  EXPECT_EQ(pixel(6, 3), rgb(0, 0, 0));  // 300 / 50
  EXPECT_EQ(pixel(5, 3), rgb(180, 180, 180));
}

TEST_F(DefinitionWindow, ADoubleClickOffersTheNextChannelsButNeverTheFirst) {
  ASSERT_TRUE(open());
  configure();
  event([&] { conf.mxbild.resize(120, 120); });
  doubleClick(15, 25);
  EXPECT_EQ(engine.desktop.modal(), &conf.detail);
  EXPECT_EQ(v.cellCol, 1);
  EXPECT_EQ(v.cellRow, 2);
  EXPECT_EQ(conf.detail.R.text(), "2");
  EXPECT_EQ(conf.detail.G.text(), "3");
  EXPECT_EQ(conf.detail.B.text(), "4");
  EXPECT_EQ(conf.detail.UR.text(), "1");
  click(conf.detail.Cancel);
  doubleClick(15, 25);
  EXPECT_EQ(conf.detail.R.text(), "5");  // the counters keep their advance
}

// The orders in which Windows sends what a hand does in a double click: down, up, double click, up,
// with moves in between, and the last release lost where the open detail window takes it.
class LampByHand : public DefinitionWindow, public testing::WithParamInterface<int> {
 protected:
  enum class Last { Captured, MovedAndCaptured, Lost };

  void configureLamp(int col, int row, Last last) {
    const int cell = conf.mxbild.width() / GetParam();
    const int x = col * cell + cell / 2;
    const int y = row * cell + cell / 2;
    const Gate gate = [this](const std::function<void()>& what) { event(what); };
    PictureBox& box = conf.mxbild;
    box.move(x - 1, y, false, gate);
    box.press(x, y, gate);
    box.move(x, y + 1, true, gate);
    box.release(x, y, true, gate);
    box.twice(x, y, gate);
    ASSERT_EQ(engine.desktop.modal(), &conf.detail);
    if (last == Last::MovedAndCaptured) box.move(x + 1, y + 1, true, gate);
    if (last != Last::Lost) box.release(x + 1, y + 1, true, gate);
    EXPECT_EQ(v.cellCol, col);
    EXPECT_EQ(v.cellRow, row);
    EXPECT_TRUE(click(conf.detail.setConfig));
    EXPECT_FALSE(conf.detail.visible());
    box.move(x, y, false, gate);
    EXPECT_FALSE(box.buttonHeld());
  }
  int configuredLamps() const {
    int count = 0;
    for (int col = 0; col < v.matrixCols; ++col) {
      for (int row = 0; row < v.matrixRows; ++row) count += v.cellConfigured.at(col, row) ? 1 : 0;
    }
    return count;
  }
};

TEST_P(LampByHand, IsTheOneThatWasDoubleClickedHoweverTheButtonComesUp) {
  ASSERT_TRUE(open());
  configure();
  choose(conf.ncol, GetParam() - 1);
  choose(conf.nrow, GetParam() - 1);
  configureLamp(2, 3, Last::Captured);
  configureLamp(0, 1, Last::MovedAndCaptured);
  configureLamp(GetParam() - 1, GetParam() - 1, Last::Lost);
  EXPECT_EQ(v.channelMap.at(2, 3), (ChannelMap::Codes{2, 3, 4}));
  EXPECT_EQ(v.channelMap.at(0, 1), (ChannelMap::Codes{5, 6, 7}));
  EXPECT_EQ(v.channelMap.at(GetParam() - 1, GetParam() - 1), (ChannelMap::Codes{8, 9, 10}));
  EXPECT_EQ(configuredLamps(), 3);
}

INSTANTIATE_TEST_SUITE_P(Grid, LampByHand, testing::Values(12, 50));

TEST_F(DefinitionWindow, ChoosingTheSizeThatTheGridHasKeepsItsMap) {
  ASSERT_TRUE(open());
  configure();
  loadBytes("x\r\n2,1,False\r\n1,2,3\r\n4,5,6\r\n");
  choose(conf.ncol, 1);
  choose(conf.nrow, 0);
  EXPECT_EQ(v.channelMap.at(1, 0), (ChannelMap::Codes{4, 5, 6}));
  EXPECT_TRUE(v.cellConfigured.at(0, 0));
}

TEST_F(DefinitionWindow, SetChannelsGoToTheCellWhichTurnsWhite) {
  ASSERT_TRUE(open());
  configure();
  event([&] { conf.mxbild.resize(120, 120); });
  v.quickConfigured = true;
  doubleClick(15, 25);
  choose(conf.detail.R, 99);
  choose(conf.detail.UR, 15);
  click(conf.detail.setConfig);
  EXPECT_EQ(v.channelMap.at(1, 2), (ChannelMap::Codes{100 + 15 * 512, 3, 4}));
  EXPECT_TRUE(v.cellConfigured.at(1, 2));
  EXPECT_TRUE(v.configChanged);
  EXPECT_FALSE(v.quickConfigured);
  EXPECT_EQ(conf.mxbild.raster().pixel(15, 25), rgb(255, 255, 255));
  EXPECT_EQ(conf.mxbild.raster().pixel(25, 25), rgb(180, 180, 180));
}

TEST_F(DefinitionWindow, AConfiguredCellOpensWithItsChannels) {
  ASSERT_TRUE(open());
  configure();
  event([&] { conf.mxbild.resize(120, 120); });
  loadBytes("x\r\n1,1,False\r\n1,513,1535\r\n");
  doubleClick(5, 5);
  EXPECT_EQ(conf.detail.R.text() + "/" + conf.detail.UR.text(), "1/1");
  EXPECT_EQ(conf.detail.G.text() + "/" + conf.detail.UG.text(), "1/2");
  EXPECT_EQ(conf.detail.B.text() + "/" + conf.detail.UB.text(), "511/3");
}

TEST_F(DefinitionWindow, AMultipleOf512OpensInTheNextUniverseWithoutAChannel) {
  ASSERT_TRUE(open());
  configure();
  event([&] { conf.mxbild.resize(120, 120); });
  loadBytes("x\r\n1,1,False\r\n512,1,1\r\n");
  doubleClick(5, 5);
  EXPECT_EQ(conf.detail.UR.index(), 1);
  EXPECT_EQ(conf.detail.R.index(), -1);
  EXPECT_FALSE(click(conf.detail.setConfig));
  EXPECT_EQ(takeFailure(), kTypeMismatch);
  EXPECT_TRUE(conf.detail.visible());
}

TEST_F(DefinitionWindow, TheLastChannelOfTheLastUniverseHasTheLastCode) {
  ASSERT_TRUE(open());
  configure();
  event([&] { conf.mxbild.resize(120, 120); });
  doubleClick(5, 5);
  choose(conf.detail.R, 511);
  choose(conf.detail.UR, 15);
  click(conf.detail.setConfig);
  EXPECT_EQ(v.channelMap.at(0, 0)[0], 8192);
}

TEST_F(DefinitionWindow, ADoubleClickOutsideTheGridDoesNothing) {
  ASSERT_TRUE(open());
  configure();
  event([&] { conf.mxbild.resize(200, 120); });
  doubleClick(150, 5);
  EXPECT_EQ(engine.desktop.modal(), nullptr);
}

TEST_F(DefinitionWindow, TheSuggestionGoesOnIntoTheNextUniverseAndWraps) {
  ASSERT_TRUE(open());
  configure();
  event([&] { conf.mxbild.resize(120, 120); });
  std::string last;
  for (int i = 0; i < 171; ++i) {  // 1 + 3 x 171 = 514
    doubleClick(5, 5);
    last = conf.detail.R.text() + "/" + conf.detail.UR.text() + " " + conf.detail.G.text() + "/" +
           conf.detail.UG.text() + " " + conf.detail.B.text() + "/" + conf.detail.UB.text();
    click(conf.detail.Cancel);
  }
  EXPECT_EQ(last, "512/1 1/2 2/2");
}

TEST_F(DefinitionWindow, PaintPicturesKeepTheirContentsInBothDimensions) {
  ASSERT_TRUE(open());
  choose(v.A.type, kPaint);
  v.A.effect().paintPixels.at(2, 3) = rgb(1, 2, 3);
  configure();
  choose(conf.ncol, 4);
  choose(conf.nrow, 4);
  EXPECT_EQ(v.A.effect().paintPixels.at(2, 3), rgb(1, 2, 3));
  choose(conf.ncol, 20);
  EXPECT_EQ(v.A.effect().paintPixels.at(2, 3), rgb(1, 2, 3));
  EXPECT_EQ(v.A.effect().paintPixels.cols(), 21);
}

// Only the slots up to the number of rows are looked at; a removal pushes a picture beyond them.
TEST_F(DefinitionWindow, APictureInALaterSlotFollowsTheGrid) {
  ASSERT_TRUE(open());
  click(plugin.matrixForm.panelA.add);
  pick(v.A.efxList, 1);
  choose(v.A.type, kPaint);
  pick(v.A.efxList, 0);
  choose(v.A.type, kPaint);
  click(plugin.matrixForm.panelA.remove);
  ASSERT_EQ(slots(v.A.efxList), Texts{"1"});
  configure();
  choose(conf.ncol, 4);
  EXPECT_EQ(v.A.efx[0].paintPixels.cols(), 5);
  EXPECT_EQ(v.A.efx[1].paintPixels.cols(), 5);
}

TEST_F(DefinitionWindow, TheShowGoesOnWhileTheSizeChanges) {
  ASSERT_TRUE(open());
  choose(v.A.type, kFire);
  configure();
  choose(conf.ncol, 19);
  EXPECT_TRUE(v.A.timer1.enabled());
  advance(1000);
  EXPECT_EQ(takeFailure(), 0);
}

TEST_F(DefinitionWindow, AFileThatIsSavedOverIsKeptBesideIt) {
  ASSERT_TRUE(open());
  configure();
  const std::string path = folder + "/saved.korvaneconf";
  writeFile(path, "the grid of yesterday\r\n");
  platform.answers.emplace_back(path);
  click(conf.save);
  EXPECT_TRUE(readFile(path).starts_with("unnamed\r\n12,12,False\r\n1,2,3\r\n"));
  EXPECT_EQ(readFile(path + ".bak"), "the grid of yesterday\r\n");
}

TEST_F(DefinitionWindow, WindowsHaveTheirTexts) {
  ASSERT_TRUE(configure());
  EXPECT_EQ(conf.caption(), "Configure Matrix");
  EXPECT_EQ(conf.detail.caption(), "Konfiguration");
  const std::pair<const Control*, const char*> captions[] = {
      {&conf.Label3, "RGB-Matrix Definition"},
      {&conf.Label4, "Name : "},
      {&conf.Label2, "number of columns : "},
      {&conf.Label1, "number of rows : "},
      {&conf.fastConfig, "Fast Configuration"},
      {&conf.save, "Save"},
      {&conf.load, "Load"},
      {&conf.help, "Help"},
      {&conf.OK, "OK"},
      {&conf.detail.red, "Red"},
      {&conf.detail.green, "Green"},
      {&conf.detail.blue, "Blue"},
      {&conf.detail.Cancel, "Cancel"}};
  for (const auto& [control, caption] : captions)
    EXPECT_EQ(control->look().caption, caption) << control->name();
  EXPECT_EQ(conf.MName.text(), "unnamed");
  EXPECT_EQ(conf.detail.R.look().label, "Channels : ");
  EXPECT_EQ(conf.detail.UR.look().label, "Universe : ");
}

TEST_F(DefinitionWindow, ListsOfferEverySizeChannelAndUniverse) {
  host.channels = 700;
  plugin.plugIn.ITharnPlugin_Init("", "", host);
  ASSERT_TRUE(open());
  configure();
  for (const ListBox* list : {&conf.ncol, &conf.nrow}) {
    EXPECT_EQ(list->items().size(), 50U);
    EXPECT_EQ(list->items().front() + "-" + list->items().back(), "1-50");
  }
  doubleClick(5, 5);
  for (const MatrixConfDetail::Choice& choice : conf.detail.choices()) {
    EXPECT_EQ(choice.channel->items().size(), 700U);
    EXPECT_EQ(choice.channel->items().back(), "700");
    EXPECT_EQ(choice.universe->items().size(), 16U);
  }
}

TEST_F(DefinitionWindow, OKFitsPreviewsAndHiddenPicturesToTheGrid) {
  ASSERT_TRUE(open());
  resize(20, 10);
  EXPECT_EQ(v.previewA.cell, v.A.picture.width() / 20);
  EXPECT_EQ(v.B.mini.width(), 20);
  EXPECT_EQ(v.B.mini.height(), 10);
  EXPECT_FALSE(conf.visible());
}

// The size has been taken by then, and the cells that were read stay.
TEST_F(DefinitionWindow, ADefinitionThatEndsTooEarlyShowsItsGrid) {
  ASSERT_TRUE(open());
  configure();
  event([&] { conf.mxbild.resize(120, 120); });
  loadBytes("x\r\n3,2,False\r\n7,8,9\r\n");
  EXPECT_EQ(takeBoxes(), Texts{});
  EXPECT_EQ(v.matrixCols, 3);
  EXPECT_EQ(v.channelMap.at(0, 0), (ChannelMap::Codes{7, 8, 9}));
  const auto pixel = [this](int x, int y) { return conf.mxbild.raster().pixel(x, y); };
  EXPECT_EQ(pixel(40, 20), rgb(0, 0, 0));  // cells of 120 / 3
  EXPECT_EQ(pixel(20, 40), rgb(0, 0, 0));
  EXPECT_EQ(pixel(20, 20), rgb(180, 180, 180));
  doubleClick(100, 70);
  EXPECT_EQ(v.cellCol, 2);
  EXPECT_EQ(v.cellRow, 1);
  EXPECT_EQ(engine.desktop.modal(), &conf.detail);
}

TEST_F(DefinitionWindow, ADefinitionWithoutACellOfASideShowsWhatItsListTook) {
  ASSERT_TRUE(open());
  configure();
  event([&] { conf.mxbild.resize(120, 120); });
  loadBytes("x\r\n60,2,False\r\n");
  EXPECT_EQ(v.matrixCols, 60);
  EXPECT_EQ(conf.nrow.index(), 1);
  EXPECT_EQ(conf.mxbild.raster().pixel(2, 1), rgb(0, 0, 0));  // cells of 120 / 60
  EXPECT_EQ(conf.mxbild.raster().pixel(3, 1), rgb(180, 180, 180));
}

}  // namespace
}  // namespace korvane
