// The desk on a screen, under real clicks and keys.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>
#include <QUrl>
#include <algorithm>

#include "desk/whole/Desk.h"
#include "hosts/desk/DroppedFiles.h"
#include "platform/HeadlessPlatform.h"
#include "views/qt/machine/LoopGate.h"
#include "views/qt/windows/DesktopView.h"
#include "views/qt/windows/Theme.h"

namespace korvane {
namespace {

class DeskView : public testing::Test {
 protected:
  DeskView() {
    gate.afterEvent = [this] { desk.refresh(); };
    gate.afterTicks = [this] { desk.settle(); };
    gate.run([this] { desk.show(); });
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
  }
  qt::FormWindow& window() { return view.window(desk.form); }
  QWidget& on(Control& control) { return *view.window(*control.form).widget(control); }
  void press(Control& control) { QTest::mouseClick(&on(control), Qt::LeftButton); }
  void openTool() {
    QTest::keyClick(&window(), Qt::Key_F2);
    ASSERT_TRUE(tool.visible());
    QCoreApplication::processEvents();  // a press aims at where the layout has put a button
  }

  QTemporaryDir folder;
  HeadlessPlatform machine;
  LampFeed feed{"korvane-tests"};
  Desk desk{machine, feed, {folder.filePath("mine").toStdString()}};
  MatrixForm& tool = desk.session.plugin.matrixForm;
  qt::LoopGate gate{machine, desk.engine().timers};
  qt::DesktopView view{desk.engine().desktop, gate, desk.form, desk.windowsBeside()};
};

TEST_F(DeskView, EveryWindowNeedsNoMoreThanAScreenOf1280By720) {
  const QSize room(1280 - 10, 720 - 40);  // less the frame of the system's windows
  qt::applyTheme(*qApp, qt::Shade::Dark);
  openTool();
  gate.run([this] {
    OutputEntry entry{parseOutput("artnet:0-3@nodes,name=All the lamps of the wall"), false};
    desk.setup.take(entry);
  });
  int windows = 0;
  for (Form* form : desk.engine().desktop.forms()) {
    gate.run([&] { desk.engine().desktop.show(*form); });
    QCoreApplication::processEvents();
    QWidget& shown = view.window(form->front());
    auto* area = shown.findChild<QScrollArea*>();
    if (area == nullptr) continue;  // one picture, of any size
    const QWidget& content = *area->widget();
    const QSize least = content.minimumSizeHint();
    const int beyond =
        shown.layout()->menuBar() == nullptr ? 0 : shown.layout()->menuBar()->sizeHint().height();
    EXPECT_LE(least.width(), room.width()) << form->name();
    EXPECT_LE(std::max(least.height(), content.heightForWidth(room.width())) + beyond,
              room.height())
        << form->name();
    ++windows;
    if (form != &desk.form && form != &tool) gate.run([&] { desk.engine().desktop.hide(*form); });
  }
  EXPECT_GT(windows, 20);
}

TEST_F(DeskView, TheToolStandsWithinTheOneWindow) {
  EXPECT_TRUE(on(desk.form.begin).isVisible());
  EXPECT_FALSE(on(tool.panelA.frame).isVisible());
  press(desk.form.newShow);
  EXPECT_FALSE(on(desk.form.begin).isVisible());
  EXPECT_TRUE(on(tool.panelA.frame).isVisible());
  EXPECT_EQ(&view.window(tool), &window());
  press(tool.Closeall);
  EXPECT_TRUE(on(desk.form.begin).isVisible());
  EXPECT_FALSE(on(tool.panelA.frame).isVisible());
}

TEST_F(DeskView, TabGoesThroughThePageToBeginFromAsItIsRead) {
  on(desk.form.newShow).setFocus();
  for (Control* next :
       {static_cast<Control*>(&desk.form.open), static_cast<Control*>(&desk.form.tool),
        static_cast<Control*>(&desk.form.dmx)}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(on(*next).hasFocus()) << next->name();
  }
}

TEST_F(DeskView, AWrongFileThatIsDroppedIsToldAndNothingIsLost) {
  const DroppedFiles dropped(
      window(), [this](const std::string& path) { gate.run([&] { desk.files.open(path); }); });
  const auto file = [this](const char* name, const QByteArray& bytes) {
    QFile made(folder.filePath(name));
    EXPECT_TRUE(made.open(QIODevice::WriteOnly));
    made.write(bytes);
    return made.fileName();
  };
  QDir(folder.path()).mkdir("folder");
  QImage(8, 8, QImage::Format_RGB32).save(folder.filePath("picture.png"));
  const QString wrong[] = {file("text.txt", "hello\n"),
                           folder.filePath("folder"),
                           file("broken.korvanedesk", R"({"version": 1, "cues": [)"),
                           folder.filePath("picture.png"),
                           file("bad.Korvane", "\x01\x02 bad"),
                           folder.filePath("not there")};
  openTool();
  gate.run([this] { tool.panelA.add.click(); });
  EXPECT_TRUE(desk.files.changed());
  const std::string show = desk.session.showText();
  for (const QString& path : wrong) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&window(), &enter);
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&window(), &drop);
    ASSERT_TRUE(desk.question.visible()) << "the show was changed, " << path.toStdString();
    machine.boxes.clear();
    gate.run([this] { desk.question.second.click(); });
    ASSERT_EQ(machine.boxes.size(), 1U) << path.toStdString();
    EXPECT_NE(machine.boxes[0].find(QFileInfo(path).completeBaseName().toStdString()),
              std::string::npos)
        << machine.boxes[0];
    EXPECT_EQ(desk.session.showText(), show) << path.toStdString();
    EXPECT_TRUE(desk.files.changed());
  }
}

