// The windows of the plug-in under real clicks and keys.

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <QTreeView>

#include "generators/color/MxColorForm.h"
#include "generators/colorchange/MxColorChange.h"
#include "testing/ShownChoices.h"
#include "views/qt/machine/LoopGate.h"
#include "views/qt/testing/Settle.h"
#include "views/qt/windows/DesktopView.h"

namespace korvane::qt {
namespace {

class Windows : public TestPlugin {
 protected:
  Windows() {
    gate.run([this] { engine.desktop.show(plugin.matrixForm); });
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view.window(plugin.matrixForm)));
  }
  QWidget& on(Control& control) { return *view.window(*control.form).widget(control); }
  template <class Widget>
  Widget& inside(Control& control) {
    return *on(control).findChild<Widget*>();
  }
  /// What the main window scrolls on a screen that is too small for it.
  QWidget& content() { return *view.window(plugin.matrixForm).findChild<QScrollArea*>()->widget(); }
  /// Lays out a window that need not be shown.
  static void arrange(FormWindow& window) {
    window.layout()->activate();
    if (auto* area = window.findChild<QScrollArea*>()) area->widget()->adjustSize();
  }
  void press(Control& control) { QTest::mouseClick(&on(control), Qt::LeftButton); }

  LoopGate gate{platform, engine.timers};
  DesktopView view{engine.desktop, gate, plugin.matrixForm};
};

TEST_F(Windows, AClickOnAddAddsARowOfEitherDeck) {
  press(plugin.matrixForm.panelA.add);
  press(plugin.matrixForm.panelB.add);
  press(plugin.matrixForm.panelB.add);
  EXPECT_EQ(v.A.efxList.count(), 2);
  EXPECT_EQ(v.B.efxList.count(), 3);
}

TEST_F(Windows, TheFaderMixesByMouseAndByKeys) {
  auto& slider = inside<QSlider>(master.faderM);
  QTest::mouseClick(&slider, Qt::LeftButton, {}, {slider.width() - 2, slider.height() / 2});
  EXPECT_EQ(rgb(v.frameM.at(0, 0)), rgb(0, 0, 255)) << "all of deck B";
  QTest::keyClick(&slider, Qt::Key_Home);
  EXPECT_EQ(rgb(v.frameM.at(0, 0)), rgb(255, 0, 0)) << "all of deck A";
  QTest::keyClick(&slider, Qt::Key_PageUp);
  EXPECT_EQ(master.faderM.value(), -80);
  EXPECT_NE(rgb(v.frameM.at(0, 0)), rgb(255, 0, 0));
}

TEST_F(Windows, AnAutomaticFadeRunsByTheClock) {
  gate.run([this] { v.fadeTime = 0.2; });
  press(master.AutoFadeB);
  EXPECT_TRUE(v.fadeRunning);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !v.fadeRunning; }, 5000));
  EXPECT_EQ(master.faderM.value(), 100);
  EXPECT_EQ(inside<QSlider>(master.faderM).value(), 100);
}

TEST_F(Windows, TheModalMixerReturnsAColour) {
  press(plugin.matrixForm.panelA.edit);
  MxColorForm& dialog = plugin.window<MxColorForm>();
  ASSERT_TRUE(dialog.visible());
  press(dialog.Color);
  MxColorMixer& mixer = plugin.dialogs.mixer;
  ASSERT_TRUE(view.window(mixer).isModal());
  auto& green = inside<QSlider>(mixer.Sgreen);
  QTest::keyClick(&green, Qt::Key_End);
  press(mixer.Bok);
  EXPECT_FALSE(view.window(mixer).isVisible());
  EXPECT_EQ(v.A.effect().color1, rgb(255, 255, 0));
  EXPECT_EQ(rgb(v.frameA.at(0, 0)), rgb(255, 255, 0));
}

