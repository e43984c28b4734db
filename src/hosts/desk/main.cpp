#include <QApplication>
#include <QTimer>
#include <cstdio>

#include "hosts/desk/DeskWindow.h"
#include "hosts/desk/Options.h"
#include "hosts/desk/QuitOnSignal.h"
#include "views/qt/machine/QtPlatform.h"
#include "views/qt/windows/DesktopView.h"
#include "views/qt/windows/Theme.h"

namespace {

using namespace korvane;

constexpr int kSettleMilliseconds = 300;

// The window of this name, shown if it was not; nullptr for an unknown name.
QWidget* windowNamed(const QString& name, DeskWindow& desk, DesktopView& view, Plugin& plugin,
                     EventGate& gate) {
  if (name == desk.objectName()) return &desk;
  Form* form = plugin.engine.desktop.find(name.toStdString());
  if (form == nullptr) return nullptr;
  gate.run([&] { plugin.engine.desktop.show(*form); });
  return &view.window(*form);
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

}  // namespace

int main(int argc, char** argv) {
  QuitOnSignal quitOnSignal;
  QApplication application(argc, argv);
  quitOnSignal.listen();
  QApplication::setApplicationName("korvane");
  QApplication::setApplicationVersion(KORVANE_VERSION);
  QApplication::setQuitOnLastWindowClosed(false);
  applyTheme(application);
  const Options options = readOptions(QApplication::arguments());

  QtPlatform platform;
  NetworkOutput output("korvane");
  DeskHost host(options.project, output);
  Plugin plugin(platform);
  EventGate gate(platform, plugin.engine.timers);
  DesktopView view(plugin.engine.desktop, gate, plugin.matrixForm);
  gate.run([&] {
    plugin.plugIn.ITharnModule_ModuleInfo();
    plugin.plugIn.ITharnPlugin_Init("Korvane", options.project, host);
  });

  DeskWindow desk(plugin, host, output, gate);
  if (options.output) desk.outputPanel().use(*options.output);
  desk.show();
  desk.openTool();
  if (!options.screenshot.isEmpty()) {
    QWidget* window = windowNamed(options.window, desk, view, plugin, gate);
    QTimer::singleShot(kSettleMilliseconds, [&, window] { takePicture(window, options); });
  }
  const int result = QApplication::exec();
  gate.run([&] { plugin.plugIn.ITharnPlugin_Term(); });
  return result;
}
