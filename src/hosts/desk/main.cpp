// korvane: the stand-alone desk for a person.

#include <QApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "desk/project/StateFolder.h"
#include "desk/whole/Desk.h"
#include "hosts/desk/DroppedFiles.h"
#include "hosts/desk/MousePresses.h"
#include "hosts/desk/Options.h"
#include "hosts/desk/QuitOnSignal.h"
#include "views/qt/machine/LoopGate.h"
#include "views/qt/machine/QtPlatform.h"
#include "views/qt/machine/SystemShade.h"
#include "views/qt/windows/DesktopView.h"
#include "views/qt/windows/Theme.h"

namespace korvane {
namespace {

enum ExitStatus { kWell, kFailed, kWrongUsage };

constexpr int kSettleMilliseconds = 300;

void complain(const std::string& text) { std::cerr << "korvane: " << text << std::endl; }

DeskPlaces placesOf(const Options& options) {
  const auto folder = [](QStandardPaths::StandardLocation location) {
    return QStandardPaths::writableLocation(location);
  };
  const QString documents = folder(QStandardPaths::DocumentsLocation);
  const QString home = QDir(documents).exists() ? documents : QDir::homePath();
  DeskPlaces places;
  places.project =
      options.project.empty() ? QDir(home).filePath("untitled").toStdString() : options.project;
  places.examples =
      examplesIn(examplesBeside(QCoreApplication::applicationDirPath().toStdString()));
  places.recentShows =
      QDir(folder(QStandardPaths::AppConfigLocation)).filePath("recent-shows").toStdString();
  places.choices =
      QDir(folder(QStandardPaths::AppConfigLocation)).filePath("choices").toStdString();
  places.keys = QDir(folder(QStandardPaths::AppConfigLocation)).filePath("keys.json").toStdString();
  if (options.outputs.empty())
    places.outputs =
        QDir(folder(QStandardPaths::AppConfigLocation)).filePath("outputs").toStdString();
  const std::string state = stateFolder();
  if (!state.empty()) places.kept = state + "desk/";
  return places;
}

/// The desk on a screen.
class Program {
 public:
  explicit Program(const Options& options);

  /// What the command line asks for, once events are handled.
  void begin();
  /// Ends the sending, unless the desk was closed and has done so.
  void end() {
    if (!desk_.closed()) desk_.finish();
  }

 private:
  bool openShow();
  void takePicture();
  void showLook();

