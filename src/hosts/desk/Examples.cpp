#include "hosts/desk/Examples.h"

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>

namespace korvane {
namespace {

// From the folder of the program: PREFIX/bin, or build/PRESET/bin in the tree.
constexpr const char* kFolders[] = {"../share/korvane/examples", "../../../examples"};

QString titleOf(const QFileInfo& file) {
  static const QRegularExpression number("^[0-9]+-");
  QString title = file.completeBaseName().remove(number).replace('-', ' ');
  if (!title.isEmpty()) title[0] = title[0].toUpper();
  return title;
}

}  // namespace

QList<Example> examplesIn(const QString& folder) {
  QList<Example> examples;
  if (folder.isEmpty()) return examples;
  for (const QFileInfo& file :
       QDir(folder).entryInfoList({"*.Korvane"}, QDir::Files | QDir::Readable, QDir::Name))
    examples.append({titleOf(file), file.absoluteFilePath()});
  return examples;
}

QString examplesFolder() {
  for (const char* folder : kFolders) {
    const QDir found(QDir(QCoreApplication::applicationDirPath()).filePath(folder));
    if (found.exists()) return found.canonicalPath();
  }
  return {};
}

}  // namespace korvane
