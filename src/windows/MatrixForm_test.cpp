#include "windows/MatrixForm.h"

#include "testing/TestPlugin.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

class MainWindow : public TestPlugin {
 protected:
  std::int64_t passes() {
    const Texts calls = takeCalls();
    return std::count(calls.begin(), calls.end(), "UserInteraction");
  }

  MatrixForm& form = plugin.matrixForm;
};

TEST_F(MainWindow, AFreshStartShowsTwelveByTwelveAndOneRowInEachList) {
  ASSERT_TRUE(open());
  EXPECT_EQ(v.matrixCols, 12);
  EXPECT_EQ(v.matrixRows, 12);
  EXPECT_EQ(texts(v.A.efxList), Texts{"new effect"});
  EXPECT_EQ(texts(v.B.efxList), Texts{"new effect"});
  EXPECT_EQ(texts(master.efxXList), Texts{"new fade"});
  EXPECT_EQ(v.frameA.at(5, 5), (Rgb{255, 0, 0}));
  EXPECT_EQ(v.frameB.at(5, 5), (Rgb{0, 0, 255}));
  EXPECT_EQ(v.frameM.at(5, 5), (Rgb{127, 0, 127}));
  EXPECT_EQ(master.picture.raster().pixel(180, 180), rgb(127, 0, 127));
}

TEST_F(MainWindow, LoadingSetsTimersListsAndMaster) {
  ASSERT_TRUE(open());
  EXPECT_EQ(master.timerM.interval(), 1000);
  EXPECT_EQ(master.timerM2.interval(), 50);
  EXPECT_EQ(v.A.timer1.interval(), 1000);
  EXPECT_EQ(master.fps.text(), "20");
  EXPECT_EQ(master.fadeType.text(), "CrossFade");
  EXPECT_EQ(master.fadeName.text(), "new fade");
  EXPECT_EQ(master.fadeTimeText.text(), "3.00");
  EXPECT_EQ(v.colorIndexA, -1);
  EXPECT_EQ(v.masterValue, 0.5);
  EXPECT_EQ(master.faderM.value(), 0);
}

TEST_F(MainWindow, EachFrameRateHasItsIntervalRoundedDown) {
  ASSERT_TRUE(open());
  const std::vector<int> intervals = {200, 100, 66, 50, 40, 33};
  for (int i = 0; i < 6; ++i) {
    choose(master.fps, i);
    EXPECT_EQ(master.timerM2.interval(), intervals[static_cast<std::size_t>(i)]);
  }
}

TEST_F(MainWindow, CheckingDMXSendsTheWholeFrameOnceAndUncheckingNothing) {
  ASSERT_TRUE(open());
  EXPECT_EQ(takeCalls(), Texts{});
  event([&] { form.active.setValue(1); });
  EXPECT_EQ(takeCalls().size(), 1U + 12 * 12 * 2);
  event([&] { form.active.setValue(0); });
  EXPECT_EQ(takeCalls(), Texts{});
  event([&] { form.active.setValue(1); });
  EXPECT_EQ(takeCalls(), Texts{"UserInteraction"});
}

TEST_F(MainWindow, ActivatingMixesOnce) {
  ASSERT_TRUE(open());
  event([&] { form.active.setValue(1); });
  event([&] { plugin.plugIn.ITharnPlugin_Configure(); });
  takeCalls();
  event([&] { engine.desktop.activate(form); });
  EXPECT_EQ(passes(), 1);
  event([&] { engine.desktop.activate(form); });
  EXPECT_EQ(passes(), 0);
}

TEST_F(MainWindow, HidingADialogActivatesTheMainWindowBelow) {
  ASSERT_TRUE(open());
  click(form.panelA.edit);
  event([&] { form.active.setValue(1); });
  takeCalls();
  click(plugin.dialogs.color.OK);
  EXPECT_EQ(passes(), 1);
}

TEST_F(MainWindow, CloseallStopsDecksAndOutputAndKeepsTheData) {
  ASSERT_TRUE(open());
  choose(v.A.type, kFire);
  event([&] { form.active.setValue(1); });
  event([&] { form.mxsim_active.setValue(1); });
  master.timerM.enable();
  master.timerM2.enable();
  click(form.panelB.edit);
  click(form.Closeall);
  EXPECT_FALSE(form.visible());
  EXPECT_FALSE(plugin.dialogs.color.visible());
  EXPECT_FALSE(v.A.timer1.enabled());
  EXPECT_FALSE(master.timerM.enabled());
  EXPECT_TRUE(master.timerM2.enabled());
  EXPECT_FALSE(form.active.checked());
  EXPECT_FALSE(form.mxsim_active.checked());
  EXPECT_FALSE(v.outputActive);
  EXPECT_FALSE(v.simActive);
}

TEST_F(MainWindow, ReopeningAfterCloseallShowsTheSamePictureAndSendsNothing) {
  ASSERT_TRUE(open());
  choose(v.A.type, kGradient);
  event([&] { form.active.setValue(1); });
  const Raster before = master.picture.raster();
  click(form.Closeall);
  takeCalls();
  ASSERT_TRUE(open());
  EXPECT_EQ(master.picture.raster(), before);
  EXPECT_EQ(takeCalls(), Texts{});
  EXPECT_EQ(v.A.efxList.count(), 1);
}

TEST_F(MainWindow, ItsFramesCloseButtonHidesItAndLetsTheShowGoOn) {
  ASSERT_TRUE(open());
  choose(v.A.type, kFire);
  event([&] { engine.desktop.close(form); });
  EXPECT_FALSE(form.visible());
  EXPECT_TRUE(v.A.timer1.enabled());
}

TEST_F(MainWindow, AskToSaveIsAlwaysYesWithoutAQuestion) {
  ASSERT_TRUE(open());
  EXPECT_TRUE(form.ITharnTool_AskToSaveProjectData());
  EXPECT_TRUE(platform.questions.empty());
  EXPECT_EQ(takeBoxes(), Texts{});
}

TEST_F(MainWindow, ViewModeTwoIsWide) {
  form.ITharnTool_ViewMode(2);
  EXPECT_EQ(form.width(), 8200);
  EXPECT_EQ(v.viewMode, 2);
  form.ITharnTool_ViewMode(1);
  EXPECT_EQ(form.width(), 6550);
}

TEST_F(MainWindow, EveryControlHasItsOwnNameAndAToolTipUnlessItIsATitle) {
  std::vector<std::string> names;
  for (const Control* control : form.controls()) {
    names.push_back(control->name());
    const bool title = control->kind() == Kind::Group || control->kind() == Kind::Label ||
                       !control->look().visible;
    EXPECT_TRUE(title || !control->look().toolTip.empty()) << control->name();
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(std::unique(names.begin(), names.end()), names.end());
}

}  // namespace
}  // namespace korvane
