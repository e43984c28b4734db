#include "playback/FadeList.h"

#include "testing/TestPlugin.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

class FadeLists : public TestPlugin {
 protected:
  void SetUp() override { ASSERT_TRUE(open()); }

  void selectFade(std::int16_t fadeType, double seconds) {
    v.efxX[0] = {fadeType, "fade", seconds, rgb(10, 20, 30)};
    pick(master.efxXList, 0);
  }
  /// Number of output passes since the last time.
  std::int64_t passes() {
    const Texts calls = takeCalls();
    return std::count(calls.begin(), calls.end(), "UserInteraction");
  }
};

TEST_F(FadeLists, HaveTheSameLimitWithTheSameWords) {
  for (int i = 0; i < 256; ++i) click(plugin.matrixForm.addX);
  EXPECT_EQ(v.efxXCount, 256);
  EXPECT_EQ(takeBoxes(), Texts{"more then 256 effects are not allowed !"});
}

TEST_F(FadeLists, RemovingShowsTheNewlySelectedFade) {
  click(plugin.matrixForm.addX);
  v.efxX[0] = {kAdd, "first", 5, rgb(1, 2, 3)};
  pick(master.efxXList, 1);
  type(master.fadeName, "second");
  click(plugin.matrixForm.removeX);
  EXPECT_EQ(v.selX, 0);
  EXPECT_EQ(master.fadeType.index(), kAdd);
  EXPECT_EQ(master.fadeName.text(), "first");
  EXPECT_EQ(master.fadeTimeText.text(), "5.00");
  EXPECT_EQ(master.MFadeColor.backColor(), rgb(1, 2, 3));
  EXPECT_EQ(v.fadeTime, 5);
  EXPECT_EQ(v.efxXCount, 1);
  EXPECT_EQ(v.efxXDeleted, 1);
}

TEST_F(FadeLists, MoveRowsWithoutTheirRecords) {
  click(plugin.matrixForm.addX);
  pick(master.efxXList, 1);
  click(plugin.matrixForm.upX);
  EXPECT_EQ(slots(master.efxXList), (Texts{"1", "0"}));
  EXPECT_EQ(v.selX, 1);
}

TEST_F(FadeLists, SelectingAFadeMixesForItsTypeAndOnceMore) {
  plugin.matrixForm.active.setValue(1);
  v.efxX[0].type = kAdd;
  takeCalls();
  pick(master.efxXList, 0);
  EXPECT_EQ(passes(), 3);  // the type list changes, its handler is run, the list mixes
  pick(master.efxXList, 0);
  EXPECT_EQ(passes(), 2);
}

TEST_F(FadeLists, ChoosingATypeSetsTheMapByThePosition) {
  move(master.faderM, 20);
  v.fadeMap.fill(0.25F);
  choose(master.fadeType, kRandom);
  EXPECT_EQ(v.fadeMap.at(3, 3), 1.0F);
  move(master.faderM, 0);
  v.fadeMap.fill(0.25F);
  choose(master.fadeType, kFlowDown);
  EXPECT_EQ(v.fadeMap.at(3, 3), 0.0F);
}

TEST_F(FadeLists, OnlyColorFadeShowsItsColour) {
  selectFade(kColorFade, 3);
  EXPECT_TRUE(master.MFadeColor.look().visible);
  EXPECT_TRUE(master.FadeColorText.look().visible);
  EXPECT_EQ(master.MFadeColor.backColor(), rgb(10, 20, 30));
  choose(master.fadeType, kCrossFade);
  EXPECT_FALSE(master.MFadeColor.look().visible);
  EXPECT_EQ(master.MFadeColor.backColor(), rgb(0, 0, 0));
}

TEST_F(FadeLists, TheColourOfAColorFadeIsPickedInTheMixer) {
  selectFade(kColorFade, 3);
  event([&] { master.MFadeColor.click(); });
  EXPECT_EQ(v.pickedColorBefore, rgb(10, 20, 30));
  EXPECT_EQ(plugin.dialogs.mixer.Sgreen.value(), 20);
  move(plugin.dialogs.mixer.Sred, 200);
  click(plugin.dialogs.mixer.Bok);
  EXPECT_EQ(master.MFadeColor.backColor(), rgb(200, 20, 30));
  EXPECT_EQ(v.efxX[0].color, rgb(200, 20, 30));
}

class FadeTime : public FadeLists {};

TEST_F(FadeTime, TakesZeroToEightHundredAndRewritesTheBox) {
  for (const auto& [typed, shown] : {std::pair("0", "0.00"), std::pair("800", "800.00"),
                                     std::pair("0.2", "0.20"), std::pair(" 4 ", "4.00")}) {
    type(master.fadeTimeText, typed);
    EXPECT_EQ(master.fadeTimeText.text(), shown);
    EXPECT_EQ(v.efxX[0].time, v.fadeTime);
  }
  EXPECT_EQ(v.fadeTime, 4);
  EXPECT_EQ(takeBoxes(), Texts{});
}

TEST_F(FadeTime, ATimeOfTwoTenthsPassesWithoutAWord) {
  type(master.fadeTimeText, "0.2");
  EXPECT_EQ(v.fadeTime, 0.2);
  EXPECT_EQ(takeBoxes(), Texts{});
}

TEST_F(FadeTime, KeepsWhatTheRewrittenBoxShows) {
  type(master.fadeTimeText, "0.126");
  EXPECT_EQ(master.fadeTimeText.text(), "0.13");
  EXPECT_EQ(v.fadeTime, 0.13);
  EXPECT_EQ(v.efxX[0].time, 0.13);
}

TEST_F(FadeTime, RefusesWhatIsNoNumber) {
  type(master.fadeTimeText, "soon");
  EXPECT_EQ(takeBoxes(), Texts{"Fade time must be numeric"});
  EXPECT_EQ(master.fadeTimeText.text(), "3.00");
  EXPECT_EQ(v.fadeTime, 3);
}

TEST_F(FadeTime, RefusesWhatIsOutsideItsRange) {
  for (const char* typed : {"801", "-1", "1e9"}) {
    type(master.fadeTimeText, "5");
    type(master.fadeTimeText, typed);
    EXPECT_EQ(takeBoxes(), Texts{"Fade time must be between 0.5 and 800 seconds"});
    EXPECT_EQ(master.fadeTimeText.text(), "3.00");
    EXPECT_EQ(v.efxX[0].time, 3);
  }
}

TEST_F(FadeTime, UsesTheLocalesSeparators) {
  platform.format = {',', '.'};
  type(master.fadeTimeText, "2,5");
  EXPECT_EQ(master.fadeTimeText.text(), "2,50");
  EXPECT_EQ(v.fadeTime, 2.5);
}

TEST_F(FadeLists, TheNameGoesToTheRecordAndTheRow) {
  type(master.fadeName, "slow");
  EXPECT_EQ(v.efxX[0].name, "slow");
  EXPECT_EQ(texts(master.efxXList), Texts{"slow"});
}

}  // namespace
}  // namespace korvane