TEST_F(DeskView, TheMenusHoldTheItemsWithTheirKeys) {
  QStringList all;
  for (QAction* menu : window().findChild<QMenuBar*>()->actions()) {
    for (QAction* item : menu->menu()->actions()) {
      if (item->isVisible() && !item->isSeparator())
        all << menu->text() + ": " + item->text() + " " + item->shortcut().toString();
    }
  }
  const auto rows = [](const std::string& caption, const std::string& held) {
    std::string text;
    for (char number = '1'; number <= '9'; ++number)
      text += caption + number + " " + held + number + "\n";
    return text;
  };
  EXPECT_EQ(
      all.join("\n").toStdString(),
      "Show: New Ctrl+N\nShow: Open ... Ctrl+O\nShow: Save Ctrl+S\n"
      "Show: Save as ... Ctrl+Shift+S\nShow: Open the last show at the start \nShow: Quit Ctrl+Q\n"
      "Edit: Undo Ctrl+Z\nEdit: Redo Ctrl+Shift+Z\n"
      "Play: Output on F12\nPlay: Blackout F10\nPlay: Freeze F11\n"
      "Play: Grand master up Shift+F12\nPlay: Grand master down Shift+F11\n"
      "Play: Fader left Left\nPlay: Fader right Right\nPlay: Fader far left Shift+Left\n"
      "Play: Fader far right Shift+Right\nPlay: Cut left Ctrl+Left\n"
      "Play: Cut right Ctrl+Right\nPlay: Fade left Alt+Left\nPlay: Fade right Alt+Right\n"
      "Play: Beat F9\n" +
          rows("Left: Left effect ", "") + rows("Right: Right effect ", "Ctrl+") +
          rows("Fades: Fade ", "Alt+") +
          "Cues: Cues Shift+F2\nCues: Go Space\nCues: Back Backspace\n"
          "Cues: Pause Shift+Space\nCues: Stop Ctrl+Space\nCues: Start \nCues: Make next \n"
          "Cues: Record Ctrl+R\n"
          "Cues: Automatic play Ctrl+Shift+A\nCues: Tap Ctrl+T\n"
          "Lamps: Wiring Shift+F3\nLamps: Configure lamps F3\nLamps: Outputs ... F5\n"
          "Lamps: Channels F8\nLamps: Curve steeper Shift+F10\nLamps: Curve flatter Shift+F9\n"
          "Lamps: Less red Ctrl+F9\nLamps: Less green Ctrl+F10\nLamps: Less blue Ctrl+F11\n"
          "Lamps: White balance off Ctrl+F12\n"
          "View: Matrix F2\nView: Desk F4\nView: Narrow view F6\nView: Full view F7\n"
          "View: Pictures in the lists \nView: Light or dark as the system \nView: Light \n"
          "View: Dark \n"
          "Help: Keys F1\nHelp: Help Shift+F1");
}

