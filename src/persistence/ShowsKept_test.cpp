// No show is lost: what says that it is saved can be loaded, and holds the same.

#include <fstream>

#include "generators/colorchange/MxColorChange.h"
#include "persistence/ProjectFile.h"
#include "testing/TestProject.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

class ShowsKept : public TestProject {
 protected:
  int loadSaved() {
    platform.answers = {path};
    click(plugin.matrixForm.load);
    return takeFailure();
  }
  /// Saves, and loads what was saved: it holds the same.
  void expectKept() {
    takeBoxes();
    const std::string bytes = save();
    ASSERT_EQ(takeBoxes(), Texts{"Matrix Project saved"});
    ASSERT_EQ(loadSaved(), 0);
    EXPECT_EQ(save(), bytes);
  }
  /// Pretends that a picture was lost, so that the next saves can't be finished.
  void breakPicture() {
    setEffect(v.A, kPaint, "no picture", [](Effect&) {});
  }
  /// Every list of an effect has the slots of its count.
  static void expectListsInStep(const Effect& effect) {
    const auto colors = static_cast<std::size_t>(std::max<int>(effect.colorCount, 0));
    if (colors > 0) {
      EXPECT_GT(effect.colors.size(), colors);
      EXPECT_GT(effect.itemTimes.size(), colors);
      EXPECT_GT(effect.itemWidths.size(), colors);
    }
    const auto images = static_cast<std::size_t>(std::max<int>(effect.imageCount, 0));
    EXPECT_GE(effect.imageNames.size(), images);
    EXPECT_GE(effect.imageFiles.size(), images);
    EXPECT_GE(effect.itemTimes.size(), images);
  }
};

/// The same for both decks.
class EffectsKept : public ShowsKept, public testing::WithParamInterface<Side> {
 protected:
  void loadWith(const Texts& block) {
    const bool b = GetParam() == Side::B;
    const Texts none = {"False"};
    ASSERT_EQ(load(project({.a = {b ? none : block}, .b = {b ? block : none}})), 0);
  }
  Effect& effect() { return deck.efx.at(0); }

  Deck& deck = GetParam() == Side::A ? v.A : v.B;
  DeckPanel& panel = GetParam() == Side::A ? plugin.matrixForm.panelA : plugin.matrixForm.panelB;
  const Texts scroll = {"True", "5", "scroll", "2", "255", "2", "65280", "3", "0", "1", "100", "2"};
  const Texts change = {"True", "4",   "change", "3", "255", "0.1", "65280", "0.2",
                        "0",    "0.1", "1",      "0", "80",  "90",  "0"};
  const Texts images = {"True",  "3",   "image",       "0",     "1", "3",           "80", "2",
                        "a.bmp", "0.5", "/none/a.bmp", "b.bmp", "2", "/none/b.bmp", "40"};
};
INSTANTIATE_TEST_SUITE_P(Deck, EffectsKept, testing::Values(Side::A, Side::B), sideName);

TEST_P(EffectsKept, AColorScrollThatBecomesAColorChangeStartsAndIsSaved) {
  loadWith(scroll);
  EXPECT_TRUE(choose(deck.type, kColorChange));
  EXPECT_EQ(takeFailure(), 0);
  expectListsInStep(effect());
  expectKept();
}

TEST_P(EffectsKept, AColorChangeThatBecomesAColorScrollStartsAndIsSaved) {
  loadWith(change);
  EXPECT_TRUE(choose(deck.type, kColorScroll));
  EXPECT_EQ(takeFailure(), 0);
  EXPECT_TRUE(deck.timer1.enabled());
  expectListsInStep(effect());
  expectKept();
}

TEST_P(EffectsKept, AllListsKeepTheirSlotsWhateverAnEffectBecomes) {
  for (const Texts& block : {scroll, change, images}) {
    for (const int first : {kImage, kColorChange, kColorScroll}) {
      for (const int then : {kColorScroll, kColorChange, kImage}) {
        loadWith(block);
        choose(deck.type, first);
        click(panel.edit);
        choose(deck.type, then);
        click(panel.edit);
        takeFailure();
        expectListsInStep(effect());
        expectKept();
      }
    }
  }
}

TEST_P(EffectsKept, FewerColoursLeaveThePicturesTheirTimes) {
  loadWith(images);
  choose(deck.type, kColorChange);
  click(panel.edit);
  MxColorChange& dialog = plugin.window<MxColorChange>();
  event([&] { dialog.ColorList.add("|", {"1"}, 255); });
  event([&] { dialog.updateColorList(); });
  expectListsInStep(effect());
  choose(deck.type, kImage);
  EXPECT_EQ(takeFailure(), 0);
  expectKept();
}

TEST_P(EffectsKept, APastedListHasAllItsSlots) {
  loadWith(scroll);
  click(panel.copyMem);
  loadWith(change);
  click(panel.pasteMem);
  expectListsInStep(effect());
  choose(deck.type, kColorChange);
  EXPECT_EQ(takeFailure(), 0);
  expectKept();
}

