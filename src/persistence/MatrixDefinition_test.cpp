#include "persistence/MatrixDefinition.h"

#include "testing/DefinitionTest.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

class MatrixDefinition : public DefinitionTest {};

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

TEST_F(MatrixDefinition, AFailureSaysWhichLineOfWhichFile) {
  const std::pair<const char*, const char*> cases[] = {
      {"name\r\n12\r\n", "Subscript out of range: PATH, line 2: the line has too few fields"},
      {"name\r\ntwelve,12\r\n", "Type mismatch: PATH, line 2: 'twelve'"},
      {"name\r\n40000,1\r\n", "Overflow: PATH, line 2: '40000'"},
      {"name\r\n2,1\r\n1,2,3\r\n1,2,x\r\n", "Type mismatch: PATH, line 4: 'x'"},
      {"name\r\n2,1\r\n1,2,3\r\n", "Input past end of file: PATH, line 4"}};
  for (auto [bytes, text] : cases) {
    writeFile(definition(), bytes);
    EXPECT_FALSE(open());
    std::string expected = text;
    expected.replace(expected.find("PATH"), 4, definition());
    EXPECT_STREQ(platform.failures.back().what(), expected.c_str());
  }
}

// The name is taken before the size is read, so it stays even if the size is broken.
TEST_F(MatrixDefinition, TheNameOfABrokenFileStays) {
  writeFile(definition(), "Stage\r\n");
  EXPECT_FALSE(open());
  EXPECT_EQ(v.matrixName, "Stage");
  EXPECT_FALSE(configure());
  EXPECT_EQ(conf.MName.text(), "Stage");
  std::filesystem::remove(definition());
  ASSERT_TRUE(open());
  ASSERT_TRUE(configure());
  loadBytes("Loft\r\nlarge\r\n");
  EXPECT_EQ(takeBoxes(), Texts{});
  EXPECT_EQ(conf.MName.text(), "Loft");
  EXPECT_EQ(v.matrixName, "Loft");
  EXPECT_EQ(v.matrixCols, 12);
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
  for (const Row& row :
       {Row{"", 12, 12}, Row{"x\r\n", 12, 12}, Row{"x\r\na,b\r\n", 12, 12},
        Row{"x\r\n40000,3\r\n", 12, 12}, Row{"x\r\n51,51,False\r\n", 51, 51},
        Row{"x\r\n0,3,False\r\n", 0, 3}, Row{"x\r\n-1,3\r\n", -1, 3},
        Row{"x\r\n3,2,False\r\n1,2,3\r\n", 3, 2}, Row{"x\r\n3,2,False\r\n1,2,three\r\n", 3, 2},
        Row{"x\r\n99999999999999999999,3\r\n", 12, 12}, Row{"x\r\n30000,30000\r\n", 30000, 30000},
        Row{"\x01\xff\xfe\n\x80\x81,\x99\n\x02", 12, 12}}) {
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

TEST_F(MatrixDefinition, SavingWithTrueAndLoadingLeavesQuickConfiguredAlone) {
  ASSERT_TRUE(open());
  configure();
  loadBytes("x\r\n1,1,True\r\n1,2,3\r\n");
  EXPECT_FALSE(v.quickConfigured);
}

}  // namespace
}  // namespace korvane
