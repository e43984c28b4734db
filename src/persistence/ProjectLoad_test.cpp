#include "output/MatrixCode.h"
#include "persistence/ProjectFile.h"
#include "testing/TestProject.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

class ProjectLoad : public TestProject {};

TEST_F(ProjectLoad, ReadsEitherLineEnd) {
  pickAll();
  std::string bytes = save();
  std::erase(bytes, '\r');
  EXPECT_EQ(load(bytes), 0);
  EXPECT_EQ(v.efxX[0].name, "new fade");
}

TEST_F(ProjectLoad, ReadsNumbersUnderTheLocaleInForce) {
  platform.format = {',', '.'};
  EXPECT_EQ(load(project({.master = "0,25"})), 0);
  EXPECT_EQ(v.masterValue, 0.25);
  platform.format = {'.', ','};
  // Nothing tells one separator from the other: here the comma separates thousands.
  EXPECT_EQ(load(project({.master = "0,25"})), 0);
  EXPECT_EQ(v.masterValue, 1.0);
}

TEST_F(ProjectLoad, MovesTheMasterAndTheMap) {
  EXPECT_EQ(load(project({.master = "0.75"})), 0);
  EXPECT_EQ(master.faderM.value(), 50);
  EXPECT_EQ(v.fadeMap.at(1, 0), 1.0F);
  EXPECT_EQ(load(project({.master = "0.5"})), 0);
  EXPECT_EQ(master.faderM.value(), 0);
  EXPECT_EQ(v.fadeMap.at(1, 0), 0.0F);
}

// The slider's own handler reckons the master position from the slider's whole numbers.
TEST_F(ProjectLoad, RoundsTheMasterToTheSliderTiesToEven) {
  EXPECT_EQ(load(project({.master = "0.0625"})), 0);  // slider -87.5
  EXPECT_EQ(master.faderM.value(), -88);
  EXPECT_EQ(v.masterValue, 0.06);
  EXPECT_EQ(load(project({.master = "0.1875"})), 0);  // slider -62.5
  EXPECT_EQ(master.faderM.value(), -62);
}

TEST_F(ProjectLoad, RefusesAnotherVersionAndTouchesNothing) {
  setEffect(v.A, kFire, "running", [](Effect&) {});
  v.A.timer1.enable();
  EXPECT_EQ(load("p\r\nV2.0\r\n"), 0);
  EXPECT_EQ(takeBoxes(), Texts{"falsche Matrix-Version V2.0"});
  EXPECT_EQ(v.efxA[0].name, "running");
  EXPECT_TRUE(v.A.timer1.enabled());
  EXPECT_EQ(plugin.matrixForm.caption(), "Korvane");
}

TEST_F(ProjectLoad, AVersionLineWithATrailingBlankIsAWrongVersion) {
  EXPECT_EQ(load(project({.version = "V1.0 "})), 0);
  EXPECT_EQ(takeBoxes(), Texts{"falsche Matrix-Version V1.0 "});
}

TEST_F(ProjectLoad, ACancelledDialogIsAFailureHere) {
  platform.answers = {std::nullopt};
  EXPECT_FALSE(click(plugin.matrixForm.load));
  EXPECT_EQ(takeFailure(), kCancelled);
}

TEST_F(ProjectLoad, AMissingFileIsAFailure) {
  platform.answers = {folder + "/none.Korvane"};
  EXPECT_FALSE(click(plugin.matrixForm.load));
  EXPECT_EQ(takeFailure(), kFileNotFound);
}

TEST_F(ProjectLoad, ShowsTheMessageAndTheTitle) {
  EXPECT_EQ(load(project({})), 0);
  EXPECT_EQ(takeBoxes(), Texts{"Matrix Project loaded"});
  EXPECT_EQ(plugin.matrixForm.caption(), "Korvane - in.Korvane");
}

TEST_F(ProjectLoad, AMissingSelectionLineLosesThePlace) {
  v.B.efxList.unselectAll();
  master.efxXList.unselectAll();
  v.A.efxList.unselectAll();
  const std::string bytes = save();
  EXPECT_NE(bytes.find("1\r\n1\r\n1\r\nA0\r\n"), std::string::npos);
  EXPECT_EQ(load(bytes), kTypeMismatch);
}

TEST_F(ProjectLoad, AnUneditedEntryIsBlackAndNamedNewEffect) {
  v.efxA[0].name = "red one";
  pickAll();
  EXPECT_EQ(load(save()), 0);
  EXPECT_EQ(v.efxA[0].name, "new effect");
  EXPECT_EQ(v.efxA[0].color1, 0);
  EXPECT_FALSE(v.efxAEdited[0]);
  EXPECT_EQ(v.frameA.at(0, 0), (Rgb{0, 0, 0}));
}

