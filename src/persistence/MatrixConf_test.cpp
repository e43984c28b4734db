#include "persistence/MatrixConf.h"

#include "persistence/MatrixDefinition.h"
#include "testing/TestPlugin.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

class MatrixDefinition : public TestPlugin {
 protected:
  std::string definition() { return host.baseFilename + ".korvaneconf"; }
  bool configure() {
    return event([this] { plugin.plugIn.ITharnPlugin_Configure(); });
  }
  /// Loads a definition with these bytes through the window's button.
  bool loadBytes(const std::string& bytes) {
    writeFile(folder + "/other.korvaneconf", bytes);
    platform.answers.emplace_back(folder + "/other.korvaneconf");
    return click(conf.load);
  }
  void doubleClick(int x, int y) {
    using Mouse = PictureBox::Mouse;
    for (const Mouse mouse : {Mouse::Down, Mouse::Up, Mouse::Click, Mouse::Down, Mouse::DblClick}) {
      event([&] { conf.mxbild.mouse(mouse, x, y); });
    }
  }
  std::string sent() {
    takeCalls();
    plugin.matrixForm.active.setValue(1);
    std::string all;
    for (const std::string& call : takeCalls()) all += call + ";";
    return all;
  }

  MatrixConf& conf = plugin.matrixConf;
};

TEST_F(MatrixDefinition, WithoutAFileTheGridIsTwelveByTwelveCountedUpColumnByColumn) {
  ASSERT_TRUE(open());
  EXPECT_EQ(v.matrixCols, 12);
  EXPECT_EQ(v.matrixRows, 12);
  EXPECT_EQ(v.channelMap.at(0, 0), (ChannelMap::Codes{1, 2, 3}));
  EXPECT_EQ(v.channelMap.at(0, 1), (ChannelMap::Codes{4, 5, 6}));
  EXPECT_EQ(v.channelMap.at(1, 0), (ChannelMap::Codes{37, 38, 39}));
  EXPECT_EQ(v.channelMap.at(11, 11), (ChannelMap::Codes{430, 431, 432}));
  EXPECT_FALSE(v.cellConfigured.at(0, 0));
  EXPECT_TRUE(v.matrixConfigured);
}

TEST_F(MatrixDefinition, ADefaultMapIsSentAlthoughNoCellShowsWhite) {
  ASSERT_TRUE(open());
  EXPECT_EQ(sent().substr(0, 50), "UserInteraction;SetChannel 1 127;SetChannel 3 127;");
}

TEST_F(MatrixDefinition, TheFileNamedAfterTheProjectIsTakenAtStart) {
  writeFile(definition(), "Stage\r\n2,1,False\r\n7,8,9\r\n10,11,12\r\n");
  ASSERT_TRUE(open());
  EXPECT_EQ(v.matrixName, "Stage");
  EXPECT_EQ(v.projectDirectory, folder + "/");
  EXPECT_EQ(v.matrixCols, 2);
  EXPECT_EQ(v.matrixRows, 1);
  EXPECT_EQ(v.channelMap.at(1, 0), (ChannelMap::Codes{10, 11, 12}));
  EXPECT_TRUE(v.cellConfigured.at(1, 0));
  EXPECT_EQ(v.A.mini.width(), 2);
  EXPECT_EQ(v.A.mini.height(), 1);
}

TEST_F(MatrixDefinition, TheWindowTakesTheFileItselfIfItComesFirst) {
  writeFile(definition(), "Stage\n1,2,True\n7,8,9\n10,11,12");
  ASSERT_TRUE(configure());
  EXPECT_EQ(conf.MName.text(), "Stage");
  EXPECT_EQ(conf.nrow.text(), "2");
  EXPECT_EQ(conf.ncol.text(), "1");
  EXPECT_EQ(v.channelMap.at(0, 1), (ChannelMap::Codes{10, 11, 12}));
  EXPECT_FALSE(v.quickConfigured);
}

// What a broken file named after the project does at start: the failure, and what stays in force.
struct BrokenFile {
  const char* what;
  const char* bytes;
  int failure;
  int cols, rows;
};

