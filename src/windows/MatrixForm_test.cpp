#include "windows/MatrixForm.h"

#include "generators/Effects.h"
#include "generators/color/MxColorForm.h"
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
  EXPECT_EQ(v.A.colorIndex, -1);
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

TEST_F(MainWindow, CheckingDMXSendsWithoutAMix) {
  ASSERT_TRUE(open());
  v.frameA.fill({0, 0, 0});
  event([&] { form.active.setValue(1); });
  EXPECT_EQ(v.frameM.at(0, 0), (Rgb{127, 0, 127}));
  EXPECT_EQ(v.frameSent.at(0, 0), (Rgb{127, 0, 127}));
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
  click(plugin.window<MxColorForm>().OK);
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
  EXPECT_FALSE(plugin.window<MxColorForm>().visible());
  EXPECT_FALSE(v.A.timer1.enabled());
  EXPECT_FALSE(master.timerM.enabled());
  EXPECT_TRUE(master.timerM2.enabled());
  EXPECT_FALSE(form.active.checked());
  EXPECT_FALSE(form.mxsim_active.checked());
  EXPECT_FALSE(v.outputActive);
  EXPECT_FALSE(v.simActive);
}

TEST_F(MainWindow, CloseallHidesSomeDialogsAndLeavesTheOthers) {
  ASSERT_TRUE(open());
  for (Form* window : engine.desktop.forms()) {
    if (window != engine.desktop.find("MatrixConfDetail")) {
      event([&] { engine.desktop.show(*window); });
    }
  }
  event([&] { engine.desktop.show(form); });
  click(form.Closeall);
  Texts left;
  for (const Form* window : engine.desktop.forms()) {
    if (window->visible()) left.push_back(window->name());
  }
  EXPECT_EQ(left, (Texts{"MxPaintForm", "MxWater", "MxTickerForm", "MxImageList", "MatrixConf",
                         "quickConf", "MxSimForm", "MatrixHelp", "MatrixConfigHelp"}));
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

TEST_F(MainWindow, OnlyViewModeTwoIsWide) {
  for (const std::int32_t mode : {1, 0, 3, -2}) {
    form.ITharnTool_ViewMode(2);
    EXPECT_EQ(form.width(), 8200);
    EXPECT_EQ(v.viewMode, 2);
    form.ITharnTool_ViewMode(mode);
    EXPECT_EQ(form.width(), 6550) << mode;
    EXPECT_EQ(v.viewMode, mode);
  }
}

// Each control with its kind and the text that it is known by: its caption or, where it shows a
// picture or a value, its tool tip. Texts that are ours to choose are left out.
TEST_F(MainWindow, ControlsHaveTheirKindsAndTexts) {
  struct Row {
    const char* name;
    Kind kind;
    const char* caption;
    const char* toolTip;
  };
  const char* const free = nullptr;
  const char* const copy = "Copy selected memory effect to clipboard";
  const char* const paste = "Paste effect from clipboard on selected memory";
  const std::vector<Row> rows = {{"FrameA", Kind::Group, "Left Effect", free},
                                 {"FrameB", Kind::Group, "Right Effect", free},
                                 {"efxAList", Kind::ListView, free, free},
                                 {"efxBList", Kind::ListView, free, free},
                                 {"typeA", Kind::ListBox, free, free},
                                 {"typeB", Kind::ListBox, free, free},
                                 {"addA", Kind::PictureButton, free, free},
                                 {"addB", Kind::PictureButton, free, free},
                                 {"removeA", Kind::PictureButton, free, free},
                                 {"removeB", Kind::PictureButton, free, free},
                                 {"upA", Kind::PictureButton, free, free},
                                 {"upB", Kind::PictureButton, free, free},
                                 {"downA", Kind::PictureButton, free, free},
                                 {"downB", Kind::PictureButton, free, free},
                                 {"editA", Kind::Button, "Edit", free},
                                 {"editB", Kind::Button, "Edit ...", free},
                                 {"clearA", Kind::Button, "Clear", free},
                                 {"clearB", Kind::Button, "Clear", free},
                                 {"copyMemA", Kind::PictureButton, free, copy},
                                 {"copyMemB", Kind::PictureButton, free, copy},
                                 {"pasteMemA", Kind::PictureButton, free, paste},
                                 {"pasteMemB", Kind::PictureButton, free, paste},
                                 {"PB_A", Kind::PictureBox, free, free},
                                 {"PB_B", Kind::PictureBox, free, free},
                                 {"PB_M", Kind::PictureBox, free, free},
                                 {"miniA", Kind::PictureBox, free, free},
                                 {"imageB", Kind::PictureBox, free, free},
                                 {"FrameM", Kind::Group, "Main Matrix - Output Matrix", free},
                                 {"faderM", Kind::Slider, free, free},
                                 {"fadeA", Kind::Button, free, "sets left effect active"},
                                 {"fadeB", Kind::Button, free, "sets right effect active"},
                                 {"AutoFadeA", Kind::Button, free, "fade to the left"},
                                 {"AutoFadeB", Kind::Button, free, "fade to the right"},
                                 {"FrameX", Kind::Group, "Fade Effect List", free},
                                 {"efxXList", Kind::ListView, free, free},
                                 {"addX", Kind::PictureButton, free, free},
                                 {"FrameXX", Kind::Group, "Fade Effect", free},
                                 {"fadeName", Kind::TextBox, free, free},
                                 {"fadeType", Kind::ListBox, free, free},
                                 {"Label1", Kind::Label, "Time : ", free},
                                 {"fadeTimeText", Kind::TextBox, free, "fade time in seconds"},
                                 {"FadeColorText", Kind::Label, "Color : ", free},
                                 {"MFadeColor", Kind::ColorBox, free, "edits color for color fade"},
                                 {"FrameG", Kind::Group, "Main Functions", free},
                                 {"Label2", Kind::Label, "FPS:", free},
                                 {"fps", Kind::ListBox, free, free},
                                 {"active", Kind::CheckBox, "DMX", free},
                                 {"mxsim_active", Kind::CheckBox, "MxSim", free},
                                 {"save", Kind::PictureButton, free, "Save Effects"},
                                 {"load", Kind::PictureButton, free, "Load Effects"},
                                 {"help", Kind::PictureButton, free, "Help"},
                                 {"Closeall", Kind::PictureButton, free, free}};
  EXPECT_EQ(form.caption(), "Korvane");
  for (const Row& row : rows) {
    const Control* control = form.find(row.name);
    ASSERT_NE(control, nullptr) << row.name;
    EXPECT_EQ(control->kind(), row.kind) << row.name;
    EXPECT_TRUE(row.caption == free || control->look().caption == row.caption) << row.name;
    EXPECT_TRUE(row.toolTip == free || control->look().toolTip == row.toolTip) << row.name;
  }
  EXPECT_EQ(master.faderM.min(), -100);
  EXPECT_EQ(master.faderM.max(), 100);
}

TEST_F(MainWindow, ListsHaveTheirColumnsAndEntries) {
  ASSERT_TRUE(open());
  EXPECT_EQ(v.A.type.items(), kindNames());
  EXPECT_EQ(v.B.type.items(), kindNames());
  EXPECT_EQ(master.fadeType.items(),
            (Texts{"CrossFade", "BlackFade", "ColorFade", "Random", "Flow Down", "Fill up",
                   "Scroll Up", "Scroll Down", "Scroll Left", "Scroll Right", "Add"}));
  EXPECT_EQ(master.fps.items(), (Texts{"5", "10", "15", "20", "25", "30"}));
  const std::pair<const ListView*, const char*> lists[] = {
      {&v.A.efxList, "efxA"}, {&v.B.efxList, "efxB"}, {&master.efxXList, "efxX"}};
  for (const auto& [list, slots] : lists) {
    ASSERT_EQ(list->columns().size(), 2U);
    EXPECT_EQ(list->columns()[0].title, "Name");
    EXPECT_EQ(list->columns()[0].width, 5.0 / 6);
    EXPECT_EQ(list->columns()[1].title, slots);
  }
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
