#include "hosts/desk/Options.h"

#include <QCommandLineParser>
#include <QDir>
#include <QStandardPaths>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace korvane {
namespace {

constexpr int kUsageError = 2;

QString defaultProject() {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QDir(QDir(documents).exists() ? documents : QDir::currentPath()).filePath("untitled");
}

OutputTarget readTarget(const QString& text) {
  try {
    return parseOutputTarget(text.toStdString());
  } catch (const std::invalid_argument& error) {
    std::fprintf(stderr, "korvane: %s\n", error.what());
    std::exit(kUsageError);
  }
}

}  // namespace

Options readOptions(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription("A desk for the matrix effects of Korvane.");
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addOptions({
      {"project", "Path of the project without an ending; its last part is the project's name.",
       "STEM", defaultProject()},
      {"show", "Opens a show, in the project named after its file.", "FILE"},
      {"output", "Sends the channels, as in sacn:1, artnet:0@192.168.1.20 or sacn:1%eth0.",
       "TARGET"},
      {"dmx", "Checks DMX in the tool window: the lamps follow the show at once."},
      {"screenshot", "Writes a picture of a window to the file and ends.", "FILE"},
      {"window", "The window on the screenshot, as in MatrixForm, MatrixConf or Desk.", "NAME",
       "MatrixForm"},
  });
  parser.process(arguments);
  Options options;
  options.project = parser.value("project").toStdString();
  options.show = parser.value("show");
  options.dmx = parser.isSet("dmx");
  if (parser.isSet("output")) options.output = readTarget(parser.value("output"));
  options.screenshot = parser.value("screenshot");
  options.window = parser.value("window");
  return options;
}

}  // namespace korvane