TEST_F(ProjectLoad, AnEmptyEffectNameBecomesNewEffectAnEmptyFadeNameStays) {
  EXPECT_EQ(load(project({.a = {{"True", "0", "", "255"}}, .x = {{"0", "", "3", "0"}}})), 0);
  EXPECT_EQ(texts(v.A.efxList), Texts{"new effect"});
  EXPECT_EQ(v.efxA[0].name, "new effect");
  EXPECT_EQ(texts(master.efxXList), Texts{""});
}

TEST_F(ProjectLoad, TakesTheFlagInAnyCaseOrAsANumber) {
  for (const auto& [text, edited] : std::vector<std::pair<std::string, bool>>{{"TRUE", true},
                                                                              {"true", true},
                                                                              {"-1", true},
                                                                              {"5", true},
                                                                              {"0", false},
                                                                              {"fAlSe", false}}) {
    const Texts block = edited ? Texts{text, "0", "n", "255"} : Texts{text};
    EXPECT_EQ(load(project({.a = {block}})), 0) << text;
    EXPECT_EQ(v.efxAEdited[0], edited) << text;
  }
  EXPECT_EQ(load(project({.a = {{"yes"}}})), kTypeMismatch);
  EXPECT_EQ(load(project({.a = {{""}}})), kTypeMismatch);
}

TEST_F(ProjectLoad, APictureFromASmallerGridLeavesTheOtherCellsBlack) {
  EXPECT_EQ(load(project({.a = {{"True", "2", "p", "1,1", "255"}}})), 0);
  EXPECT_EQ(v.efxA[0].paintPixels.at(0, 0), 255);
  EXPECT_EQ(v.efxA[0].paintPixels.at(1, 0), 0);
  EXPECT_EQ(v.frameA.at(0, 0), (Rgb{255, 0, 0}));
}

// On the 2 x 1 grid two of the nine lines are read. The others pass for the blocks that follow.
TEST_F(ProjectLoad, APictureFromALargerGridLosesItsPlace) {
  const Texts picture = {"1", "2", "3", "0", "5", "6", "7", "8", "9"};
  Texts block = {"True", "2", "p", "3,3"};
  block.insert(block.end(), picture.begin(), picture.end());
  EXPECT_EQ(load(project({.a = {block}})), 0);
  EXPECT_EQ(v.efxA[0].paintPixels.at(1, 0), 2);
  EXPECT_FALSE(v.efxBEdited[0]);  // the "0"
  EXPECT_EQ(v.efxX[0].type, 6);
  EXPECT_EQ(v.efxX[0].name, "7");
  EXPECT_EQ(v.efxX[0].color, 9);
}

TEST_F(ProjectLoad, TheSizeOfAPictureNeedsTwoNumbersOfSixteenBits) {
  EXPECT_EQ(load(project({.a = {{"True", "2", "p", "2"}}})), kSubscript);
  EXPECT_EQ(load(project({.a = {{"True", "2", "p", "2,x"}}})), kTypeMismatch);
  EXPECT_EQ(load(project({.a = {{"True", "2", "p", "40000,1"}}})), kOverflow);
}

TEST_F(ProjectLoad, AColorChangeWithoutColorsReadsBackAsAnEmptyList) {
  const Texts block = {"True", "4", "cc", "0", "5", "0", "50", "90", "2"};
  EXPECT_EQ(load(project({.a = {block}})), 0);
  EXPECT_EQ(v.efxA[0].colorCount, 0);
  EXPECT_EQ(v.efxA[0].fadeMode, 5);
  EXPECT_EQ(v.efxA[0].direction, 2);
  EXPECT_EQ(between(saveLines(), "A0", "B0"), block);
}

TEST_F(ProjectLoad, AnImageWithoutPicturesHasNoFileLines) {
  const Texts block = {"True", "3", "im", "0", "1", "4", "60", "0", "77"};
  EXPECT_EQ(load(project({.a = {block}})), 0);
  EXPECT_EQ(v.efxA[0].amount, 77);
  EXPECT_TRUE(v.efxA[0].imageNames.empty());
  EXPECT_EQ(between(saveLines(), "A0", "B0"), block);
}

TEST_F(ProjectLoad, ListsHaveOneSlotMoreThanItems) {
  EXPECT_EQ(load(project({.a = {{"True", "4", "cc", "1", "255", "2", "0", "0", "50", "90", "0"}}})),
            0);
  EXPECT_EQ(v.efxA[0].colors, (std::vector<Color>{255, 0}));
  EXPECT_EQ(v.efxA[0].itemTimes, (std::vector<double>{2, 0}));
}

