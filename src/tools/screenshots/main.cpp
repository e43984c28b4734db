// Takes the pictures of the documentation: korvane-screenshots FOLDER [WIDTH HEIGHT]
// The desk, the main window with a show, at the size if one is given, and every other window. Takes
// the pictures of a show from examples/slides, below the folder in which it runs.

#include <QApplication>
#include <QDir>
#include <QThread>
#include <cstdio>
#include <utility>

#include "desk/whole/Desk.h"
#include "generators/Effects.h"
#include "generators/image/MxImageForm.h"
#include "tools/demo/DemoShow.h"
#include "views/qt/machine/LoopGate.h"
#include "views/qt/machine/QtPlatform.h"
#include "views/qt/windows/DesktopView.h"
#include "views/qt/windows/Theme.h"

namespace {

using namespace korvane;

constexpr int kSettleMilliseconds = 20;
constexpr int kSettleRounds = 5;
constexpr int kShowMilliseconds = 300;  // how long the show runs before its picture is taken

// A file dialog or a message box must not stop the pictures.
class SilentPlatform : public qt::QtPlatform {
 public:
  void messageBox(const std::string&) override {}
  std::optional<std::string> askFile(const FileQuestion&) override { return std::nullopt; }
};

class Photographer {
 public:
  Photographer(const QString& folder, QSize size) : folder_(folder), size_(size) {
    QDir().mkpath(folder_);
  }

  int run() {
    gate_.afterEvent = [this] { desk_.refresh(); };
    gate_.afterTicks = [this] { desk_.settle(); };
    gate_.run([this] { desk_.show(); });
    if (!size_.isEmpty()) view_.window(desk_.form).resize(size_);
    save(view_.window(desk_.form), "desk-empty");
    gate_.run([this] { desk_.session.openTool(); });
    show_.make();
    settle(kShowMilliseconds);
    save(view_.window(desk_.form), "main-window");
    taken_ << qt::text(plugin_.matrixForm.name()) << qt::text(desk_.form.name())
           << qt::text(desk_.question.name());
    for (int row = 0; std::cmp_less(row, kinds().size()); ++row) takeDialog(row);
    show_.mixOrange();
    takeFullScreen();
    takeWiring();
    takeOutputs();
    for (Form* form : plugin_.engine.desktop.forms()) takeForm(*form);
    return failed_ ? 1 : 0;
  }

 private:
  void takeDialog(int row) {
    Form* dialog = show_.openDialog(row);
    if (dialog == nullptr) return;
    save(view_.window(*dialog), dialog->name());
    if (dialog == &plugin_.window<MxImageForm>()) takeImageList();
    gate_.run([&] { plugin_.engine.desktop.close(*dialog); });
  }

  void takeImageList() {
    Form& list = show_.openImageList();
    save(view_.window(list), list.name());
    gate_.run([&] { plugin_.engine.desktop.close(list); });
  }

  // The simulation window without its frame; the one with it is taken with the other windows.
  void takeFullScreen() {
    MxSimForm& sim = plugin_.mxSimForm;
    constexpr int kSpace = 32;
    gate_.run([&] { plugin_.engine.desktop.show(sim); });
    gate_.run([&sim] { sim.onKeyPress(kSpace); });
    save(view_.window(sim), sim.name() + "-full-screen");
    gate_.run([&sim] { sim.onKeyPress(kSpace); });
    gate_.run([&] { plugin_.engine.desktop.hide(sim); });
  }

  // Outputs of several kinds. One is on: it sends to this machine, where nobody listens.
  void takeOutputs() {
    gate_.run([&] {
      desk_.setup.take({parseOutput("artnet:0-1@nodes,name=Foyer"), false});
      desk_.setup.take({parseOutput("ddp@192.168.1.50,rate=20,name=Bar"), false});
      desk_.setup.take({parseOutput("sacn:1-2%lo,gamma=2.2,smooth=on,name=Stage wall"), true});
    });
    settle(kSettleMilliseconds);
    gate_.run([&] { desk_.setup.refresh(); });
    takeForm(desk_.setup);
  }

  // A wall that is planned, and its lamp test.
  void takeWiring() {
    Wiring& wiring = desk_.wiring;
    gate_.run([&] {
      plugin_.engine.desktop.show(wiring);
      wiring.setPlan({.cols = 16,
                      .rows = 9,
                      .path = {.snake = true},
                      .order = ColorOrder::GRB,
                      .fill = UniverseFill::Count,
                      .lampsPerUniverse = 80});
    });
    if (!size_.isEmpty()) view_.window(wiring).resize(size_);
    save(view_.window(wiring), wiring.name());
    gate_.run([&] {
      wiring.testPanel.test.setValue(1);
      wiring.testPanel.goTo({4, 2});
    });
    save(view_.window(wiring), wiring.name() + "-test");
    gate_.run([&] { plugin_.engine.desktop.close(wiring); });
  }

  void takeForm(Form& form) {
    if (taken_.contains(qt::text(form.name()))) return;
    gate_.run([&] { plugin_.engine.desktop.show(form); });
    save(view_.window(form), form.name());
    gate_.run([&] { plugin_.engine.desktop.hide(form); });
  }

  void settle(int milliseconds) {
    for (int i = 0; i < kSettleRounds; ++i) {
      QThread::msleep(static_cast<unsigned long>(milliseconds / kSettleRounds));
      QApplication::processEvents();
    }
  }

  void save(QWidget& window, const std::string& name) {
    settle(kSettleMilliseconds);
    const QString path = QDir(folder_).filePath(qt::text(name) + ".png");
    if (!window.grab().save(path)) {
      std::fprintf(stderr, "korvane-screenshots: cannot write %s\n", qUtf8Printable(path));
      failed_ = true;
    }
    taken_ << qt::text(name);
  }

  QString folder_;
  QSize size_;
  QStringList taken_;
  bool failed_ = false;
  SilentPlatform platform_;
  LampFeed feed_{"korvane-screenshots"};
  Desk desk_{
      platform_,
      feed_,
      {"show", examplesIn(examplesBeside(QApplication::applicationDirPath().toStdString()))}};
  Plugin& plugin_ = desk_.session.plugin;
  qt::LoopGate gate_{platform_, plugin_.engine.timers};
  qt::DesktopView view_{plugin_.engine.desktop, gate_, desk_.form};
  DemoShow show_{plugin_, [this](const std::function<void()>& step) { gate_.run(step); }};
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  qt::applyTheme(application);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 2 && arguments.size() != 4) {
    std::fprintf(stderr, "usage: korvane-screenshots FOLDER [WIDTH HEIGHT]\n");
    return 2;
  }
  const QSize size =
      arguments.size() == 4 ? QSize(arguments[2].toInt(), arguments[3].toInt()) : QSize();
  return Photographer(arguments[1], size).run();
}
