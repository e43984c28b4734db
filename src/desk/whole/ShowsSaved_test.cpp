// Shows changed and saved on the desk.

#include "desk/whole/TestShows.h"

namespace korvane {
namespace {

TEST_F(Shows, ChangesAreNotLostOnTheWay) {
  click(desk.form.tool);
  renameFade("gone with the show");
  openExample(0);
  ASSERT_TRUE(desk.question.modal());
  EXPECT_EQ(desk.question.text.look().caption, "mine was changed since it was opened or saved.");
  click(desk.question.third);
  EXPECT_EQ(name(), "mine");
  openExample(0);
  event([this] { desk.question.key(27); });
  EXPECT_EQ(name(), "mine") << "Escape is no answer";
  openExample(0);
  click(desk.question.second);
  EXPECT_EQ(name(), "1-club-night");
}

TEST_F(Shows, SavingThemTakesTheShowAndItsGrid) {
  click(desk.form.tool);
  renameFade("kept");
  openExample(0);
  machine.answers = {std::nullopt};
  click(desk.question.first);
  EXPECT_EQ(name(), "mine") << "a cancelled dialog cancels the opening";
  openExample(0);
  machine.answers = {folder + "kept.Korvane"};
  click(desk.question.first);
  EXPECT_EQ(name(), "1-club-night");
  EXPECT_EQ(machine.questions.back().title, "Save Show as ...");
  EXPECT_EQ(machine.questions.back().suggestedName, "mine.Korvane");
  EXPECT_NE(bytesOf(folder + "kept.Korvane").find("\nkept\r"), std::string::npos);
  EXPECT_TRUE(bytesOf(folder + "kept.korvaneconf").starts_with("unnamed\r\n12,12,"));
}

TEST_F(Shows, SaveAsksForANameOnlyOnce) {
  click(desk.form.newShow);
  EXPECT_EQ(desk.form.caption(), "untitled - Korvane");
  click(tool.panelA.add);
  EXPECT_EQ(desk.form.caption(), "untitled* - Korvane");
  machine.answers = {folder + "tour.Korvane"};
  click(desk.form.save);
  EXPECT_EQ(desk.form.caption(), "tour - Korvane");
  click(tool.panelA.add);
  EXPECT_EQ(desk.form.caption(), "tour* - Korvane");
  click(desk.form.save);
  EXPECT_EQ(desk.form.caption(), "tour - Korvane");
  EXPECT_EQ(machine.questions.size(), 1U);
  EXPECT_TRUE(machine.boxes.empty());
}

TEST_F(Shows, ASaveThatFailsIsToldAndTheShowStaysChanged) {
  click(desk.form.tool);
  click(tool.panelA.add);
  const std::string path = folder + "no/such/folder.Korvane";
  machine.answers = {path};
  click(desk.form.saveAs);
  ASSERT_EQ(machine.failedSaves.size(), 1U);
  EXPECT_EQ(machine.failedSaves[0].path, path);
  EXPECT_TRUE(desk.session.changed());
  EXPECT_EQ(desk.session.path(), "");
  machine.answers = {path};
  click(tool.save);
  EXPECT_EQ(machine.failedSaves.size(), 2U) << "so does the tool's own button";
}

TEST_F(Shows, AShowThatCanNotBeWrittenIsNotCountedAsSaved) {
  click(desk.form.tool);
  machine.answers = {folder + "mine.Korvane"};
  click(desk.form.save);
  v.A.effect().type = kPaint;  // without a picture
  v.A.efxEdited.at(0) = true;
  for (int time = 0; time < 2; ++time) {
    click(desk.form.save);
    EXPECT_TRUE(desk.session.changed());
  }
  EXPECT_EQ(machine.failedSaves.back().whole, folder + "mine.Korvane") << "it is as it was";
}

TEST_F(Shows, TheToolsOwnSaveNamesTheShowToo) {
  click(desk.form.tool);
  renameFade("kept");
  machine.answers = {folder + "kept.Korvane"};
  click(tool.save);
  EXPECT_EQ(machine.questions.back().suggestedName, "mine.Korvane");
  EXPECT_EQ(machine.boxes, std::vector<std::string>{"Matrix Project saved"});
  EXPECT_EQ(desk.form.caption(), "kept - Korvane");
  renameFade("other");
  EXPECT_TRUE(desk.session.changed());
  machine.answers = {folder + "kept.Korvane"};
  click(tool.load);
  EXPECT_FALSE(desk.session.changed()) << "loaded anew";
}

TEST_F(Shows, ANewShowKeepsTheGridAndCanBeSavedAsItStands) {
  openExample(1);
  click(desk.form.newShow);
  EXPECT_EQ(v.matrixCols, 48);
  EXPECT_EQ(v.A.efxList.count(), 1);
  EXPECT_FALSE(desk.session.changed());
  machine.answers = {folder + "new.Korvane"};
  click(desk.form.saveAs);
  EXPECT_EQ(machine.questions.back().initialDirectory, folder) << "not among the examples";
  openExample(0);
  open(folder + "new.Korvane");
  EXPECT_EQ(name(), "new");
  EXPECT_EQ(v.matrixCols, 48);
  EXPECT_TRUE(machine.boxes.empty());
}

TEST_F(Shows, TheToolsOwnSaveTakesTheGridToo) {
  click(desk.form.tool);
  click(desk.form.configure);
  event([this] { plugin.matrixConf.ncol.setIndex(4); });
  machine.answers = {folder + "small.Korvane"};
  click(tool.save);
  EXPECT_FALSE(desk.session.changed());
  EXPECT_NE(bytesOf(folder + "small.korvaneconf").find("\n5,12,"), std::string::npos);
  event([this] { plugin.matrixConf.ncol.setIndex(7); });
  machine.answers = {folder + "other.Korvane"};
  click(tool.save);
  machine.answers = {folder + "small.Korvane"};
  click(tool.load);
  EXPECT_TRUE(desk.session.changed()) << "it plays on another grid than its own";
}

TEST_F(Shows, AGridThatIsSavedElsewhereStaysAChange) {
  click(desk.form.tool);
  machine.answers = {folder + "mine.Korvane"};
  click(desk.form.save);
  click(desk.form.configure);
  event([this] { plugin.matrixConf.ncol.setIndex(4); });
  machine.answers = {folder + "elsewhere.korvaneconf"};
  click(plugin.matrixConf.save);
  EXPECT_TRUE(desk.session.changed()) << "the show would open on its old grid";
  machine.answers = {folder + "mine.korvaneconf"};
  click(plugin.matrixConf.save);
  EXPECT_FALSE(desk.session.changed());
}

TEST_F(Shows, WhatCouldNotBeOpenedIsNotSaved) {
  click(desk.form.tool);
  machine.answers = {folder + "mine.Korvane"};
  click(desk.form.save);
  const std::string whole = bytesOf(folder + "mine.Korvane");
  machine.answers = {write("half.Korvane", "half\r\nV1.0\r\n0.5\r\n")};
  click(tool.load);
  click(desk.form.save);
  ASSERT_EQ(machine.failedSaves.size(), 1U);
  EXPECT_EQ(bytesOf(folder + "mine.Korvane"), whole);
  EXPECT_TRUE(desk.session.changed());
}

TEST_F(Shows, AnotherGridIsAChangeToo) {
  click(desk.form.tool);
  click(desk.form.configure);
  EXPECT_FALSE(desk.session.changed());
  event([this] { plugin.matrixConf.ncol.setIndex(4); });
  EXPECT_TRUE(desk.session.changed());
  machine.answers = {folder + "mine.Korvane"};
  click(desk.form.save);
  EXPECT_NE(bytesOf(folder + "mine.korvaneconf").find("\n5,12,"), std::string::npos);
  EXPECT_FALSE(desk.session.changed());
}

}  // namespace
}  // namespace korvane
