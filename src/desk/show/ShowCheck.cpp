#include "desk/show/ShowCheck.h"

#include "desk/project/ShowPath.h"
#include "desk/show/DeskHost.h"
#include "persistence/ProjectFile.h"
#include "platform/Events.h"
#include "platform/HeadlessPlatform.h"
#include "shell/Plugin.h"

namespace korvane {
namespace {

/// A show whose grid file is broken can be opened on the default grid.
class Unseen : public HeadlessPlatform {
 public:
  bool startsWithout(const BrokenGrid&) override { return true; }
};

}  // namespace

// Pictures are not looked for here: a show without one of its pictures opens all the same.
std::optional<std::string> whatIsWrongWith(const std::string& show, Platform& machine) {
  Unseen platform;
  platform.format = machine.numberFormat();
  platform.files = &machine.disk();
  DeskHost host(projectOf(show));
  Plugin plugin(platform);
  const bool well = runEvent(platform, [&] {
    plugin.plugIn.ITharnPlugin_Init("Korvane", projectOf(show), host);
    plugin.matrixForm.Form::load();
    openProject(plugin.engine, show);
  });
  if (well) return std::nullopt;
  return platform.failures.back().what();
}

}  // namespace korvane
