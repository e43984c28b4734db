#include "desk/show/ShowCheck.h"

#include "desk/project/ShowPath.h"
#include "desk/show/DeskHost.h"
#include "persistence/MatrixDefinition.h"
#include "persistence/ProjectFile.h"
#include "platform/Events.h"
#include "platform/HeadlessPlatform.h"
#include "platform/ReplaceFile.h"
#include "shell/Plugin.h"

namespace korvane {
namespace {

/// A show whose grid file is broken can be opened on the default grid.
class Unseen : public HeadlessPlatform {
 public:
  bool startsWithout(const BrokenGrid&) override { return true; }
};

// What goes wrong, for people. Pictures are not looked for here: a show without one of its pictures
// opens all the same.
std::optional<std::string> whatIsWrongWith(const ShowFiles& files, const std::string& project,
                                           Platform& machine) {
  Unseen platform;
  platform.format = machine.numberFormat();
  platform.files = &machine.disk();
  DeskHost host(project);
  Plugin plugin(platform);
  const bool well = runEvent(platform, [&] {
    plugin.plugIn.ITharnPlugin_Init("Korvane", project, host);
    if (files.grid != project + kGridEnding) loadDefinition(plugin.engine, files.grid);
    plugin.matrixForm.Form::load();
    openProject(plugin.engine, files.show);
  });
  if (well) return std::nullopt;
  return platform.failures.back().what();
}

}  // namespace

ReadableShow readableShow(const std::string& show, Platform& machine) {
  const std::string project = projectOf(show), grid = project + kGridEnding;
  ReadableShow found;
  const auto wrong = whatIsWrongWith({show, grid}, project, machine);
  if (!wrong) return {ShowFiles{show, grid}, {}};
  found.wrong = *wrong;
  Disk& disk = machine.disk();
  if (!fileExists(show, disk)) return found;
  const auto tryOut = [&](const std::string& backup, const ShowFiles& files) {
    if (found.files || !fileExists(backup, disk)) return;
    if (!whatIsWrongWith(files, project, machine)) found.files = files;
  };
  for (const char* ending : {kGridAsideEnding, kBackupEnding})
    tryOut(grid + ending, {show, grid + ending});
  tryOut(show + kBackupEnding, {show + kBackupEnding, grid});
  return found;
}

}  // namespace korvane