TEST_F(ProjectLoad, ANegativeCountIsASubscriptFailureOfColorsAndNoneOfPictures) {
  EXPECT_EQ(load(project({.a = {{"True", "4", "cc", "-1"}}})), kSubscript);
  EXPECT_EQ(load(project({.a = {{"True", "5", "cs", "-1"}}})), kSubscript);
  EXPECT_EQ(load(project({.a = {{"True", "3", "im", "0", "1", "4", "60", "-3", "77"}}})), 0);
  EXPECT_EQ(v.efxA[0].imageCount, -3);
}

TEST_F(ProjectLoad, TheFadeModeOfEachColorChangeIsKeptForTheEndOfATransition) {
  const auto change = [](const char* mode) {
    return Texts{"True", "4", "cc", "0", mode, "0", "50", "90", "0"};
  };
  EXPECT_EQ(load(project({.a = {change("3"), change("6")}, .b = {change("7")}})), 0);
  EXPECT_EQ(v.A.savedFadeMode, 6);
  EXPECT_EQ(v.B.savedFadeMode, 7);
}

TEST_F(ProjectLoad, AppliesNoLimitToTheRows) {
  EXPECT_EQ(load(project({.a = std::vector<Texts>(300, {"False"})})), 0);
  EXPECT_EQ(v.A.efxList.count(), 300);
  EXPECT_EQ(v.efxACount, 300);
}

TEST_F(ProjectLoad, FirstLinesOfTheFileAndOfBlocksAreNotRead) {
  std::string bytes = project({});
  bytes.replace(bytes.find("A0"), 2, "anything");
  bytes.replace(0, bytes.find("\r\n"), "whatever.Korvane");
  EXPECT_EQ(load(bytes), 0);
}

TEST_F(ProjectLoad, CompactsTheSlotsButKeepsTheDeletedCounters) {
  click(plugin.matrixForm.panelA.add);
  pick(v.A.efxList, 0);
  click(plugin.matrixForm.panelA.remove);
  EXPECT_EQ(slots(v.A.efxList), Texts{"1"});
  pickAll();
  EXPECT_EQ(load(save()), 0);
  EXPECT_EQ(slots(v.A.efxList), Texts{"0"});
  EXPECT_EQ(v.efxADeleted, 1);
}

TEST_F(ProjectLoad, SelectsTheStoredRows) {
  EXPECT_EQ(load(project({.selA = "1",
                          .selB = "2",
                          .selX = "1",
                          .a = std::vector<Texts>(3, {"False"}),
                          .b = std::vector<Texts>(3, {"False"}),
                          .x = {{"0", "first", "3", "0"}, {"2", "second", "4", "65280"}}})),
            0);
  EXPECT_EQ(v.A.efxList.selected(), 1);
  EXPECT_EQ(v.B.efxList.selected(), 2);
  EXPECT_EQ(master.efxXList.selected(), 1);
  EXPECT_EQ(v.selA, 1);
  EXPECT_EQ(v.selB, 2);
  EXPECT_EQ(v.selX, 1);
}

TEST_F(ProjectLoad, ShowsTheSelectedFade) {
  platform.format = {',', '.'};
  EXPECT_EQ(load(project({.master = "0,5",
                          .selX = "1",
                          .x = {{"0", "first", "3", "0"}, {"2", "second", "12,5", "65280"}}})),
            0);
  EXPECT_EQ(master.fadeType.index(), kColorFade);
  EXPECT_EQ(master.fadeTimeText.text(), "12,50");
  EXPECT_EQ(master.fadeName.text(), "second");
  EXPECT_EQ(master.MFadeColor.backColor(), 65280);
  EXPECT_EQ(v.fadeTypeNow, kColorFade);
  EXPECT_EQ(v.fadeTime, 12.5);
  EXPECT_EQ(texts(master.efxXList), (Texts{"first", "second"}));
}

TEST_F(ProjectLoad, StartsAnEditedSelectionAndClearsTheDeckOfAnother) {
  v.frameB.fill({9, 9, 9});
  EXPECT_EQ(load(project({.a = {{"True", "0", "green", "65280"}}})), 0);
  EXPECT_EQ(v.frameA.at(1, 0), (Rgb{0, 255, 0}));
  EXPECT_EQ(v.frameB.at(1, 0), (Rgb{0, 0, 0}));
}

TEST_F(ProjectLoad, StopsTheDecksAndTheFadeButNotItsRefresh) {
  for (Timer* timer : engine.timers.timers()) timer->enable();
  EXPECT_EQ(load("p\r\nV1.0\r\n"), kPastEndOfFile);
  for (const Timer* timer : {&v.A.timer1, &v.A.timer2, &v.B.timer1, &v.B.timer2, &master.timerM})
    EXPECT_FALSE(timer->enabled()) << timer->name();
  EXPECT_TRUE(master.timerM2.enabled());
}