TEST_F(Windows, TheMixersFrameClosesItAsCancelDoes) {
  press(plugin.matrixForm.panelA.edit);
  press(plugin.window<MxColorForm>().Color);
  QTest::keyClick(&inside<QSlider>(plugin.dialogs.mixer.Sgreen), Qt::Key_End);
  view.window(plugin.dialogs.mixer).close();
  EXPECT_FALSE(plugin.dialogs.mixer.visible());
  EXPECT_EQ(v.A.effect().color1, rgb(255, 0, 0));
}

TEST_F(Windows, AClickOnAStripTakesItsShare) {
  gate.run([this] { pickColor(engine, 0, [](Color) {}); });
  MxColorMixer& mixer = plugin.dialogs.mixer;
  ASSERT_TRUE(QTest::qWaitForWindowActive(&view.window(mixer)));
  QTest::mouseClick(&on(mixer.Pblue), Qt::LeftButton, {}, on(mixer.Pblue).rect().center());
  EXPECT_NEAR(mixer.Sblue.value(), 127, 4);
}

TEST_F(Windows, TheChoiceOfTheEntryThatAListShowsCounts) {
  const auto chooseShown = [this](ListBox& list) {
    auto& box = dynamic_cast<QComboBox&>(on(list));
    box.showPopup();
    QAbstractItemView& entries = *box.view();
    EXPECT_EQ(entries.currentIndex().row(), list.index());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(entries.window()));
    QTest::keyClick(&entries, Qt::Key_Return);
    EXPECT_FALSE(entries.isVisible());
  };
  expectShownChoicesToCount(engine, chooseShown);
}

TEST_F(Windows, AChosenTypeStartsTheEffect) {
  auto& type = dynamic_cast<QComboBox&>(on(v.A.type));
  QTest::keyClick(&type, Qt::Key_Down);
  EXPECT_EQ(v.A.effect().type, kGradient);
  EXPECT_NE(rgb(v.frameA.at(0, 0)), rgb(v.frameA.at(11, 0)));
}

TEST_F(Windows, ThePreviewsFillTheirBoxesOnTheScreen) {
  QWidget& widget = on(master.picture);
  const int side =
      static_cast<int>(std::min(widget.width(), widget.height()) * widget.devicePixelRatioF());
  EXPECT_EQ(master.picture.width(), side);
  EXPECT_EQ(v.previewM.cell, side / 12);
  EXPECT_EQ(v.A.picture.width(), v.B.picture.width()) << "the decks are alike";
}

// What the layout has left out lies at the corner of the window, over the others.
TEST_F(Windows, EveryControlThatCanBeSeenStandsInTheLayout) {
  for (Form* form : engine.desktop.forms()) {
    FormWindow& window = view.window(*form);
    arrange(window);
    for (const Control* control : form->controls()) {
      const QWidget* widget = window.widget(*control);
      if (widget->isHidden()) continue;
      EXPECT_NE(widget->mapTo(&window, QPoint()), QPoint())
          << form->name() << "." << control->name();
    }
  }
}

TEST_F(Windows, EveryControlHasAToolTipUnlessItIsAFrameOrAText) {
  for (Form* form : engine.desktop.forms()) {
    for (const Control* control : form->controls()) {
      if (control->kind() == Kind::Group || control->kind() == Kind::Label) continue;
      if (!control->look().visible) continue;
      EXPECT_NE(control->look().toolTip, "") << form->name() << "." << control->name();
    }
  }
}

TEST_F(Windows, NoTextOfAButtonIsCutOff) {
  for (Form* form : engine.desktop.forms()) {
    if (form->surface != nullptr) continue;
    FormWindow& window = view.window(*form);
    arrange(window);
    for (const Control* control : form->controls()) {
      const QWidget* widget = window.widget(*control);
      if (control->kind() != Kind::Button || widget->isHidden()) continue;
      EXPECT_GE(widget->width(), widget->fontMetrics().horizontalAdvance(
                                     QString::fromStdString(control->look().caption)))
          << form->name() << "." << control->name();
    }
  }
}

