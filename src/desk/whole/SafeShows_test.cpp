// A show and its grid are two files: what a full disk, a loss of power or a grid that is saved
// alone may leave of them.

#include <filesystem>

#include "desk/project/ShowPath.h"
#include "desk/whole/TestDesk.h"

namespace korvane {
namespace {

class SafeShows : public TestDesk {
 protected:
  /// An example with painted pictures on 12 by 12.
  void saveExample(const std::string& show) {
    click(*desk.form.examples.at(0));
    machine.answers = {show};
    click(desk.form.saveAs);
    ASSERT_EQ(desk.session.path(), show);
  }
  void narrow() {
    click(desk.form.configure);
    event([this] { plugin.matrixConf.ncol.setIndex(5); });
  }
  /// What was changed is thrown away.
  void openAgain(const std::string& show) {
    click(desk.form.newShow);
    if (desk.question.visible()) click(desk.question.second);
    ASSERT_EQ(desk.session.path(), "");
    machine.boxes.clear();
    open(show);
  }

  const std::string mine = folder + "mine.Korvane";
  const std::string grid = folder + "mine.korvaneconf";
};

TEST_F(SafeShows, IfTheGridCanNotBeSavedTheShowStaysAsItWas) {
  saveExample(mine);
  const std::string before = bytesOf(mine);
  std::filesystem::remove(grid);
  std::filesystem::create_directory(grid);
  click(*desk.form.examples.at(1));
  machine.answers = {mine};
  click(desk.form.saveAs);
  ASSERT_EQ(machine.failedSaves.size(), 1U);
  EXPECT_NE(machine.failedSaves[0].reason.find(grid), std::string::npos)
      << machine.failedSaves[0].reason;
  EXPECT_EQ(machine.failedSaves[0].whole, mine);
  EXPECT_EQ(bytesOf(mine), before);
  EXPECT_NE(desk.session.path(), mine);
}

TEST_F(SafeShows, AShowWhoseGridWasSavedSmallerAloneOpensOnTheGridBefore) {
  saveExample(mine);
  narrow();
  machine.answers = {grid};
  click(plugin.matrixConf.save);
  const std::string smaller = bytesOf(grid);
  openAgain(mine);
  EXPECT_EQ(desk.session.path(), mine);
  EXPECT_EQ(v.matrixCols, 12);
  ASSERT_EQ(machine.boxes.size(), 1U) << testing::PrintToString(machine.boxes);
  EXPECT_TRUE(machine.boxes[0].starts_with("mine can't be read on its grid: ")) << machine.boxes[0];
  EXPECT_TRUE(machine.boxes[0].ends_with(
      ". It is open on the grid before, from mine.korvaneconf.bak. Save it to keep that."))
      << machine.boxes[0];
  EXPECT_TRUE(desk.session.changed());
  EXPECT_EQ(bytesOf(grid), smaller) << "nothing is written before the person says so";
  click(desk.form.save);
  openAgain(mine);
  EXPECT_EQ(v.matrixCols, 12);
  EXPECT_TRUE(machine.boxes.empty());
  EXPECT_FALSE(desk.session.changed());
}

// The tool's own button saves the show, and its grid when its box was answered.
TEST_F(SafeShows, AShowThatWasSavedWithoutItsGridOpensAsItWasBefore) {
  click(desk.form.newShow);
  narrow();
  machine.answers = {mine};
  click(desk.form.saveAs);
  const std::string small = bytesOf(grid);
  saveExample(mine);
  write("mine.korvaneconf", small);
  openAgain(mine);
  EXPECT_EQ(desk.session.path(), mine);
  EXPECT_EQ(v.matrixCols, 6);
  ASSERT_EQ(machine.boxes.size(), 1U) << testing::PrintToString(machine.boxes);
  EXPECT_TRUE(machine.boxes[0].starts_with("mine can't be read: ")) << machine.boxes[0];
  EXPECT_TRUE(desk.session.changed());
  click(desk.form.save);
  openAgain(mine);
  EXPECT_TRUE(machine.boxes.empty());
}

// What stands on the disk at that moment is opened.
TEST_F(SafeShows, AShowThatTheToolSavesOpensThoughThePowerFailsBeforeItsGridIsSaved) {
  click(desk.form.newShow);
  narrow();
  machine.answers = {mine};
  click(desk.form.saveAs);
  click(*desk.form.examples.at(0));
  const std::string saved = desk.session.showText();
  const std::string cut = folder + "cut/";
  tool.onSaved = [&, own = tool.onSaved] {
    std::filesystem::create_directory(cut);
    for (const char* file : {"mine.Korvane", "mine.korvaneconf", "mine.korvaneconf.new"})
      std::filesystem::copy(folder + file, cut + file);
    own();
  };
  machine.answers = {mine};
  click(tool.save);
  EXPECT_FALSE(std::filesystem::exists(grid + ".new")) << "the save is done";
  openAgain(mine);
  EXPECT_TRUE(machine.boxes.empty());
  openAgain(cut + "mine.Korvane");
  EXPECT_EQ(desk.session.path(), cut + "mine.Korvane");
  EXPECT_EQ(v.matrixCols, 12);
  EXPECT_EQ(desk.session.showText().substr(desk.session.showText().find('\n')),
            saved.substr(saved.find('\n')));
  ASSERT_EQ(machine.boxes.size(), 1U) << testing::PrintToString(machine.boxes);
  EXPECT_TRUE(machine.boxes[0].ends_with(
      ". It is open on the grid that was to be saved next, from mine.korvaneconf.new. Save it to "
      "keep that."))
      << machine.boxes[0];
  click(desk.form.save);
  EXPECT_FALSE(std::filesystem::exists(cut + "mine.korvaneconf.new"));
  openAgain(cut + "mine.Korvane");
  EXPECT_TRUE(machine.boxes.empty());
}

TEST_F(SafeShows, AShowOfNoFileIsNotLookedForInItsBackup) {
  saveExample(mine);
  click(desk.form.save);
  std::filesystem::rename(mine, mine + ".bak");
  openAgain(mine);
  EXPECT_EQ(desk.session.path(), "");
  ASSERT_EQ(machine.boxes.size(), 1U) << testing::PrintToString(machine.boxes);
  EXPECT_TRUE(machine.boxes[0].starts_with("mine can't be opened. ")) << machine.boxes[0];
}

}  // namespace
}  // namespace korvane
