#include "hosts/desk/DeskSession.h"

#include <exception>

#include "hosts/desk/ProjectText.h"
#include "persistence/MatrixDefinition.h"
#include "persistence/ProjectFile.h"

namespace korvane {
namespace {

constexpr std::string_view kEnding = ".Korvane";

// Nothing for what can't be written.
std::optional<std::string> textOf(std::string (*text)(Plugin&), Plugin& plugin) {
  try {
    return text(plugin);
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

}  // namespace

std::string projectOf(const std::string& show) {
  return show.ends_with(kEnding) ? show.substr(0, show.size() - kEnding.size()) : show;
}

DeskSession::DeskSession(Platform& platform, NetworkOutput& output, const std::string& stem)
    : host(stem, output),
      plugin(platform),
      gate(platform, plugin.engine.timers),
      view(plugin.engine.desktop, gate, plugin.matrixForm),
      composition_{compositionText, {}},
      definition_{definitionText, {}} {
  plugin.matrixForm.onKept = [this] { keep(composition_); };
  plugin.matrixConf.onKept = [this] { keep(definition_); };
  gate.run([this, &stem] {
    plugin.plugIn.ITharnModule_ModuleInfo();
    plugin.plugIn.ITharnPlugin_Init("Korvane", stem, host);
  });
}

DeskSession::~DeskSession() {
  gate.run([this] { plugin.plugIn.ITharnPlugin_Term(); });
}

bool DeskSession::load(const std::string& show) {
  const bool loaded = gate.run([this, &show] {
    plugin.matrixForm.Form::load();
    // The lamps must not flash in the colours of a new list.
    plugin.matrixForm.panelA.clear.click();
    plugin.matrixForm.panelB.clear.click();
    openProject(plugin.engine, show);
  });
  keepAll();
  return loaded;
}

void DeskSession::openTool() {
  const bool first = !plugin.matrixForm.loaded();
  gate.run([this] { plugin.engine.desktop.show(plugin.matrixForm); });
  if (first && plugin.matrixForm.loaded()) keepAll();
}

void DeskSession::follow(DeskSession& before) {
  host.follow(before.host);
  openTool();
  MatrixForm& tool = plugin.matrixForm;
  MatrixForm& toolBefore = before.plugin.matrixForm;
  gate.run([&] { tool.active.setValue(toolBefore.active.value()); });
  gate.run([&] { tool.mxsim_active.setValue(toolBefore.mxsim_active.value()); });
  for (Form* form : before.plugin.engine.desktop.forms()) {
    Form* mine = plugin.engine.desktop.find(form->name());
    if (form->loaded() && mine->visible())
      view.window(*mine).restoreGeometry(before.view.window(*form).saveGeometry());
  }
}

std::string DeskSession::directory() {
  return systemPath(host.ProjectBaseFilename()).parent_path().string();
}

void DeskSession::warnOfMissingGrid() {
  const std::string file = definitionFile(plugin.engine);
  if (fileExists(file)) return;
  const Variablen& v = plugin.engine.v;
  plugin.engine.platform.messageBox("There is no grid file " + file + ". The show plays on " +
                                    std::to_string(v.matrixCols) + " x " +
                                    std::to_string(v.matrixRows) + " lamps.");
}

void DeskSession::keep(Document& document) { document.kept = textOf(document.text, plugin); }

void DeskSession::keepAll() {
  keep(composition_);
  keep(definition_);
}

bool DeskSession::changed(const Document& document) {
  const std::optional<std::string> now = textOf(document.text, plugin);
  return !now || now != document.kept;
}

bool DeskSession::changed() {
  return plugin.matrixForm.loaded() && (changed(composition_) || changed(definition_));
}

bool DeskSession::save() {
  if (changed(composition_)) gate.run([this] { plugin.matrixForm.save.click(); });
  if (changed(composition_)) return false;
  if (changed(definition_)) gate.run([this] { plugin.matrixForm.ITharnTool_SaveProjectData(); });
  return !changed(definition_);
}

}  // namespace korvane