TEST_P(EffectsKept, APastedPictureHasTheBoundsOfTheGrid) {
  choose(deck.type, kPaint);
  click(panel.copyMem);
  resize(4, 3);
  click(panel.pasteMem);
  EXPECT_EQ(takeFailure(), 0);
  EXPECT_EQ(effect().paintPixels.cols(), 4);
  EXPECT_EQ(effect().paintPixels.rows(), 3);
  expectKept();
}

TEST_P(EffectsKept, APictureInALateSlotFollowsTheGrid) {
  for (int i = 0; i < 3; ++i) click(panel.add);
  pick(deck.efxList, 3);
  choose(deck.type, kPaint);
  deck.efxEdited.at(3) = true;
  for (int i = 0; i < 3; ++i) {
    pick(deck.efxList, 0);
    click(panel.remove);
  }
  ASSERT_EQ(slots(deck.efxList), Texts{"3"});
  resize(5, 4);
  EXPECT_EQ(deck.efx.at(3).paintPixels.cols(), 5);
  pick(deck.efxList, 0);
  EXPECT_EQ(takeFailure(), 0);
  takeBoxes();
  save();
  EXPECT_EQ(takeBoxes(), Texts{"Matrix Project saved"});
}

TEST_P(EffectsKept, AKindThatAPersonChoseIsKept) {
  choose(deck.type, kFire);
  EXPECT_TRUE(deck.efxEdited.at(0));
  expectKept();
  EXPECT_EQ(effect().type, kFire);
  EXPECT_EQ(deck.type.index(), kFire);
}

TEST_P(EffectsKept, AKindThatIsChosenAgainIsKeptWithItsColour) {
  const Color color = effect().color1;
  choose(deck.type, kColor);
  expectKept();
  EXPECT_EQ(effect().color1, color);
}

TEST_P(EffectsKept, OnlyAPersonChoosesAKind) {
  click(panel.add);
  EXPECT_FALSE(deck.efxEdited.at(0));
  pick(deck.efxList, 1);
  choose(deck.type, kFire);
  pick(deck.efxList, 0);
  EXPECT_FALSE(deck.efxEdited.at(0)) << "selecting a row shows its kind";
  pick(deck.efxList, 1);
  click(panel.clear);
  EXPECT_FALSE(deck.efxEdited.at(1)) << "clearing sets it";
  choose(deck.type, kFire);
  click(panel.remove);
  EXPECT_FALSE(deck.efxEdited.at(0)) << "a removal shows the next one's";
}

TEST_F(ShowsKept, APartialFileNeverBecomesABackup) {
  save();
  v.masterValue = 0.25;
  const std::string whole = save();
  breakPicture();
  for (int failing = 0; failing < 3; ++failing) {
    const std::string partial = save();
    EXPECT_TRUE(partial.ends_with("no picture\r\n2,1\r\n"));
    EXPECT_EQ(readFile(path + ".bak"), whole) << failing;
  }
  v.A.efx.at(0).paintPixels.redim(2, 1);
  save();
  EXPECT_EQ(readFile(path + ".bak"), whole);
}

TEST_F(ShowsKept, AFailedSaveSaysWhereTheWholeVersionIs) {
  breakPicture();
  save();
  ASSERT_EQ(platform.failedSaves.size(), 1U);
  EXPECT_EQ(platform.failedSaves[0].path, path);
  EXPECT_EQ(platform.failedSaves[0].whole, "");
  EXPECT_EQ(platform.failedSaves[0].told(),
            path + " was not saved: Subscript out of range. There is no whole version of it.");
  v.A.efx.at(0).paintPixels.redim(2, 1);
  save();
  breakPicture();
  save();
  save();
  EXPECT_EQ(
      platform.failedSaves.back().told(),
      path + " was not saved: Subscript out of range. The last whole version is " + path + ".bak.");
  platform.answers = {folder + "/none/p.Korvane"};
  click(plugin.matrixForm.save);
  EXPECT_EQ(platform.failedSaves.back().path, folder + "/none/p.Korvane");
  EXPECT_EQ(platform.failedSaves.size(), 4U);
  EXPECT_EQ(takeFailure(), 0) << "the windows say nothing";
}

TEST_F(ShowsKept, ACancelledSaveIsNoFailedOne) {
  platform.answers = {std::nullopt};
  click(plugin.matrixForm.save);
  EXPECT_TRUE(platform.failedSaves.empty());
}

TEST_F(ShowsKept, AFreshShowCanBeLoaded) { expectKept(); }

