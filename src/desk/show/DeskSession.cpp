#include "desk/show/DeskSession.h"

#include <algorithm>
#include <array>
#include <exception>
#include <istream>
#include <iterator>
#include <utility>

#include "desk/project/ShowPath.h"
#include "persistence/MatrixDefinition.h"
#include "persistence/ProjectFile.h"
#include "platform/Events.h"
#include "platform/ReplaceFile.h"
#include "platform/TextFile.h"

namespace korvane {
namespace {

std::string compositionText(Plugin& plugin) {
  std::string text;
  TextWriter writer(&text);
  writeComposition(plugin.engine, {}, writer);
  return text;
}

std::string definitionText(Plugin& plugin) {
  std::string text;
  TextWriter writer(&text);
  writeDefinition(plugin.engine, plugin.matrixConf.MName.text(), writer);
  return text;
}

// Nothing for what can't be written.
std::optional<std::string> textOf(std::string (*text)(Plugin&), Plugin& plugin) {
  try {
    return text(plugin);
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

// Nothing for a file that is not there.
std::optional<std::string> bytesOf(const std::string& path, Disk& disk) {
  if (!fileExists(path, disk)) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(*disk.read(path)), {});
}

std::array<ListView*, 3> listsOf(Engine& engine) {
  return {&engine.v.A.efxList, &engine.v.B.efxList, &engine.master.efxXList};
}

}  // namespace

DeskSession::DeskSession(Platform& machine, const std::string& stem)
    : platform(machine),
      host(stem),
      plugin(platform),
      home_(folderOf(host.ProjectBaseFilename())),
      composition_{compositionText, {}},
      definition_{definitionText, {}} {
  runEvent(platform, [this, &stem] {
    plugin.plugIn.ITharnModule_ModuleInfo();
    plugin.plugIn.ITharnPlugin_Init("Korvane", stem, host);
  });
  bindTool();
}

DeskSession::~DeskSession() {
  runEvent(platform, [this] { plugin.plugIn.ITharnPlugin_Term(); });
}

// A dialog writes its name to the current row, so it is committed before another row is that. What
// the tool's own buttons do stays as it is.
void DeskSession::bindTool() {
  MatrixForm& tool = plugin.matrixForm;
  tool.save.onClick = [this, own = tool.save.onClick] {
    platform.onAnswered = [this](const std::string& show) { keepGridAside(show); };
    own();
    platform.onAnswered = nullptr;
    dropGridAside();
  };
  tool.onSaved = [this] { keepIn(platform.answered.value()); };
  tool.onLoaded = [this] {
    const std::string before = gridFile();
    keep(composition_);
    adopt(platform.answered.value());
    if (gridFile() != before) {
      definition_.kept = bytesOf(gridFile(), platform.disk());
      ++keeps_;
    }
  };
  plugin.matrixConf.onKept = [this] {
    if (platform.answered == gridFile()) keep(definition_);
  };
  bindDeck(plugin.engine.v.A, tool.panelA);
  bindDeck(plugin.engine.v.B, tool.panelB);
  platform.suggestName = [this](const FileQuestion& question) {
    if (question.purpose != FileQuestion::Purpose::Save) return std::string();
    if (question.filter.find(kGridEnding) != std::string::npos)
      return host.ProjectName() + kGridEnding;
    const bool show = question.filter.find(kShowEnding) != std::string::npos;
    return show ? host.ProjectName() + kShowEnding : std::string();
  };
}

// Another row, another kind, another dialog: each would leave an open one with a record that is not
// its own.
void DeskSession::bindDeck(Deck& deck, DeckPanel& panel) {
  deck.efxList.beforeClick = [this, &deck](int row) {
    if (row != deck.efxList.current()) commitDialog(deck);
  };
  const auto commitFirst = [this](auto& handler) {
    handler = [this, own = handler](auto... arguments) {
      commitDialogs();
      own(arguments...);
    };
  };
  commitFirst(deck.type.onClick);
  commitFirst(deck.efxList.onDoubleClick);
  for (Button* button : {&panel.edit, &panel.clear}) commitFirst(button->onClick);
  for (PictureButton* button : {&panel.remove, &panel.pasteMem}) commitFirst(button->onClick);
}

void DeskSession::openTool() {
  const bool first = !plugin.matrixForm.loaded();
  const bool closed = !first && !plugin.matrixForm.visible();
  plugin.engine.desktop.show(plugin.matrixForm);
  if (closed) selectRowsAgain();  // closing the tool has stopped the decks
  if (!first) return;
  selectFirstRows();
  keep(composition_);
  keep(definition_);
}

// A new show plays: the plug-in starts nothing until a row is pressed.
void DeskSession::selectFirstRows() {
  for (ListView* list : listsOf(plugin.engine)) runEvent(platform, [list] { list->click(0, 0); });
}

void DeskSession::selectRowsAgain() {
  for (Deck* deck : {&plugin.engine.v.A, &plugin.engine.v.B}) {
    const int row = deck->efxList.current();
    if (row >= 0) runEvent(platform, [&] { deck->efxList.click(row, 0); });
  }
}

void DeskSession::commitDialog(const Deck& deck) {
  if (&plugin.engine.editedDeck() != &deck) return;
  for (const auto& dialog : plugin.dialogs.byType) {
    runEvent(platform, [&dialog] {
      dialog->commit();
      if (dialog->visible()) dialog->OK_Click();  // Paint is committed by its OK alone
    });
    plugin.engine.desktop.hide(*dialog);
    for (const DialogWindow& window : dialog->windows()) plugin.engine.desktop.hide(window.form);
  }
}

void DeskSession::commitDialogs() { commitDialog(plugin.engine.editedDeck()); }

// What a plug-in that was just made would not have.
void DeskSession::clearRecords() {
  Variablen& v = plugin.engine.v;
  for (Deck* deck : {&v.A, &v.B}) {
    deck->efx.clear();
    deck->efxEdited.clear();
    deck->transitionRunning = deck->beatOn = false;
    deck->savedFadeMode = deck->imagePosX = deck->imagePosY = deck->scrollLength = 0;
    deck->steps = deck->step = 0;
    deck->scrollStrip.clear();
    deck->cellOrder.clear();
    deck->efxBackup = {};
  }
  v.efxX.clear();
  v.fadeRunning = false;
  v.fadeOrder.clear();
  plugin.engine.master.AutoFadeA.setBackColor(-1);
  plugin.engine.master.AutoFadeB.setBackColor(-1);
}

void DeskSession::loadToolAfresh() {
  clearRecords();
  if (plugin.matrixForm.loaded()) return plugin.matrixForm.onLoad();
  plugin.matrixForm.Form::load();
}

bool DeskSession::load(const std::function<void()>& steps) {
  loading_ = true;
  const bool well = runEvent(platform, steps);
  loading_ = false;
  ++loads_;
  return well;
}

void DeskSession::begin() {
  commitDialogs();
  path_.clear();
  host.setProject(home_ + "untitled");
  load([this] {
    loadToolAfresh();
    plugin.engine.master.faderM.setValue(0);
  });
  openTool();
  selectFirstRows();
  keep(composition_);
  keep(definition_);
  if (onFile) onFile();
}

bool DeskSession::open(const std::string& show) { return open(show, folderOf(show)); }

bool DeskSession::open(const std::string& show, const std::string& folder) {
  const ReadableShow readable = readableShow(show, platform);
  if (!readable.files) {
    platform.messageBox(showName(show) + " can't be opened. " + readable.wrong);
    return false;
  }
  commitDialogs();
  Variablen& v = plugin.engine.v;
  host.setProject(projectOf(show));
  host.clearLevels();
  v.matrixConfigured = v.quickConfigured = false;
  v.matrixName = "unnamed";
  const bool well = load([this, &folder, &files = *readable.files] {
    if (files.grid != gridFile()) loadDefinition(plugin.engine, files.grid);
    loadToolAfresh();
    plugin.matrixConf.MName.setText(plugin.engine.v.matrixName);
    // The lamps must not flash in the colours of a new list.
    plugin.matrixForm.panelA.clear.click();
    plugin.matrixForm.panelB.clear.click();
    openProject(plugin.engine, files.show, folder);
  });
  showGrid();
  keep(composition_);
  keep(definition_);
  adopt(show);
  plugin.engine.desktop.show(plugin.matrixForm);
  if (!readable.wrong.empty()) tellOfBackup(show, readable);
  return well;
}

// It counts as changed until the person has saved it.
void DeskSession::tellOfBackup(const std::string& show, const ReadableShow& readable) {
  for (Document* document : {&composition_, &definition_}) document->kept.reset();
  ++keeps_;
  const bool older = readable.files->show != show;
  const bool next = readable.files->grid.ends_with(kGridAsideEnding);
  const std::string from = fileTitle(older ? readable.files->show : readable.files->grid);
  platform.messageBox(showName(show) + " can't be read" + (older ? "" : " on its grid") + ": " +
                      readable.wrong + ". " +
                      (older  ? "What it was before it was saved last is open instead"
                       : next ? "It is open on the grid that was to be saved next"
                              : "It is open on the grid before") +
                      ", from " + from + ". Save it to keep that.");
}

std::string DeskSession::showText() {
  std::string text;
  TextWriter writer(&text);
  const std::string title = path_.empty() ? name() + kShowEnding : fileTitle(path_);
  writeProject(plugin.engine, platform.numberFormat(), title, writer);
  return text;
}

std::string DeskSession::gridText() { return definitionText(plugin); }

bool DeskSession::restore(const std::string& copy, const std::string& original) {
  const auto told = std::exchange(onFile, nullptr);  // the copy is nobody's file
  const bool well = open(copy, original.empty() ? home_ : folderOf(original));
  onFile = told;
  if (!well) return false;
  path_ = original;
  host.setProject(original.empty() ? home_ + showName(copy) : projectOf(original));
  readProjectNames(plugin.engine);
  composition_.kept.reset();
  definition_.kept.reset();
  ++keeps_;
  if (onFile) onFile();
  return true;
}

// The window that defines the grid may have been looked at before.
void DeskSession::showGrid() {
  if (!plugin.matrixConf.loaded()) return;
  runEvent(platform, [this] {
    plugin.matrixConf.onActivate();
    plugin.matrixConf.redraw_config();
  });
}

bool DeskSession::needsGrid(const std::string& show) {
  return show != path_ || changed(definition_) ||
         !fileExists(projectOf(show) + kGridEnding, platform.disk());
}

// Both files or none of them: a show can't be read on a grid that is smaller than its own.
bool DeskSession::save(const std::string& show) {
  commitDialogs();
  try {
    std::vector<TextToKeep> files;
    if (needsGrid(show))
      files.push_back(definitionToKeep(plugin.engine, projectOf(show) + kGridEnding,
                                       plugin.matrixConf.MName.text()));
    files.push_back(projectToKeep(plugin.engine, show));
    replaceTextFiles(files, platform.disk());
  } catch (const std::exception& error) {
    tellOfFailedProject(platform, show, error.what());
    return false;
  }
  gridAside_ = projectOf(show) + kGridEnding + kGridAsideEnding;
  dropGridAside();  // of a save that the power has broken off
  plugin.matrixForm.setCaption("Korvane - " + fileTitle(show));
  keep(composition_);
  keep(definition_);
  adopt(show);
  return true;
}

// The tool has written the show to its file; its grid belongs beside it.
void DeskSession::keepIn(const std::string& show) {
  const bool gridToo = needsGrid(show);
  keep(composition_);
  adopt(show);
  if (!gridToo) return;
  try {
    writeDefinition(plugin.engine, gridFile(), plugin.matrixConf.MName.text());
    keep(definition_);
  } catch (const std::exception&) {
    definition_.kept.reset();  // it was told
    ++keeps_;
  }
}

// The tool saves the show, and its grid follows: the power may fail between the two.
void DeskSession::keepGridAside(const std::string& show) {
  if (!needsGrid(show)) return;
  const std::string path = projectOf(show) + kGridEnding + kGridAsideEnding;
  try {
    const TextToKeep grid = definitionToKeep(plugin.engine, path, plugin.matrixConf.MName.text());
    replaceTextFile(
        path, grid.write, [](const std::string&) { return true; }, platform.disk());
    gridAside_ = path;
  } catch (const std::exception&) {
    // Where that can't be written the save will tell.
  }
}

void DeskSession::dropGridAside() {
  if (!gridAside_.empty()) platform.disk().remove(std::exchange(gridAside_, {}));
}

void DeskSession::adopt(const std::string& show) {
  path_ = show;
  host.setProject(projectOf(show));
  readProjectNames(plugin.engine);
  if (onFile) onFile();
}

std::string DeskSession::name() { return host.ProjectName(); }

std::string DeskSession::folder() { return folderOf(host.ProjectBaseFilename()); }

std::string DeskSession::gridFile() { return host.ProjectBaseFilename() + kGridEnding; }

void DeskSession::keep(Document& document) {
  document.kept = textOf(document.text, plugin);
  ++keeps_;
}

bool DeskSession::changed(const Document& document) {
  const std::optional<std::string> now = textOf(document.text, plugin);
  return !now || now != document.kept;
}

bool DeskSession::changed() {
  return plugin.matrixForm.loaded() && (changed(composition_) || changed(definition_));
}

}  // namespace korvane