const std::vector<BrokenFile> kBrokenAtStart = {
    {"empty", "", kPastEndOfFile, 0, 0},
    {"only a name", "name\r\n", kPastEndOfFile, 0, 0},
    {"no size", "name\r\n\r\n", kTypeMismatch, 0, 0},
    {"one size", "name\r\n12\r\n", kSubscript, 12, 0},
    {"letters for the size", "name\r\ntwelve,12,False\r\n", kTypeMismatch, 0, 0},
    {"letters for a code", "name\r\n1,1,False\r\na,b,c\r\n", kTypeMismatch, 1, 1},
    {"few codes", "name\r\n1,1,False\r\n5,6\r\n", kSubscript, 1, 1},
    {"few cells", "name\r\n2,2,False\r\n1,2,3\r\n", kPastEndOfFile, 2, 2},
    {"size 0", "name\r\n0,0,False\r\n", kDivisionByZero, 0, 0},
    {"size -1", "name\r\n-1,5,False\r\n", kSubscript, -1, 5},
    {"size 40000", "name\r\n40000,2,False\r\n", kOverflow, 0, 0},
    {"huge size", "name\r\n30000,30000,False\r\n", kOutOfMemory, 30000, 30000},
    {"huge number", "name\r\n99999999999999999999,1,False\r\n", kOverflow, 0, 0},
    {"huge code", "name\r\n1,1,False\r\n9999999999,1,1\r\n", kOverflow, 1, 1},
    {"binary", "\x01\x02\xff\xfe\n\x80\x81\x82\n\x99", kTypeMismatch, 0, 0},
};

TEST_F(MatrixDefinition, ABrokenFileIsARunTimeFailureAtStartAndTheProgramGoesOn) {
  for (const BrokenFile& broken : kBrokenAtStart) {
    HeadlessPlatform machine;
    Plugin fresh{machine};
    fresh.plugIn.ITharnPlugin_Init("", "", host);
    writeFile(definition(), broken.bytes);
    EXPECT_FALSE(runEvent(machine, [&] { fresh.engine.desktop.show(fresh.matrixForm); }))
        << broken.what;
    ASSERT_EQ(machine.failures.size(), 1U) << broken.what;
    EXPECT_EQ(machine.failures[0].number, broken.failure)
        << broken.what << ": " << machine.failures[0].what();
    EXPECT_EQ(fresh.engine.v.matrixCols, broken.cols) << broken.what;
    EXPECT_EQ(fresh.engine.v.matrixRows, broken.rows) << broken.what;
    EXPECT_FALSE(fresh.matrixForm.visible()) << broken.what;
  }
}

TEST_F(MatrixDefinition, AMendedFileOpensAtTheNextTry) {
  writeFile(definition(), "name\r\ntwelve\r\n");
  EXPECT_FALSE(open());
  writeFile(definition(),
            "name\r\n3,2,False\r\n1,2,3\r\n1,2,3\r\n1,2,3\r\n1,2,3\r\n1,2,3\r\n1,2,3\r\n");
  EXPECT_TRUE(open());
  EXPECT_EQ(v.matrixCols, 3);
  EXPECT_EQ(v.A.efxList.count(), 1);
  EXPECT_EQ(v.frameA.at(2, 1), (Rgb{255, 0, 0}));
}

TEST_F(MatrixDefinition, ASizeAboveFiftyIsTakenAtStart) {
  std::string bytes = "name\r\n51,1,False\r\n";
  for (int i = 0; i < 51; ++i) bytes += "1,2,3\r\n";
  writeFile(definition(), bytes);
  EXPECT_TRUE(open());
  EXPECT_EQ(v.matrixCols, 51);
  EXPECT_FALSE(configure());
  EXPECT_EQ(takeFailure(), kInvalidPropertyValue);
}

TEST_F(MatrixDefinition, ALoadedFileIsTakenAndSaidSo) {
  ASSERT_TRUE(open());
  configure();
  v.configChanged = true;
  EXPECT_TRUE(loadBytes("Loft\r\n2,1,False\r\n1,2,3\r\n4,5,600\r\n"));
  EXPECT_EQ(takeBoxes(), Texts{"Configuration loaded !"});
  EXPECT_EQ(v.matrixName, "Loft");
  EXPECT_EQ(conf.MName.text(), "Loft");
  EXPECT_EQ(conf.ncol.text(), "2");
  EXPECT_EQ(v.channelMap.at(1, 0), (ChannelMap::Codes{4, 5, 600}));
  EXPECT_FALSE(v.configChanged);
  EXPECT_EQ(platform.questions.back().title, "Load Configuration ...");
  EXPECT_EQ(platform.questions.back().filter, "RGB-Matrix (*.korvaneconf)|*.korvaneconf");
  EXPECT_EQ(platform.questions.back().initialDirectory, folder + "/");
}