TEST_F(ShowsKept, TheFirstRowOfAListIsSelectedWithoutAnEvent) {
  for (const ListView* list : {&v.A.efxList, &v.B.efxList, &master.efxXList}) {
    EXPECT_EQ(list->selected(), 0);
    EXPECT_EQ(list->current(), 0);
  }
  v.A.efxList.unselectAll();
  EXPECT_EQ(v.A.efxList.selected(), -1) << "a list without a selection can still be made";
  click(plugin.matrixForm.panelA.add);
  EXPECT_EQ(v.A.efxList.selected(), -1) << "the second row is not the first";
}

TEST_F(ShowsKept, AListThatLostItsRowsPlaysTheRowThatItGets) {
  v.efxADeleted = 3;
  v.efxXDeleted = 2;
  EXPECT_EQ(load("p\r\nV1.0\r\n0.5\r\n"), kPastEndOfFile);
  click(plugin.matrixForm.panelA.add);
  click(plugin.matrixForm.panelB.add);
  click(plugin.matrixForm.addX);
  EXPECT_EQ(v.selA, 3);
  EXPECT_EQ(v.selX, 2);
  EXPECT_EQ(v.A.efxList.selected(), 0);
  EXPECT_TRUE(choose(v.A.type, kGradient));
  EXPECT_EQ(v.efxA.at(3).type, kGradient);
  expectKept();
}

TEST_F(ShowsKept, TheCountsAfterABrokenLoadAreThoseOfTheRows) {
  const Texts color = {"True", "0", "green", "65280"};
  const std::string whole =
      project({.selA = "2", .selB = "1", .a = {color, color, color}, .b = {color, color}});
  for (std::size_t length = 0; length < whole.size(); ++length) {
    load(whole.substr(0, length));
    ASSERT_EQ(v.efxACount, v.A.efxList.count()) << length;
    ASSERT_EQ(v.efxBCount, v.B.efxList.count()) << length;
    ASSERT_EQ(v.efxXCount, master.efxXList.count()) << length;
  }
}

TEST_F(ShowsKept, WhatABrokenLoadLeftIsSavedOnlyIfItCanBeLoaded) {
  const Texts color = {"True", "0", "green", "65280"};
  std::string bytes = project({.selA = "1", .a = {color, color}});
  bytes.resize(bytes.find("B0"));
  EXPECT_EQ(load(bytes), kPastEndOfFile);
  writeFile(path, "the show of yesterday\r\n");
  EXPECT_EQ(save(), "the show of yesterday\r\n") << "two lists have no row";
  EXPECT_EQ(takeBoxes(), Texts{});
  EXPECT_EQ(platform.failedSaves.size(), 1U);
  click(plugin.matrixForm.panelB.add);
  click(plugin.matrixForm.addX);
  expectKept();
}

TEST_F(ShowsKept, ARowAddedAfterABrokenLoadIsANewOne) {
  const Texts cut = {"True", "4", "half", "2", "255", "x"};
  EXPECT_EQ(load(project({.a = {cut}})), kTypeMismatch);
  click(plugin.matrixForm.panelA.add);
  EXPECT_EQ(v.efxA.at(0).name, "new effect");
  EXPECT_EQ(v.efxA.at(0).colorCount, 0);
  EXPECT_FALSE(v.efxAEdited.at(0));
}

TEST_F(ShowsKept, ARemovalCountsThoughTheNextEffectDoesNotStart) {
  const Texts overflow = {"True",  "5",     "too wide", "2", "255", "30000",
                          "65280", "30000", "0",        "1", "100", "2"};
  const Texts color = {"True", "0", "green", "65280"};
  EXPECT_EQ(load(project({.selA = "1", .a = {overflow, color}})), 0);
  click(plugin.matrixForm.panelA.remove);
  EXPECT_EQ(takeFailure(), kOverflow);
  EXPECT_EQ(v.efxACount, 1);
  EXPECT_EQ(v.efxADeleted, 1);
  takeBoxes();
  const std::string bytes = save();
  ASSERT_EQ(takeBoxes(), Texts{"Matrix Project saved"});
  EXPECT_EQ(loadSaved(), kOverflow) << "it does not start, but it is there";
  EXPECT_EQ(v.A.efxList.count(), 1);
  EXPECT_EQ(save(), bytes);
}

TEST_F(ShowsKept, ANameOfTwoLinesIsNotSaved) {
  v.efxA.at(0).name = "two\nlines";
  v.efxAEdited.at(0) = true;
  save();
  EXPECT_EQ(takeBoxes(), Texts{});
  EXPECT_EQ(platform.failedSaves.size(), 1U);
}

TEST_F(ShowsKept, AFailedSaveOfTheGridIsToldToo) {
  platform.answers = {folder + "/none/g.korvaneconf"};
  event([&] { plugin.matrixConf.save_Click(); });
  EXPECT_EQ(takeBoxes(), Texts{});
  ASSERT_EQ(platform.failedSaves.size(), 1U);
  EXPECT_EQ(platform.failedSaves[0].path, folder + "/none/g.korvaneconf");
}

}  // namespace
}  // namespace korvane
