#include "persistence/ProjectFile.h"
#include "testing/TestProject.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

class ProjectSave : public TestProject {};

TEST_F(ProjectSave, WritesHeadSelectionsAndBlocks) {
  pickAll();
  EXPECT_EQ(saveLines(), (Texts{"p.Korvane", "V1.0", "0.5", "1", "1", "1", "0", "0", "0", "A0",
                                "False", "B0", "False", "X0", "0", "new fade", "3", "255"}));
}

TEST_F(ProjectSave, UsesTheLocalesDecimalSeparator) {
  platform.format = {',', '.'};
  EXPECT_EQ(saveLines()[2], "0,5");
}

TEST_F(ProjectSave, WritesCodePage1252WithCarriageReturns) {
  setEffect(v.A, kColor, "Grün € \xE2\x98\x83", [](Effect&) {});
  EXPECT_NE(save().find("Gr\xFCn \x80 ?\r\n"), std::string::npos);
}

TEST_F(ProjectSave, StoresRowsInTheirOrderWhateverTheSlots) {
  click(plugin.matrixForm.panelA.add);
  v.efxA[1].name = "second";
  v.efxAEdited[1] = true;
  pick(v.A.efxList, 1);
  click(plugin.matrixForm.panelA.up);
  const Texts lines = saveLines();
  EXPECT_EQ(lines[6], "0");
  EXPECT_EQ(between(lines, "A0", "A1"), (Texts{"True", "0", "second", "255"}));
  EXPECT_EQ(between(lines, "A1", "B0"), Texts{"False"});
}

TEST_F(ProjectSave, LeavesDeletedRecordsBehind) {
  click(plugin.matrixForm.panelA.add);
  pick(v.A.efxList, 1);
  click(plugin.matrixForm.panelA.remove);
  EXPECT_EQ(saveLines()[3], "1");
}

TEST_F(ProjectSave, ShowsTheMessageAndTheTitle) {
  save();
  EXPECT_EQ(takeBoxes(), Texts{"Matrix Project saved"});
  EXPECT_EQ(plugin.matrixForm.caption(), "Korvane - p.Korvane");
}

TEST_F(ProjectSave, AsksForAFileInTheProjectsFolder) {
  save();
  const FileQuestion& asked = platform.questions.back();
  EXPECT_EQ(asked.purpose, FileQuestion::Purpose::Save);
  EXPECT_EQ(asked.title, "Save Matrix Project ...");
  EXPECT_EQ(asked.filter, "Matrix Project (*.Korvane)|*.Korvane");
  EXPECT_EQ(asked.initialDirectory, folder + "/");
}

TEST_F(ProjectSave, EndsWithoutAWordWhenCancelled) {
  platform.answers = {std::nullopt};
  EXPECT_TRUE(click(plugin.matrixForm.save));
  EXPECT_EQ(takeBoxes(), Texts{});
  EXPECT_EQ(plugin.matrixForm.caption(), "Korvane");
}

TEST_F(ProjectSave, EndsWithoutAWordWhereNoFileCanBeMade) {
  platform.answers = {folder + "/missing/p.Korvane"};
  EXPECT_TRUE(click(plugin.matrixForm.save));
  EXPECT_EQ(takeBoxes(), Texts{});
}

TEST_F(ProjectSave, AFadeThatCanNotBeShownIsNotSaved) {
  writeFile(path, "the show of yesterday\r\n");
  v.efxX.at(0).type = kFadeTypes;  // as a file that loses its place leaves it
  EXPECT_EQ(save(), "the show of yesterday\r\n");
  EXPECT_EQ(takeBoxes(), Texts{});
  v.efxX.at(0).type = kAdd;
  EXPECT_TRUE(save().starts_with("p.Korvane\r\n"));
}

TEST_F(ProjectSave, AFileThatCanNotBeFinishedStaysAsFarAsItWasWritten) {
  setEffect(v.A, kPaint, "no picture", [](Effect&) {});
  writeFile(path, "the show of yesterday\r\n");
  EXPECT_TRUE(save().ends_with("A0\r\nTrue\r\n2\r\nno picture\r\n2,1\r\n"));
  EXPECT_EQ(takeBoxes(), Texts{});
  EXPECT_EQ(readFile(path + ".bak"), "the show of yesterday\r\n");
}

TEST_F(ProjectSave, KeepsTheReplacedFileBesideIt) {
  writeFile(path, "the show of yesterday\r\n");
  const std::string first = save();
  EXPECT_EQ(readFile(path + ".bak"), "the show of yesterday\r\n");
  v.masterValue = 0.25;
  EXPECT_NE(save(), first);
  EXPECT_EQ(readFile(path + ".bak"), first);
}

}  // namespace
}  // namespace korvane