TEST_F(MatrixDefinition, ABrokenFileLoadedByHandEndsWithoutAWordAndWhatWasDoneStays) {
  struct Row {
    const char* bytes;
    int cols, rows;
  };
  for (const Row& row : {Row{"", 12, 12}, Row{"x\r\n", 12, 12}, Row{"x\r\na,b\r\n", 12, 12},
                         Row{"x\r\n40000,3\r\n", 12, 12}, Row{"x\r\n51,51,False\r\n", 51, 51},
                         Row{"x\r\n0,3,False\r\n", 0, 3}, Row{"x\r\n-1,3\r\n", -1, 3},
                         Row{"x\r\n3,2,False\r\n1,2,3\r\n", 3, 2}}) {
    HeadlessPlatform machine;
    Plugin fresh{machine};
    fresh.plugIn.ITharnPlugin_Init("", "", host);
    runEvent(machine, [&] { fresh.engine.desktop.show(fresh.matrixForm); });
    runEvent(machine, [&] { fresh.plugIn.ITharnPlugin_Configure(); });
    writeFile(folder + "/broken", row.bytes);
    machine.answers.emplace_back(folder + "/broken");
    EXPECT_TRUE(runEvent(machine, [&] { fresh.matrixConf.load.click(); })) << row.bytes;
    EXPECT_TRUE(machine.boxes.empty()) << row.bytes;
    EXPECT_EQ(fresh.engine.v.matrixCols, row.cols) << row.bytes;
    EXPECT_EQ(fresh.engine.v.matrixRows, row.rows) << row.bytes;
    EXPECT_TRUE(runEvent(machine, [&] { fresh.matrixForm.panelA.add.click(); }));
  }
}

TEST_F(MatrixDefinition, TooFewCellLinesLeaveTheLaterCellsAtZero) {
  ASSERT_TRUE(open());
  configure();
  loadBytes("x\r\n2,2,False\r\n1,2,3\r\n");
  EXPECT_EQ(takeBoxes(), Texts{});
  EXPECT_EQ(v.channelMap.at(0, 0), (ChannelMap::Codes{1, 2, 3}));
  EXPECT_TRUE(v.cellConfigured.at(0, 0));
  EXPECT_EQ(v.channelMap.at(0, 1), (ChannelMap::Codes{0, 0, 0}));
  EXPECT_FALSE(v.cellConfigured.at(1, 1));
}

TEST_F(MatrixDefinition, ACancelledDialogEndsWithoutAWord) {
  ASSERT_TRUE(open());
  configure();
  EXPECT_TRUE(click(conf.load));
  EXPECT_TRUE(click(conf.save));
  EXPECT_EQ(takeBoxes(), Texts{});
  EXPECT_EQ(takeFailure(), 0);
}

TEST_F(MatrixDefinition, ASavedFileHoldsTheGridColumnByColumn) {
  ASSERT_TRUE(open());
  configure();
  loadBytes("Müller\r\n1,2,True\r\n1,2,3\r\n4,5,6\r\n");
  takeBoxes();
  v.quickConfigured = true;
  platform.answers.emplace_back(folder + "/saved.korvaneconf");
  click(conf.save);
  EXPECT_EQ(takeBoxes(), Texts{"Configuration saved !"});
  EXPECT_EQ(platform.questions.back().title, "Save Configuration ...");
  EXPECT_EQ(platform.questions.back().defaultExtension, "");
  const std::string bytes = readFile(folder + "/saved.korvaneconf");
  EXPECT_EQ(bytes.substr(bytes.find('\n') + 1), "1,2,True\r\n1,2,3\r\n4,5,6\r\n");
}

TEST_F(MatrixDefinition, AFileThatIsSavedOverIsKeptBesideIt) {
  ASSERT_TRUE(open());
  configure();
  const std::string path = folder + "/saved.korvaneconf";
  writeFile(path, "the grid of yesterday\r\n");
  platform.answers.emplace_back(path);
  click(conf.save);
  EXPECT_TRUE(readFile(path).starts_with("unnamed\r\n12,12,False\r\n1,2,3\r\n"));
  EXPECT_EQ(readFile(path + ".bak"), "the grid of yesterday\r\n");
}

TEST_F(MatrixDefinition, SavingWithTrueAndLoadingLeavesQuickConfiguredAlone) {
  ASSERT_TRUE(open());
  configure();
  loadBytes("x\r\n1,1,True\r\n1,2,3\r\n");
  EXPECT_FALSE(v.quickConfigured);
}

