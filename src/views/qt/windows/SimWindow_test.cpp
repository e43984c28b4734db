// The simulation window on the screen: where it goes, what it repaints, how it is closed.

#include <QPaintEvent>
#include <QScreen>
#include <QTest>
#include <QWindow>

#include "output/MatrixCode.h"
#include "testing/TestPlugin.h"
#include "views/qt/machine/LoopGate.h"
#include "views/qt/windows/DesktopView.h"

namespace korvane::qt {
namespace {

// Writes down which parts of a widget are repainted.
class Repaints : public QObject {
 public:
  explicit Repaints(QWidget& widget) { widget.installEventFilter(this); }
  bool any() const { return !region_.isEmpty(); }
  QRegion take() { return std::exchange(region_, {}); }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) region_ += static_cast<QPaintEvent*>(event)->region();
    return false;
  }

 private:
  QRegion region_;
};

class SimScreen : public TestPlugin {
 protected:
  SimScreen() {
    gate.run([this] { engine.desktop.show(plugin.matrixForm); });
    check(true);
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window()));
  }
  void check(bool on) {
    gate.run([&] { plugin.matrixForm.mxsim_active.setValue(on ? 1 : 0); });
  }
  FormWindow& window() { return view.window(plugin.mxSimForm); }
  QWidget& surface() { return *window().findChild<QWidget*>(); }
  QSize pixels() const { return {engine.sim.width(), engine.sim.height()}; }

  LoopGate gate{platform, engine.timers};
  DesktopView view{engine.desktop, gate, plugin.matrixForm};
};

TEST_F(SimScreen, SpaceFillsTheScreenOnWhichTheWindowStands) {
  for (QScreen* screen : QGuiApplication::screens()) {
    const QPoint inside = screen->availableGeometry().topLeft() + QPoint(30, 30);
    window().setGeometry(QRect(inside, QSize(300, 200)));
    ASSERT_TRUE(QTest::qWaitFor([&] { return window().screen() == screen; }, 2000));
    QTest::keyClick(&window(), Qt::Key_Space);
    ASSERT_TRUE(QTest::qWaitFor([&] { return window().geometry() == screen->geometry(); }, 2000));
    EXPECT_TRUE(window().isFullScreen());
    EXPECT_EQ(pixels(), screen->size() * screen->devicePixelRatio());
    EXPECT_EQ(v.simCellW, (engine.sim.width() - 10) / 12);
    QTest::keyClick(&window(), Qt::Key_Space);
    ASSERT_TRUE(QTest::qWaitFor([&] { return window().size() == QSize(300, 200); }, 2000));
    EXPECT_FALSE(window().isFullScreen());
    EXPECT_EQ(window().screen(), screen);
  }
}

// Automatic runs have two screens, of different sizes; a run by hand need not.
TEST_F(SimScreen, TheScreenThatTheTestsAskForIsThere) {
  if (!qEnvironmentVariable("QT_QPA_PLATFORM").contains("configfile")) GTEST_SKIP();
  EXPECT_GE(QGuiApplication::screens().size(), 2);
}

TEST_F(SimScreen, ASingleLampIsRepaintedAlone) {
  Repaints repaints(surface());
  const auto paintLamp = [&](const Rgb& color) {
    repaints.take();
    v.frameA.fill(color);
    gate.run([this] { mixCell(engine, 0, 2, 1); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return repaints.any(); }));
    return repaints.take().boundingRect();
  };
  paintLamp({1, 2, 3});  // and with it all that was still to be painted
  const double scale = window().devicePixelRatioF();
  const QRectF box(v.simLeft + 2 * v.simCellW, v.simTop + v.simCellH, v.simCellW - 1,
                   v.simCellH - 1);
  const QRect painted = paintLamp({10, 200, 30});
  EXPECT_EQ(painted, QRectF(box.topLeft() / scale, box.size() / scale).toAlignedRect());
  const QImage seen = window().grab().toImage();
  EXPECT_EQ(QColor(seen.pixel((box.center()).toPoint())), QColor(10, 200, 30));
}

TEST_F(SimScreen, TheFramesCloseButtonHidesItAndLeavesTheBoxChecked) {
  window().close();
  EXPECT_FALSE(window().isVisible());
  EXPECT_TRUE(plugin.matrixForm.mxsim_active.checked());
  EXPECT_TRUE(v.simActive);
  gate.run([this] { plugin.matrixForm.fadeB.click(); });
  EXPECT_EQ(takeFailure(), 0);
  EXPECT_FALSE(window().isVisible());
  check(false);
  check(true);
  EXPECT_TRUE(window().isVisible());
}

}  // namespace
}  // namespace korvane::qt