TEST_F(DeskView, AFocusedControlHasItsKeysFirstAndTheCommandsHaveTheRest) {
  openTool();
  Slider& fader = desk.engine().master.faderM;
  ListView& list = desk.engine().v.A.efxList;
  press(tool.panelA.add);
  press(tool.panelA.add);
  QWidget& rows = on(list);
  rows.setFocus();
  QTest::keyClick(&rows, Qt::Key_Down);
  EXPECT_EQ(list.current(), 1);
  QTest::keyClick(&rows, Qt::Key_Right);
  EXPECT_EQ(fader.value(), 2) << "a list has no use for it";
  QTest::keyClick(&rows, Qt::Key_3);
  EXPECT_EQ(list.current(), 2);
  auto& name = dynamic_cast<QLineEdit&>(on(desk.engine().master.fadeName));
  name.setFocus();
  QTest::keyClick(&name, Qt::Key_Left);
  QTest::keyClick(&name, Qt::Key_1);
  QTest::keyClick(&name, Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(fader.value(), 2);
  EXPECT_EQ(list.current(), 2);
  EXPECT_TRUE(name.text().contains('1'));
}

TEST_F(DeskView, SpaceIsGoWhereTheWindowHasPutItsFirstFocus) {
  openTool();
  gate.run([this] { desk.command("cueRecord"); });
  QWidget& rows = on(desk.engine().v.A.efxList);
  rows.setFocus(Qt::TabFocusReason);  // as a window does that is shown
  QTest::keyClick(&rows, Qt::Key_Space);
  EXPECT_EQ(desk.cues.run.cues.on(), 0);
}

TEST_F(DeskView, AClickOnTheListThatHasTheFocusLeavesSpaceToGo) {
  openTool();
  gate.run([this] { desk.command("cueRecord"); });
  auto& rows = dynamic_cast<QAbstractItemView&>(on(desk.engine().v.A.efxList));
  rows.setFocus();
  QTest::keyClick(&rows, Qt::Key_Tab);
  rows.setFocus();
  QTest::mouseClick(rows.viewport(), Qt::LeftButton, {},
                    rows.visualRect(rows.model()->index(0, 0)).center());
  QTest::keyClick(&rows, Qt::Key_Space);
  EXPECT_EQ(desk.cues.run.cues.on(), 0);
}

TEST_F(DeskView, SpaceIsGoButPressesAButtonThatWasReachedByTab) {
  openTool();
  gate.run([this] { desk.command("cueRecord"); });
  QWidget& cut = on(tool.fadeB);
  press(tool.fadeB);
  QTest::keyClick(&cut, Qt::Key_Space);
  EXPECT_EQ(desk.cues.run.cues.on(), 0) << "a button that was clicked is done with";
  press(tool.fadeA);
  while (!cut.hasFocus()) QTest::keyClick(window().focusWidget(), Qt::Key_Tab);
  QTest::keyClick(&cut, Qt::Key_Space);
  EXPECT_EQ(desk.engine().master.faderM.value(), 100);
}

TEST_F(DeskView, TheWindowOfTheKeysTakesTheKeyThatIsPressedNext) {
  QTest::keyClick(&window(), Qt::Key_F1);
  KeysForm& keys = desk.keys.form;
  qt::FormWindow& shown = view.window(keys);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&shown));
  const auto give = [&](const std::string& command, int key, Qt::KeyboardModifiers held) {
    for (int row = 0; row < keys.list.count(); ++row)
      if (keys.list.cell(row, 0) == command) gate.run([&] { keys.list.click(row, 0); });
    press(keys.change);
    QTest::keyClick(&shown, static_cast<Qt::Key>(key), held);
  };
  give("Blackout", Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_EQ(desk.form.blackout.key(), "F10") << "taken";
  EXPECT_TRUE(keys.onAnyKey);
  QTest::keyClick(&shown, Qt::Key_Escape);
  EXPECT_TRUE(keys.visible()) << "Escape ended the waiting alone";
  give("Blackout", Qt::Key_B, Qt::ControlModifier);
  EXPECT_EQ(desk.form.blackout.key(), "Ctrl+B");
  QTest::keyClick(&shown, Qt::Key_B, Qt::ControlModifier);
  EXPECT_TRUE(desk.levels().blackout || desk.form.blackout.lit());
}

