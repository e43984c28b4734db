#include "hosts/desk/DeskWindow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "platform/HeadlessPlatform.h"
#include "views/qt/windows/Theme.h"

namespace korvane {
namespace {

class Desk : public testing::Test {
 protected:
  Desk() {
    desk.show();
    desk.openTool();
  }
  QPushButton& button(const char* caption) {
    for (QPushButton* found : desk.findChildren<QPushButton*>()) {
      if (found->text() == caption) return *found;
    }
    throw std::runtime_error(caption);
  }
  void press(const char* caption) { QTest::mouseClick(&button(caption), Qt::LeftButton); }
  QString status() {
    for (QLabel* label : desk.outputPanel().findChildren<QLabel*>()) {
      if (label->toolTip().startsWith("where the levels go")) return label->text();
    }
    return {};
  }

  HeadlessPlatform platform;
  NetworkOutput output{"korvane-tests"};
  DeskWindow desk{platform, output, "/nowhere/show", {}};
  DeskHost& host = desk.session().host;
  Plugin& plugin = desk.session().plugin;
  EventGate& gate = desk.session().gate;
  qt::DesktopView& view = desk.session().view;
};

TEST_F(Desk, OpensTheToolAndOpensItAgainAfterItsClose) {
  EXPECT_TRUE(plugin.matrixForm.visible());
  gate.run([this] { plugin.matrixForm.Closeall.click(); });
  EXPECT_FALSE(plugin.matrixForm.visible());
  press("Matrix");
  EXPECT_TRUE(plugin.matrixForm.visible());
  EXPECT_TRUE(view.window(plugin.matrixForm).isVisible());
}

TEST_F(Desk, SendsBlackoutAndFreeze) {
  press("Blackout");
  press("Freeze");
  EXPECT_EQ(platform.boxes, (std::vector<std::string>{"Blackout", "Freeze"}));
}

TEST_F(Desk, SendsTheViewMessages) {
  press("Narrow view");
  EXPECT_FALSE(plugin.matrixForm.FrameX.look().visible);
  press("Full view");
  EXPECT_TRUE(plugin.matrixForm.FrameX.look().visible);
}

TEST_F(Desk, ConfiguresTheGrid) {
  press("Configure");
  EXPECT_TRUE(plugin.matrixConf.visible());
}

TEST_F(Desk, TheBeatStepsAnEffectThatFollowsIt) {
  Deck& deck = plugin.engine.v.A;
  gate.run([&deck] {
    deck.effect().type = kColorChange;
    deck.effect().colors = {rgb(255, 0, 0), rgb(0, 255, 0)};
    deck.effect().colorCount = 2;
    deck.colorIndex = 0;
    deck.beatOn = true;
  });
  press("Beat");
  EXPECT_EQ(rgb(deck.frame.at(0, 0)), rgb(0, 255, 0));
}

TEST_F(Desk, AShortcutWorksInTheToolWindowAsWell) {
  qt::FormWindow& tool = view.window(plugin.matrixForm);
  tool.activateWindow();
  ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &tool; }, 2000));
  QTest::keyClick(&tool, Qt::Key_F10);
  QTest::qWait(0);
  EXPECT_EQ(platform.boxes, (std::vector<std::string>{"Blackout"}));
}

TEST_F(Desk, AKeyBringsItToTheFrontOfTheToolWindow) {
  qt::FormWindow& tool = view.window(plugin.matrixForm);
  tool.activateWindow();
  ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &tool; }, 2000));
  QTest::keyClick(&tool, Qt::Key_F4);
  EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &desk; }, 2000));
}

TEST_F(Desk, LevelsOfTheMixReachTheHost) {
  gate.run([this] { plugin.engine.v.channelMap.set(0, 0, 0, 17); });
  gate.run([this] { plugin.matrixForm.active.setValue(1); });
  gate.run([this] { plugin.matrixForm.fadeA.click(); });
  EXPECT_EQ(host.level(17), 255);
}

TEST_F(Desk, TheOutputStartsTellsItsStateAndStops) {
  EXPECT_EQ(status(), "Nothing is sent.");
  desk.outputPanel().use(parseOutputTarget("artnet:3@127.0.0.1"));
  EXPECT_TRUE(status().startsWith("Art-Net universe 3 to 127.0.0.1:6454")) << qPrintable(status());
  auto& protocol = *desk.outputPanel().findChild<QComboBox*>();
  protocol.setFocus();
  QTest::keyClick(&protocol, Qt::Key_Home);
  EXPECT_EQ(status(), "Nothing is sent.");
}

TEST_F(Desk, AWrongAddressIsToldAndMended) {
  desk.outputPanel().use(parseOutputTarget("sacn:1@127.0.0.1"));
  QLineEdit* address = nullptr;
  for (QLineEdit* found : desk.outputPanel().findChildren<QLineEdit*>()) {
    if (found->text() == "127.0.0.1") address = found;
  }
  ASSERT_NE(address, nullptr);
  address->setText("127.0.0.300");
  Q_EMIT address->editingFinished();
  EXPECT_TRUE(status().contains("127.0.0.300")) << qPrintable(status());
  address->setText("127.0.0.1");
  Q_EMIT address->editingFinished();
  EXPECT_TRUE(status().startsWith("sACN universe 1 to 127.0.0.1:5568")) << qPrintable(status());
}

TEST_F(Desk, ClosesAtOnceIfNoLampWouldLoseItsLight) {
  gate.run([this] { plugin.matrixForm.active.setValue(1); });
  desk.close();
  EXPECT_FALSE(desk.isVisible());
}

TEST_F(Desk, ARunningOutputIsNotEndedByTheWay) {
  desk.outputPanel().use(parseOutputTarget("sacn:1@127.0.0.1"));
  gate.run([this] { plugin.matrixForm.active.setValue(1); });
  QString question;
  QTimer::singleShot(0, [&question] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    question = box->text();
    box->button(QMessageBox::No)->click();
  });
  desk.close();
  EXPECT_TRUE(question.contains("sending to the lamps"));
  EXPECT_TRUE(desk.isVisible());
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