TEST_F(MatrixDefinition, AnotherSizeLeavesAMapOfZerosAndAllCellsGrey) {
  ASSERT_TRUE(open());
  configure();
  loadBytes("x\r\n2,1,False\r\n1,2,3\r\n4,5,6\r\n");
  choose(conf.ncol, 12);
  EXPECT_EQ(v.matrixCols, 13);
  EXPECT_EQ(v.channelMap.at(0, 0), (ChannelMap::Codes{0, 0, 0}));
  EXPECT_FALSE(v.cellConfigured.at(0, 0));
  EXPECT_EQ(v.frameM.cols(), 13);
}

TEST_F(MatrixDefinition, ActivatingTheWindowDoesNotWipeTheMap) {
  ASSERT_TRUE(open());
  configure();
  event([&] { engine.desktop.activate(plugin.matrixForm); });
  event([&] { engine.desktop.activate(conf); });
  EXPECT_EQ(v.channelMap.at(0, 0), (ChannelMap::Codes{1, 2, 3}));
}

TEST_F(MatrixDefinition, CellsTakeTheirSizeFromTheSideThatLimitsThem) {
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

TEST_F(MatrixDefinition, ADoubleClickOffersTheNextChannelsButNeverTheFirst) {
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

TEST_F(MatrixDefinition, SetChannelsGoToTheCellWhichTurnsWhite) {
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

TEST_F(MatrixDefinition, AConfiguredCellOpensWithItsChannels) {
  ASSERT_TRUE(open());
  configure();
  event([&] { conf.mxbild.resize(120, 120); });
  loadBytes("x\r\n1,1,False\r\n1,513,1535\r\n");
  doubleClick(5, 5);
  EXPECT_EQ(conf.detail.R.text() + "/" + conf.detail.UR.text(), "1/1");
  EXPECT_EQ(conf.detail.G.text() + "/" + conf.detail.UG.text(), "1/2");
  EXPECT_EQ(conf.detail.B.text() + "/" + conf.detail.UB.text(), "511/3");
}

TEST_F(MatrixDefinition, AMultipleOf512OpensInTheNextUniverseWithoutAChannel) {
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

TEST_F(MatrixDefinition, TheLastChannelOfTheLastUniverseHasTheLastCode) {
  ASSERT_TRUE(open());
  configure();
  event([&] { conf.mxbild.resize(120, 120); });
  doubleClick(5, 5);
  choose(conf.detail.R, 511);
  choose(conf.detail.UR, 15);
  click(conf.detail.setConfig);
  EXPECT_EQ(v.channelMap.at(0, 0)[0], 8192);
}

TEST_F(MatrixDefinition, ADoubleClickOutsideTheGridDoesNothing) {
  ASSERT_TRUE(open());
  configure();
  event([&] { conf.mxbild.resize(200, 120); });
  doubleClick(150, 5);
  EXPECT_EQ(engine.desktop.modal(), nullptr);
}

TEST_F(MatrixDefinition, TheSuggestionGoesOnIntoTheNextUniverseAndWraps) {
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

TEST_F(MatrixDefinition, PaintPicturesKeepTheirContentsInBothDimensions) {
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

// The loop ends at the count of rows: slots that removals left behind push others beyond it.
TEST_F(MatrixDefinition, APaintPictureInASlotBeyondTheCountOfRowsKeepsItsSize) {
  ASSERT_TRUE(open());
  click(plugin.matrixForm.panelA.add);
  pick(v.A.efxList, 0);
  click(plugin.matrixForm.panelA.remove);
  ASSERT_EQ(v.selA, 1);
  ASSERT_EQ(v.efxACount, 1);
  choose(v.A.type, kPaint);
  resize(20, 20);
  EXPECT_EQ(v.efxA[1].paintPixels.cols(), 12);
  EXPECT_FALSE(pick(v.A.efxList, 0));
  EXPECT_EQ(takeFailure(), kSubscript);
}

TEST_F(MatrixDefinition, OKFitsPreviewsAndHiddenPicturesToTheGrid) {
  ASSERT_TRUE(open());
  resize(20, 10);
  EXPECT_EQ(v.previewA.cell, v.A.picture.width() / 20);
  EXPECT_EQ(v.B.mini.width(), 20);
  EXPECT_EQ(v.B.mini.height(), 10);
  EXPECT_FALSE(conf.visible());
}

}  // namespace
}  // namespace korvane
