#include "desk/whole/DeskFiles.h"

#include <algorithm>
#include <exception>

#include "desk/project/ShowPath.h"
#include "platform/ReplaceFile.h"

namespace korvane {
namespace {

constexpr const char* kShowFilter = "Matrix Project (*.Korvane)|*.Korvane";
constexpr const char* kOpenFilter =
    "Project: show, desk or grid (*.Korvane, *.korvanedesk, *.korvaneconf)"
    "|*.Korvane;*.korvanedesk;*.korvaneconf";
constexpr std::size_t kMostFaults = 10;  // that are told at once

std::string projectFile(const std::string& show) { return projectOf(show) + kDeskProjectEnding; }

// The name of a file beside the project, for those who read it.
Section nameOf(const char* member, DeskSession& session, const char* ending) {
  return {member, [&session, ending] { return Json(session.name() + ending); },
          [](const Member&) {}, Counts::Never};
}

std::string lines(const std::vector<std::string>& faults) {
  std::string text;
  for (std::size_t i = 0; i < std::min(faults.size(), kMostFaults); ++i) text += "\n" + faults[i];
  if (faults.size() > kMostFaults)
    text += "\nand " + std::to_string(faults.size() - kMostFaults) + " more";
  return text;
}

}  // namespace

DeskFiles::DeskFiles(DeskSession& session, DeskForm& form, DeskQuestion& question,
                     const std::string& recentFile)
    : project(session.platform.disk()),
      session_(session),
      form_(form),
      question_(question),
      recent_(recentFile, session.platform.disk()) {
  project.add(nameOf("show", session, kShowEnding));
  project.add(nameOf("grid", session, kGridEnding));
  form.newShow.onClick = [this] { begin(); };
  form.open.onClick = [this] {
    const auto path = session_.platform.askFile(
        {.title = "Open Show ...", .filter = kOpenFilter, .initialDirectory = session_.folder()});
    if (path) open(*path);
  };
  for (std::size_t i = 0; i < form.recent.size(); ++i)
    form.recent[i]->onClick = [this, i] { open(std::string(recent_.paths().at(i))); };
  form.save.onClick = [this] { save(); };
  form.saveAs.onClick = [this] { saveAs(); };
  session.onFile = [this] {
    if (session_.path().empty()) return;
    recent_.add(session_.path());
    form_.showRecent(recent_.paths());
  };
  form.showRecent(recent_.paths());
}

void DeskFiles::open(const std::string& path) {
  leave([this, path] { openNow(path); });
}

void DeskFiles::openNow(const std::string& path) {
  const std::string show = showOfProject(path, session_.platform.disk());
  if (session_.open(show))
    openProject(path.ends_with(kDeskProjectEnding) ? path : projectFile(show));
}

void DeskFiles::openProject(const std::string& path) {
  const std::vector<std::string> faults = project.open(path);
  keepAsIs();
  if (faults.empty()) return;
  session_.platform.messageBox(fileTitle(path) + " was read, but for this:" + lines(faults));
}

void DeskFiles::begin() {
  leave([this] {
    session_.begin();
    project.begin();
    keepAsIs();
  });
}

bool DeskFiles::save() { return session_.path().empty() ? saveAs() : saveTo(session_.path()); }

bool DeskFiles::saveAs() {
  const auto path = session_.platform.askFile({.purpose = FileQuestion::Purpose::Save,
                                               .title = "Save Show as ...",
                                               .filter = kShowFilter,
                                               .initialDirectory = session_.folder(),
                                               .defaultExtension = "Korvane"});
  return path && saveTo(*path);
}

bool DeskFiles::saveTo(const std::string& show) {
  if (!session_.save(show)) return false;
  const std::string path = projectFile(show);
  try {
    project.save(path);
  } catch (const std::exception& error) {
    tellOfFailedSave(session_.platform, path, error.what(),
                     [](const std::string&) { return false; });
    return false;
  }
  keepAsIs();
  return true;
}

bool DeskFiles::changed() {
  return session_.changed() || (session_.plugin.matrixForm.loaded() && project.changes() != kept_);
}

void DeskFiles::leave(std::function<void()> then) {
  session_.commitDialogs();
  if (!changed()) return then();
  question_.ask(session_.name() + " was changed since it was opened or saved.",
                {"Save", "Discard", "Cancel"}, [this, then = std::move(then)](std::size_t answer) {
                  if (answer == 1 || (answer == 0 && save())) then();
                });
}

void DeskFiles::showTitle() {
  const bool open = session_.plugin.matrixForm.loaded();
  for (MenuItem* item : {&form_.save, &form_.saveAs}) {
    if (item->look().enabled != open) item->setEnabled(open);
  }
  const std::string mark = changed() ? "*" : "";
  const std::string title = open ? session_.name() + mark + " - Korvane" : "Korvane";
  if (title != form_.caption()) form_.setCaption(title);
}

}  // namespace korvane
