#include "desk/whole/DeskCues.h"

namespace korvane {

DeskCues::DeskCues(Plugin& plugin, DeskForm& desk)
    : stage(plugin), run(plugin.engine.timers, stage), form(plugin.engine, run), desk_(desk) {
  stage.getMaster = [&desk] { return desk.grandMaster.value(); };
  stage.putMaster = [&desk](int percent) { desk.grandMaster.setValue(percent); };
  desk.cues.onClick = [this, &plugin] { plugin.engine.desktop.show(form); };
  for (const auto& item : desk.commands)
    item->onClick = [this, name = item->name()] { runCommand(run, name, form.list.current() + 1); };
  MatrixForm& tool = plugin.matrixForm;
  tool.onLoaded = [this, own = tool.onLoaded] {
    if (own) own();
    run.findRows();
  };
  showCommands();
}

// Without cues their keys are free for whatever has the focus.
void DeskCues::showCommands() {
  for (const auto& item : desk_.commands) {
    const bool always =
        item->name() == "cueRecord" || item->name() == "tap" || item->name() == "autoPlay";
    const bool can = always || run.list.count() > 0;
    if (item->look().enabled != can) item->setEnabled(can);
    const bool lit = (item->name() == "autoPlay" && run.automatic.on()) ||
                     (item->name() == "cuePause" && run.cues.paused());
    item->setLit(lit);
  }
}

void DeskCues::settle() {
  if (form.visible()) form.keepTime();
}

void DeskCues::refresh() {
  run.followNames();
  run.tempo.goOn();
  showCommands();
  if (form.visible()) form.refresh();
}

}  // namespace korvane
