#include "generators/image/MxImageList.h"

#include "generators/image/MxImageForm.h"
#include "testing/ImageTest.h"

namespace korvane {
namespace {

using Boxes = std::vector<std::string>;

class ImageList : public ImageTest {
 protected:
  void SetUp() override {
    openWithGrid(2, 1);
    list({picture("red.bmp", {"RR"}), picture("green.gif", {"GG"}), picture("blue.ico", {"BB"})},
         {1, 2.5, 30});
    ASSERT_TRUE(start());
    openList();
  }
  void openList() {
    ASSERT_TRUE(click(panel.edit));
    ASSERT_TRUE(click(plugin.window<MxImageForm>().BImage));
  }
  void answer(const std::string& path) { platform.answers.emplace_back(path); }
  bool clickCell(int row, int col) {
    return event([&] { myList.click(row, col); });
  }
  std::string edited(int row, const std::string& typed) {
    event([&] { EXPECT_TRUE(myList.beginEdit(row, 1)); });
    event([&] { myList.endEdit(typed); });
    return myList.cell(row, 1);
  }
  Boxes column(int col) const {
    Boxes all;
    for (int row = 0; row < myList.count(); ++row) all.push_back(myList.cell(row, col));
    return all;
  }
  std::string at(const std::string& name) const { return folder + "/" + name; }