  const Options& options_;
  qt::QtPlatform platform_;
  LampFeed feed_{"korvane"};
  Desk desk_;
  qt::LoopGate gate_{platform_, desk_.engine().timers};
  qt::DesktopView view_{desk_.engine().desktop, gate_, desk_.form, desk_.windowsBeside()};
  qt::Shade shade_ = qt::Shade::Dark;
  qt::SystemShade system_{qt::SystemShade::sessionBus()};
  MousePresses presses_;
  DroppedFiles dropped_{view_.window(desk_.form), [this](const std::string& path) {
                          gate_.run([&] { desk_.files.open(path); });
                        }};
  QTimer settled_;
};

Program::Program(const Options& options)
    : options_(options), desk_(platform_, feed_, placesOf(options)) {
  gate_.afterEvent = [this] { desk_.refresh(); };
  gate_.afterTicks = [this] { desk_.settle(); };
  desk_.history.presses = [this] { return presses_.count(); };
  desk_.history.held = MousePresses::held;
  desk_.onQuit = [] { QApplication::exit(kWell); };
  desk_.choices.onLook = system_.onChange = [this] { showLook(); };
  showLook();
  gate_.run([this] { desk_.show(); });
}

void Program::showLook() {
  const WindowLook look = desk_.choices.look();
  const qt::Shade chosen = look == WindowLook::Light ? qt::Shade::Light : qt::Shade::Dark;
  const qt::Shade now = look == WindowLook::System ? system_.shade() : chosen;
  if (now != shade_) qt::applyTheme(*qApp, now);
  shade_ = now;
}

/// False if there is one to open and that can't be done.
bool Program::openShow() {
  if (options_.show.empty()) return true;
  std::error_code error;
  const std::filesystem::path path = std::filesystem::absolute(options_.show, error);
  gate_.run([&] { desk_.files.open(error ? options_.show : path.lexically_normal().string()); });
  return desk_.session.plugin.matrixForm.visible();
}

// Nothing is sent of a show that isn't the one that was asked for.
void Program::begin() {
  if (openShow()) {
    for (const OutputConfig& output : options_.outputs) gate_.run([&] { desk_.setup.use(output); });
    if (options_.dmx) gate_.run([this] { desk_.form.dmx.click(); });
    desk_.files.keepAsIs();
  }
  if (options_.screenshot.empty()) {
    if (options_.show.empty()) gate_.run([this] { desk_.files.openLast(); });
    gate_.run([this] { desk_.files.offerLeft(); });
    return;
  }
  settled_.setSingleShot(true);
  settled_.callOnTimeout([this] { takePicture(); });
  settled_.start(kSettleMilliseconds);
}

// Ends the program with a picture of the window in a file.
void Program::takePicture() {
  Form* form = desk_.engine().desktop.find(options_.window);
  if (form == nullptr) {
    complain("no window '" + options_.window + "'");
    return QCoreApplication::exit(kFailed);
  }
  gate_.run([&] { desk_.engine().desktop.show(*form); });
  settled_.callOnTimeout([this, form] {
    const QString file = QString::fromStdString(options_.screenshot);
    const bool saved = view_.window(*form).grab().save(file);
    if (!saved) complain("cannot write " + options_.screenshot);
    QCoreApplication::exit(saved ? kWell : kFailed);
  });
  settled_.start(kSettleMilliseconds);
}

constexpr const char* kNoDisplay =
    "there is no display to show the desk on. Start it within a graphical session, or play a show "
    "in this terminal with korvane-play SHOW.";

// The toolkit gives up without a display; what it says to that is no help to anybody.
void tellOfDisplay(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg) {
    complain(kNoDisplay);
    std::_Exit(kFailed);
  }
  if (!text.contains("platform plugin") && !text.contains("could not connect to display"))
    std::fprintf(stderr, "%s\n", qUtf8Printable(text));
}

bool displayNamed() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

// A path from the command line is of no use without the folder that it starts from.
bool lostFolder(const Options& options) {
  std::error_code error;
  const std::filesystem::path here = std::filesystem::current_path(error);
  const auto relative = [](const std::string& path) {
    return !path.empty() && std::filesystem::path(path).is_relative();
  };
  return here.empty() && (relative(options.show) || relative(options.project));
}

int run(int count, char** words) {
  const Options options = parseOptions(count, words);
  if (options.help) return std::cout << kUsage, kWell;
  if (options.version) return std::cout << "korvane " KORVANE_VERSION "\n", kWell;
  if (lostFolder(options)) {
    complain("the working folder is gone. Go to a folder that exists, or name the show in full.");
    return kFailed;
  }
  if (!displayNamed()) return complain(kNoDisplay), kFailed;
  QuitOnSignal quitOnSignal;
  qInstallMessageHandler(tellOfDisplay);
  QApplication application(count, words);
  qInstallMessageHandler(nullptr);
  quitOnSignal.listen();
  QApplication::setApplicationName("korvane");
  QApplication::setQuitOnLastWindowClosed(false);
  qt::applyTheme(application);
  Program program(options);
  QMetaObject::invokeMethod(
      &application, [&] { program.begin(); }, Qt::QueuedConnection);
  const int status = QApplication::exec();
  program.end();
  return status;
}

}  // namespace
}  // namespace korvane

int main(int count, char** words) {
  try {
    return korvane::run(count, words);
  } catch (const korvane::UsageError& error) {
    korvane::complain(std::string(error.what()) + "; --help tells the usage");
    return korvane::kWrongUsage;
  }
}
