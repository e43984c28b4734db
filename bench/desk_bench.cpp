// One second of the whole desk with its windows, by the wall clock: the tool's main window, the
// simulation, an effect's dialog and the desk's own with its monitor, on a screen in memory. Both
// decks run at full speed. play_bench has the player with the same show.

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPaintEvent>
#include <QTimer>

#include "FullSpeed.h"
#include "desk/whole/Desk.h"
#include "views/qt/machine/LoopGate.h"
#include "views/qt/windows/DesktopView.h"
#include "views/qt/windows/Theme.h"

namespace korvane {
namespace {

// Counts how often a widget is painted.
class Paintings : public QObject {
 public:
  explicit Paintings(QWidget& widget) { widget.installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }
};

// The random numbers of the effects start from the clock.
class TickingPlatform : public HeadlessPlatform {
 public:
  std::int64_t timeOfDay() override { return ++time; }
};

class DeskAtWork {
 public:
  DeskAtWork(int side, std::int16_t type) {
    gate_.afterEvent = [this] { desk_.refresh(); };
    gate_.afterTicks = [this] { desk_.settle(); };
    gate_.run([this] { desk_.show(); });
    gate_.run([this] { desk_.form.tool.click(); });
    gate_.run([this] { desk_.form.channels.click(); });
    gate_.run([this, side, type] { playAtFullSpeed(plugin_, side, type); });
    gate_.run([this] { plugin_.matrixForm.mxsim_active.setValue(1); });
    gate_.run([this] { plugin_.matrixForm.panelA.edit.click(); });
    simulation_.emplace(*view_.window(plugin_.mxSimForm).findChild<QWidget*>());
    Timer& step = plugin_.engine.v.A.timer1;
    step.onTimer = [this, before = step.onTimer] {
      ++steps;
      before();
    };
    run(500);
  }

  /// Seconds that passed.
  double run(int milliseconds) {
    steps = simulation_->count = 0;
    QElapsedTimer clock;
    clock.start();
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
    return static_cast<double>(clock.nsecsElapsed()) / 1e9;
  }

  int painted() const { return simulation_->count; }

  int steps = 0;  ///< of deck A since the last run began

 private:
  TickingPlatform platform_;
  LampFeed feed_{"korvane-bench"};
  Desk desk_{platform_, feed_, {"/nowhere/bench"}};
  Plugin& plugin_ = desk_.session.plugin;
  qt::LoopGate gate_{platform_, plugin_.engine.timers};
  qt::DesktopView view_{plugin_.engine.desktop, gate_, desk_.form};
  std::optional<Paintings> simulation_;
};

// Beside the share of a core stand the steps of a deck in a second, and how often the simulation
// was painted, each of which also the other deck's steps bring about.
void secondOfDesk(benchmark::State& state) {
  DeskAtWork desk(static_cast<int>(state.range(0)), static_cast<std::int16_t>(state.range(1)));
  std::vector<double> steps;
  std::vector<double> painted;
  measureShare(state, [&] {
    const double seconds = desk.run(1000);
    steps.push_back(desk.steps / seconds);
    painted.push_back(desk.painted() / seconds);
    return seconds;
  });
  state.counters["pictures"] = median(steps);
  state.counters["painted"] = median(painted);
}

BENCHMARK(secondOfDesk)
    ->ArgsProduct({{12, 50}, {kFire, kFluid}})
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvane

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  korvane::qt::applyTheme(application);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