TEST_F(DeskView, TheWindowOfTheKeysShowsAllItsTextsWholeAtFirst) {
  QTest::keyClick(&window(), Qt::Key_F1);
  QWidget& shown = view.window(desk.keys.form);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&shown));
  EXPECT_LE(shown.sizeHint().width(), 1280 - 10);
  shown.resize(shown.sizeHint());  // as on a screen that is larger than this one
  QCoreApplication::processEvents();
  auto& table = dynamic_cast<QTreeView&>(on(desk.keys.form.list));
  ListView& list = desk.keys.form.list;
  ASSERT_GT(list.count(), 70);
  const QFontMetrics metrics = table.fontMetrics();
  for (int row = 0; row < list.count(); ++row) {
    for (int col = 0; col < 3; ++col) {
      const QString text = QString::fromStdString(list.cell(row, col));
      constexpr int kBothSides = 16;
      EXPECT_LE(metrics.horizontalAdvance(text) + kBothSides, table.columnWidth(col))
          << text.toStdString();
    }
  }
}

TEST_F(DeskView, BlackoutIsLitWhileItIsOn) {
  QTest::keyClick(&window(), Qt::Key_F10);
  auto& button = dynamic_cast<QAbstractButton&>(on(desk.form.blackout));
  EXPECT_TRUE(button.isChecked());
  press(desk.form.blackout);
  EXPECT_FALSE(button.isChecked());
  EXPECT_TRUE(machine.boxes.empty()) << "no answer stands in the way";
}

TEST_F(DeskView, AKeyBringsTheDeskToTheFrontOfAnotherWindow) {
  QTest::keyClick(&window(), Qt::Key_F5);
  qt::FormWindow& setup = view.window(desk.setup);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&setup));
  QTest::keyClick(&setup, Qt::Key_F4);
  EXPECT_TRUE(QTest::qWaitFor([this] { return window().isActiveWindow(); }));
  QTest::keyClick(&window(), Qt::Key_F5);
  EXPECT_TRUE(QTest::qWaitFor([&] { return setup.isActiveWindow(); }));
}

TEST_F(DeskView, NoWindowOfTheDeskStaysBeforeItWhenAKeyBringsItToTheFront) {
  for (const int key : {Qt::Key_F1, Qt::Key_F5, Qt::Key_F8})
    QTest::keyClick(&window(), static_cast<Qt::Key>(key));
  for (const int key : {Qt::Key_F1, Qt::Key_F2, Qt::Key_F3})
    QTest::keyClick(&window(), static_cast<Qt::Key>(key), Qt::ShiftModifier);
  int others = 0;
  for (const QWidget* other : QApplication::topLevelWidgets()) {
    if (!other->isVisible() || other == &window()) continue;
    ++others;
    EXPECT_EQ(other->parentWidget(), nullptr) << other->windowTitle().toStdString();
  }
  EXPECT_EQ(others, 6);
}

TEST_F(DeskView, EscapeClosesADialogAndEnterPressesItsOk) {
  openTool();
  press(tool.panelA.edit);
  EffectDialog& dialog = *desk.session.plugin.dialogs.byType.at(kColor);
  qt::FormWindow& shown = view.window(dialog);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&shown));
  QTest::keyClick(&on(dialog.OK), Qt::Key_Escape);
  EXPECT_FALSE(dialog.visible());
  press(tool.panelA.edit);
  QTest::keyClick(&shown, Qt::Key_Return);
  EXPECT_FALSE(dialog.visible());
  EXPECT_TRUE(desk.engine().v.A.efxEdited.at(0));
}

TEST_F(DeskView, ClosingItsFrameAsksForAChangedShow) {
  openTool();
  press(tool.panelA.add);
  window().close();
  EXPECT_TRUE(desk.question.visible());
  EXPECT_TRUE(window().isVisible());
  bool quit = false;
  desk.onQuit = [&quit] { quit = true; };
  press(desk.question.second);
  EXPECT_TRUE(quit);
}

}  // namespace
}  // namespace korvane

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  // A screen in memory, unless the caller asks for another one.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  korvane::qt::applyTheme(application);
  return RUN_ALL_TESTS();
}
