#include "hosts/desk/ProjectText.h"

#include <QFile>
#include <QTemporaryDir>
#include <functional>

#include "persistence/MatrixDefinition.h"
#include "persistence/ProjectFile.h"

namespace korvane {
namespace {

// Title, version, master, three counts. The selections follow, one for each list that has one.
constexpr int kHeadLines = 6;

std::string written(const std::function<void(const std::string& path)>& write) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("text");
  write(path.toStdString());
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) throw Failure(kPathAccess, path.toStdString());
  return file.readAll().toStdString();
}

std::string withoutLines(const std::string& text, int count) {
  std::size_t at = 0;
  for (; count > 0 && at != std::string::npos; --count) at = text.find('\n', at + 1);
  return at == std::string::npos ? std::string() : text.substr(at);
}

}  // namespace

std::string compositionText(Plugin& plugin) {
  const Engine& engine = plugin.engine;
  int head = kHeadLines;
  for (const ListView* list : {&engine.v.A.efxList, &engine.v.B.efxList, &engine.master.efxXList})
    head += list->selected() >= 0 ? 1 : 0;
  const auto write = [&engine](const std::string& path) {
    TextWriter file(path);
    writeProject(engine, {}, {}, file);
    file.close();
  };
  return withoutLines(written(write), head);
}

std::string definitionText(Plugin& plugin) {
  return written([&plugin](const std::string& path) {
    writeDefinition(plugin.engine, path, plugin.matrixConf.MName.text());
  });
}

}  // namespace korvane
