#include <QApplication>
#include <QTimer>
#include <cstdio>

#include "hosts/desk/DeskWindow.h"
#include "hosts/desk/Options.h"
#include "hosts/desk/QuitOnSignal.h"
#include "views/qt/machine/QtPlatform.h"
#include "views/qt/windows/Theme.h"

namespace {

using namespace korvane;

constexpr int kSettleMilliseconds = 300;

// The window of this name, shown if it was not; nullptr for an unknown name.
QWidget* windowNamed(const QString& name, DeskWindow& desk) {
  if (name == desk.objectName()) return &desk;
  DeskSession& session = desk.session();
  Desktop& desktop = session.plugin.engine.desktop;
  Form* form = desktop.find(name.toStdString());
  if (form == nullptr) return nullptr;
  session.gate.run([&] { desktop.show(*form); });
  return &session.view.window(*form);
}

// Ends the program with a picture of the window in a file.
void takePicture(QWidget* window, const Options& options) {
  if (window == nullptr) {
    std::fprintf(stderr, "korvane: no window '%s'\n", qUtf8Printable(options.window));
    return QCoreApplication::exit(1);
  }
  const bool saved = window->grab().save(options.screenshot);
  if (!saved)
    std::fprintf(stderr, "korvane: cannot write %s\n", qUtf8Printable(options.screenshot));
  QCoreApplication::exit(saved ? 0 : 1);
}

// What the command line asks for, once events are handled.
void begin(DeskWindow& desk, const Options& options) {
  if (!options.show.isEmpty()) desk.openShow(options.show);
  desk.openTool();
  if (options.dmx) {
    DeskSession& session = desk.session();
    session.gate.run([&session] { session.plugin.matrixForm.active.setValue(1); });
  }
  if (options.screenshot.isEmpty()) return;
  QWidget* window = windowNamed(options.window, desk);
  auto* settled = new QTimer(&desk);
  settled->callOnTimeout([&options, window] { takePicture(window, options); });
  settled->start(kSettleMilliseconds);
}

}  // namespace

int main(int argc, char** argv) {
  QuitOnSignal quitOnSignal;
  QApplication application(argc, argv);
  quitOnSignal.listen();
  QApplication::setApplicationName("korvane");
  QApplication::setApplicationVersion(KORVANE_VERSION);
  QApplication::setQuitOnLastWindowClosed(false);
  qt::applyTheme(application);
  const Options options = readOptions(QApplication::arguments());

  qt::QtPlatform platform;
  NetworkOutput output("korvane");
  DeskWindow desk(platform, output, options.project, examplesIn(examplesFolder()));
  desk.onClosed = [] { QApplication::exit(); };
  if (options.output) desk.outputPanel().use(*options.output);
  desk.show();
  QMetaObject::invokeMethod(
      &desk, [&] { begin(desk, options); }, Qt::QueuedConnection);
  return QApplication::exec();
}