TEST_F(ProjectLoad, AShortFileLeavesTheListsAsFarAsTheyHadCome) {
  std::string bytes = project({.a = {{"True", "0", "green", "65280"}, {"False"}}});
  bytes.resize(bytes.find("B0"));
  EXPECT_EQ(load(bytes), kPastEndOfFile);
  EXPECT_EQ(texts(v.A.efxList), (Texts{"green", "new effect"}));
  EXPECT_EQ(v.B.efxList.count(), 0);
  EXPECT_EQ(master.efxXList.count(), 0);
}

TEST_F(ProjectLoad, AFailureSaysWhichLineOfWhichFile) {
  EXPECT_EQ(load(project({.master = "half"})), kTypeMismatch);
  EXPECT_EQ(lastFailure, "Type mismatch: " + folder + "/in.Korvane, line 3: 'half'");
}

TEST_F(ProjectLoad, ASelectionOutsideTheListIsASubscriptFailure) {
  EXPECT_EQ(load(project({.selA = "1"})), kSubscript);
  EXPECT_EQ(load(project({.selB = "-1"})), kSubscript);
  EXPECT_EQ(load(project({.selX = "1"})), kSubscript);
}

TEST_F(ProjectLoad, ACountBeyondSixteenBitsIsAnOverflow) {
  std::string bytes = project({});
  bytes.replace(bytes.find("0.5\r\n1"), 6, "0.5\r\n2000000000");
  EXPECT_EQ(load(bytes), kOverflow);
  EXPECT_EQ(load(project({.a = {{"True", "4", "cc", "2000000000"}}})), kOverflow);
  EXPECT_EQ(load(project({.a = {{"True", "3", "im", "0", "0", "0", "0", "2000000000"}}})),
            kOverflow);
}

TEST_F(ProjectLoad, ANegativeCountOfRowsIsASubscriptFailure) {
  std::string bytes = project({});
  bytes.replace(bytes.find("0.5\r\n1"), 6, "0.5\r\n-1");
  EXPECT_EQ(load(bytes), kSubscript);
}

TEST_F(ProjectLoad, ManyPicturesWithoutLinesDoNotTakeTheMemory) {
  resize(50, 50);
  EXPECT_EQ(load(project({.a = std::vector<Texts>(3000, {"True", "2", "p", "0,0"})})),
            kOutOfMemory);
  EXPECT_GT(v.A.efxList.count(), 1500);
}

// The slider stands at its end; black on both decks is black at any position.
TEST_F(ProjectLoad, AMasterPositionThatNoSliderHasFailsOnlyWhereItLeavesTheBytes) {
  move(master.faderM, 100);
  EXPECT_EQ(load(project({.master = "1.5"})), 0);
  EXPECT_EQ(v.masterValue, 1.5);
  v.A.frame.fill({255, 255, 255});
  EXPECT_FALSE(event([&] { mixFrame(engine, v.masterValue); }));
  EXPECT_EQ(takeFailure(), kOverflow);
  EXPECT_EQ(load(project({.master = "1e300"})), kOverflow);
}

TEST_F(ProjectLoad, AMissingPictureIsNoFailureAndItsPathStays) {
  const Texts block = {"True", "3", "im",    "0", "0",           "0",
                       "0",    "1", "a.bmp", "5", "/none/a.bmp", "0"};
  EXPECT_EQ(load(project({.a = {block}})), 0);
  EXPECT_EQ(v.efxA[0].imageFiles[0], "/none/a.bmp");
  EXPECT_EQ(between(saveLines(), "A0", "B0"), block);
}

// A show and its pictures are handed on as one folder.
TEST_F(ProjectLoad, PicturesOfARelativePathPlayFromTheShowsFolderAndKeepTheirPath) {
  const Texts block = {"True",  "3", "im",           "0", "0", "0", "0", "1",
                       "a.bmp", "5", "slides/a.bmp", "0"};
  std::filesystem::path beside = std::filesystem::path(folder) / "slides" / "a.bmp";
  std::filesystem::create_directory(beside.parent_path());
  writeFile(beside.string(), "BM");
  Raster green(1, 1);
  green.fill(rgb(0, 255, 0));
  platform.pictures[beside.make_preferred().string()] = green;
  EXPECT_EQ(load(project({.a = {block}})), 0);
  EXPECT_EQ(takeBoxes(), Texts{"Matrix Project loaded"});
  EXPECT_EQ(v.frameA.at(0, 0), (Rgb{0, 255, 0}));
  EXPECT_EQ(v.efxA[0].imageFiles[0], "slides/a.bmp");
  EXPECT_EQ(between(saveLines(), "A0", "B0"), block);
}

TEST_F(ProjectLoad, DoesNotEndAFadesRefreshNorTheFlagOfARunningFade) {
  click(master.AutoFadeB);
  EXPECT_EQ(load(project({})), 0);
  EXPECT_FALSE(master.timerM.enabled());
  EXPECT_TRUE(master.timerM2.enabled());
}

}  // namespace
}  // namespace korvane