TEST_F(Windows, SlidersBelowEachOtherBeginAtTheSamePlace) {
  MxColorChange& dialog = plugin.window<MxColorChange>();
  gate.run([&] { engine.desktop.show(dialog); });
  const auto& speed = inside<QSlider>(dialog.slSpeed);
  const auto& fade = inside<QSlider>(dialog.slFade);
  QWidget& window = view.window(dialog);
  EXPECT_EQ(speed.mapTo(&window, QPoint()).x(), fade.mapTo(&window, QPoint()).x());
  EXPECT_EQ(speed.width(), fade.width());
}

TEST_F(Windows, TheMainWindowFitsASmallScreen) {
  const QSize least = content().minimumSizeHint();
  const QSize room(1280 - 10, 800 - 35);  // less the frame of the system's windows
  EXPECT_LE(least.width(), room.width());
  EXPECT_LE(least.height(), room.height());
}

TEST_F(Windows, OnASmallerScreenItScrolls) {
  FormWindow& window = view.window(plugin.matrixForm);
  const QSize screen = window.screen()->availableSize();
  ASSERT_LT(screen.width(), content().minimumSizeHint().width());
  EXPECT_LT(window.width(), screen.width());
  auto& area = *window.findChild<QScrollArea*>();
  EXPECT_GT(area.horizontalScrollBar()->maximum(), 0);
  area.ensureWidgetVisible(&on(v.B.type));
  EXPECT_FALSE(on(v.B.type).visibleRegion().isEmpty());
}

TEST_F(Windows, TheColourOfAFadeFindsItsRoomWithoutMovingAnything) {
  const QRect before = on(plugin.matrixForm.FrameXX).geometry();
  gate.run([this] { master.fadeType.setIndex(kColorFade); });
  settle();
  EXPECT_TRUE(on(master.MFadeColor).isVisible());
  EXPECT_EQ(on(plugin.matrixForm.FrameXX).geometry(), before);
  EXPECT_LE(content().minimumSizeHint().width(), 1280 - 10);
}

TEST_F(Windows, TheNarrowViewHidesTheListsAndShrinksTheWindow) {
  const int wide = content().width();
  gate.run([this] { plugin.plugIn.ITharnPlugin_MessageHandle(kMessageViewChange, 1, 0); });
  EXPECT_FALSE(on(v.A.efxList).isVisible());
  EXPECT_TRUE(QTest::qWaitFor([&] { return content().width() < wide; }));
  gate.run([this] { plugin.plugIn.ITharnPlugin_MessageHandle(kMessageViewChange, 0, 0); });
  EXPECT_TRUE(on(v.A.efxList).isVisible());
  EXPECT_TRUE(QTest::qWaitFor([&] { return content().width() == wide; }));
}

TEST_F(Windows, CloseallHidesTheWindow) {
  press(plugin.matrixForm.Closeall);
  EXPECT_FALSE(view.window(plugin.matrixForm).isVisible());
}

// The window system keeps the release of the second press from the window that is shut by then: it
// would take the place of the lamp that the person chose.
TEST_F(Windows, ADoubleClickThatOpensAWindowModallyKeepsTheLampThatItMeant) {
  MatrixConf& conf = plugin.matrixConf;
  gate.run([&] { engine.desktop.show(conf); });
  FormWindow& window = view.window(conf);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  const QPoint middle = on(conf.mxbild).mapTo(&window, on(conf.mxbild).rect().center());
  QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, middle + QPoint(3, 3));
  ASSERT_TRUE(conf.detail.modal());
  QTest::mouseMove(window.windowHandle(), middle);
  settle();
  EXPECT_EQ(v.cellCol, 6);
  EXPECT_EQ(v.cellRow, 6);
  EXPECT_FALSE(v.cellConfigured.at(6, 6));
  QTest::mouseClick(view.window(conf.detail).windowHandle(), Qt::LeftButton, {},
                    on(conf.detail.setConfig).geometry().center());
  EXPECT_FALSE(conf.detail.visible());
  EXPECT_TRUE(v.cellConfigured.at(6, 6));
  QTest::mouseMove(window.windowHandle(), middle - QPoint(30, 30));
  EXPECT_FALSE(conf.mxbild.buttonHeld());
}

}  // namespace
}  // namespace korvane::qt