  MxImageList& window = plugin.window<MxImageList>();
  ListView& myList = window.myImageList;
};
KORVANE_BOTH_DECKS(ImageList);

TEST_P(ImageList, OpensWithTheRecordsPictures) {
  EXPECT_TRUE(window.visible());
  EXPECT_FALSE(window.modal());
  EXPECT_EQ(window.caption(), "Image List");
  ASSERT_EQ(myList.columns().size(), 3U);
  EXPECT_EQ(myList.columns()[0].title, "File Name");
  EXPECT_EQ(myList.columns()[1].title, "Duration (s)");
  EXPECT_EQ(myList.columns()[2].title, "Path");
  EXPECT_EQ(column(0), (Boxes{"red.bmp", "green.gif", "blue.ico"}));
  EXPECT_EQ(column(1), (Boxes{"1", "2.5", "30"}));
  EXPECT_EQ(column(2), (Boxes{at("red.bmp"), at("green.gif"), at("blue.ico")}));
}

TEST_P(ImageList, ShowsTimesInTheLocalesForm) {
  platform.format = {',', '.'};
  click(plugin.window<MxImageForm>().BImage);
  EXPECT_EQ(column(1), (Boxes{"1", "2,5", "30"}));
}

TEST_P(ImageList, AClickOnAnEntryShowsItOnTheDeck) {
  ASSERT_TRUE(clickCell(1, 0));
  expectPicture(deck.frame, {"GG"});
  ASSERT_TRUE(clickCell(2, 2));
  expectPicture(deck.frame, {"BB"});
}

TEST_P(ImageList, AClickOnAMissingFileSaysSo) {
  std::filesystem::remove(at("green.gif"));
  ASSERT_TRUE(clickCell(1, 0));
  EXPECT_EQ(takeBoxes(), Boxes{"File not found: " + at("green.gif")});
  expectPicture(deck.frame, {"RR"});
}

TEST_P(ImageList, AClickOnADurationOpensItsEditor) {
  ASSERT_TRUE(clickCell(1, 1));
  EXPECT_TRUE(myList.editing());
  EXPECT_EQ(myList.editRow(), 1);
  EXPECT_EQ(myList.editCol(), 1);
  expectPicture(deck.frame, {"RR"});
}

TEST_P(ImageList, OnlyDurationsCanBeEdited) {
  EXPECT_FALSE(myList.beginEdit(0, 0));
  EXPECT_FALSE(myList.beginEdit(0, 2));
}

TEST_P(ImageList, TypedDurationsAreValidated) {
  EXPECT_EQ(edited(0, "4"), "4");
  EXPECT_EQ(edited(0, "4.50"), "4.5");
  EXPECT_EQ(edited(0, "4,50"), "4.5") << "a comma and a point are both decimal separators";
  EXPECT_EQ(edited(0, "0"), "0.1");
  EXPECT_EQ(edited(0, "-3"), "0.1");
  EXPECT_EQ(edited(0, "7"), "7");
  EXPECT_EQ(edited(0, "soon"), "7") << "the old text comes back";
  EXPECT_EQ(edited(0, ""), "10");
}

TEST_P(ImageList, AddedFilesStayFor30Seconds) {
  answer(at("pictures/new one.jpg"));
  ASSERT_TRUE(click(window.addImage));
  ASSERT_EQ(platform.questions.size(), 1U);
  const FileQuestion& question = platform.questions[0];
  EXPECT_EQ(question.purpose, FileQuestion::Purpose::Open);
  EXPECT_EQ(question.title, "Add Image");
  EXPECT_EQ(question.filter, "Bilder bmp,jpg,gif,ico|*.bmp;*.jpg;*.gif;*.ico");
  EXPECT_EQ(window.addImage.look().toolTip, "add file");
  EXPECT_EQ(myList.cell(3, 0), "new one.jpg");
  EXPECT_EQ(myList.cell(3, 1), "30");
  EXPECT_EQ(myList.cell(3, 2), at("pictures/new one.jpg"));
  EXPECT_EQ(deck.effect().imageCount, 3) << "the record changes with OK alone";
}

TEST_P(ImageList, ACancelledFileDialogAddsNothing) {
  platform.answers.emplace_back(std::nullopt);
  EXPECT_FALSE(click(window.addImage));
  EXPECT_EQ(takeFailure(), kCancelled);
  EXPECT_EQ(myList.count(), 3);
}

TEST_P(ImageList, RemovesTheSelectedEntryAlone) {
  click(window.removeImage);
  EXPECT_EQ(myList.count(), 3) << "nothing is selected yet";
  clickCell(1, 0);
  click(window.removeImage);
  EXPECT_EQ(column(0), (Boxes{"red.bmp", "blue.ico"}));
}

TEST_P(ImageList, TheSelectedEntryMovesWithItsDurationAndPath) {
  EXPECT_EQ(window.upImage.look().toolTip, "move up");
  EXPECT_EQ(window.downImage.look().toolTip, "move down");
  click(window.downImage);
  EXPECT_EQ(column(0), (Boxes{"red.bmp", "green.gif", "blue.ico"})) << "nothing is selected yet";
  clickCell(0, 0);
  click(window.upImage);
  EXPECT_EQ(column(0), (Boxes{"red.bmp", "green.gif", "blue.ico"}));
  click(window.downImage);
  click(window.downImage);
  click(window.downImage);
  EXPECT_EQ(column(0), (Boxes{"green.gif", "blue.ico", "red.bmp"}));
  EXPECT_EQ(column(1), (Boxes{"2.5", "30", "1"}));
  EXPECT_EQ(column(2), (Boxes{at("green.gif"), at("blue.ico"), at("red.bmp")}));
  EXPECT_EQ(myList.selected(), 2);
  click(window.upImage);
  EXPECT_EQ(column(0), (Boxes{"green.gif", "red.bmp", "blue.ico"}));
}

TEST_P(ImageList, OKWritesTheListAndStartsTheSequence) {
  deck.timer2.disable();
  clickCell(2, 0);
  click(window.removeImage);
  edited(0, "0.7");
  ASSERT_TRUE(click(window.OK));
  EXPECT_FALSE(window.visible());
  const Effect& effect = deck.effect();
  EXPECT_EQ(effect.imageCount, 2);
  EXPECT_EQ(effect.imageNames, (Boxes{"red.bmp", "green.gif"}));
  EXPECT_EQ(effect.imageFiles, (Boxes{at("red.bmp"), at("green.gif")}));
  EXPECT_EQ(effect.itemTimes, (std::vector<double>{0.7, 2.5}));
  EXPECT_TRUE(deck.timer2.enabled());
  EXPECT_EQ(deck.timer2.interval(), 700);
  expectPicture(deck.frame, {"BB"});
  advance(700);
  expectPicture(deck.frame, {"GG"});
}

TEST_P(ImageList, OKWithOnePictureStopsTheSequence) {
  for (int i = 0; i < 2; ++i) {
    clickCell(1, 0);
    click(window.removeImage);
  }
  ASSERT_TRUE(click(window.OK));
  EXPECT_EQ(deck.effect().imageCount, 1);
  EXPECT_FALSE(deck.timer2.enabled());
}

TEST_P(ImageList, OKWithAnEmptyListTurnsTheDeckBlack) {
  myList.clear();
  ASSERT_TRUE(click(window.OK));
  EXPECT_EQ(takeBoxes(), Boxes{"No Pictures in List. Please edit preset"});
  EXPECT_EQ(deck.effect().imageCount, 0);
  EXPECT_FALSE(deck.timer2.enabled());
  expectPicture(deck.frame, {".."});
}

TEST_P(ImageList, MorePicturesThan16BitsCountOverflowAndNothingIsLost) {
  for (int i = 0; i < 32768; ++i) myList.add("x", {"1", "x"});
  EXPECT_FALSE(click(window.OK));
  EXPECT_EQ(takeFailure(), kOverflow);
  EXPECT_EQ(deck.effect().imageCount, 3);
  EXPECT_EQ(deck.effect().imageFiles.size(), 3U);
}

TEST_P(ImageList, WritesToTheDeckUnderEditAlone) {
  clickCell(1, 0);
  click(window.OK);
  EXPECT_EQ(other.effect().imageCount, 0);
  EXPECT_FALSE(other.timer2.enabled());
}

TEST_P(ImageList, EditCommitsWhatWasAdded) {
  answer(picture("white.bmp", {"WW"}));
  click(window.addImage);
  ASSERT_TRUE(click(panel.edit));
  EXPECT_FALSE(window.visible());
  EXPECT_EQ(deck.effect().imageCount, 4);
  EXPECT_EQ(deck.effect().imageFiles.back(), at("white.bmp"));
}

TEST_P(ImageList, EditOnTheOtherDeckCommitsWhatWasAddedHere) {
  answer(picture("white.bmp", {"WW"}));
  click(window.addImage);
  ASSERT_TRUE(click((deck.isB() ? plugin.matrixForm.panelA : plugin.matrixForm.panelB).edit));
  EXPECT_FALSE(window.visible());
  EXPECT_EQ(deck.effect().imageCount, 4);
}

// The list is that of the first row; the second row has pictures of its own.
TEST_P(ImageList, EditOnAnotherRowCommitsWhatWasAddedToItsOwnRow) {
  click(panel.add);
  pick(deck.efxList, 1);
  choose(deck.type, kImage);
  list({picture("black.bmp", {".."})});
  pick(deck.efxList, 0);
  openList();
  answer(picture("white.bmp", {"WW"}));
  click(window.addImage);
  pick(deck.efxList, 1);
  ASSERT_TRUE(click(panel.edit));
  EXPECT_EQ(deck.efx[0].imageCount, 4);
  EXPECT_EQ(deck.efx[1].imageFiles, Boxes{at("black.bmp")});
  expectPicture(deck.frame, {".."});
}

// As after a show was loaded: the slot's record is another one by then.
TEST_P(ImageList, EditCommitsToNoRecordThatHasOtherPictures) {
  list({at("red.bmp")});
  answer(picture("white.bmp", {"WW"}));
  click(window.addImage);
  click(panel.add);
  pick(deck.efxList, 1);
  ASSERT_TRUE(click(panel.edit));
  EXPECT_FALSE(window.visible());
  EXPECT_EQ(deck.efx[0].imageFiles, Boxes{at("red.bmp")});
}

}  // namespace
}  // namespace korvane
