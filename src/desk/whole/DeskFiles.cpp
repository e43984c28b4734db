#include "desk/whole/DeskFiles.h"

#include <unistd.h>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <ostream>
#include <system_error>
#include <utility>

#include "desk/project/ShowPath.h"
#include "platform/ReplaceFile.h"

namespace korvane {
namespace {

constexpr const char* kShowFilter = "Matrix Project (*.Korvane)|*.Korvane";
constexpr const char* kOpenFilter =
    "Project: show, desk or grid (*.Korvane, *.korvanedesk, *.korvaneconf)"
    "|*.Korvane;*.korvanedesk;*.korvaneconf";
constexpr const char* kLastMark = "-open-last";  // a file beside that of the recent shows
constexpr std::int64_t kQuiet = 3000;     // ms without an event, until a project is kept aside
constexpr std::int64_t kLongest = 30000;  // and with events all the time
constexpr std::size_t kMostFaults = 10;   // that are told at once

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
                     const std::string& recentFile, const std::string& kept)
    : project(session.platform.disk()),
      session_(session),
      form_(form),
      question_(question),
      recent_(recentFile, session.platform.disk()),
      shows_(kept) {
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
    hold();
    if (session_.path().empty()) return;
    recent_.add(session_.path());
    form_.showRecent(recent_.paths());
  };
  form.showRecent(recent_.paths());
  Disk& disk = session.platform.disk();
  form.openLast.setLit(!recentFile.empty() && fileExists(recentFile + kLastMark, disk));
  form.openLast.onClick = [this, &disk, mark = recentFile + kLastMark] {
    form_.openLast.setLit(!form_.openLast.lit());
    disk.remove(mark);
    if (!form_.openLast.lit()) return;
    disk.makeFolders(utf8Path(systemPath(mark).parent_path()));
    *disk.write(mark) << "the last show opens at the start\n";
  };
}

void DeskFiles::openLast() {
  if (form_.openLast.lit() && !recent_.paths().empty()) open(std::string(recent_.paths().front()));
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
  forgetKept();
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

bool DeskFiles::showChanged() {
  const std::int64_t now = version();
  if (!look_ || look_->version != now || look_->keeps != session_.keeps())
    look_ = {now, session_.keeps(), session_.changed()};
  return look_->changed;
}

bool DeskFiles::changed() {
  return showChanged() || (session_.plugin.matrixForm.loaded() && project.changes() != kept_);
}

void DeskFiles::leave(std::function<void()> then) {
  session_.commitDialogs();
  look_.reset();  // what this event has done so far is not noted yet
  if (!changed()) return then();
  question_.ask(session_.name() + " was changed since it was opened or saved.",
                {"Save", "Discard", "Cancel"}, [this, then = std::move(then)](std::size_t answer) {
                  if (answer == 2 || (answer == 0 && !save())) return;
                  forgetKept();
                  then();
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

// Of a show that another desk has open, this one keeps changes of its own.
void DeskFiles::hold() {
  if (held_ == session_.path()) return;
  if (writing_.valid()) writing_.wait();
  if (held_) shows_.drop();  // it has become another project, by a save or by leaving it
  aside_ = {};
  held_ = session_.path();
  const std::string other = shows_.hold(*held_);
  fault_ = other.empty()
               ? std::string()
               : session_.name() + " was open in another desk, too, when it was opened: " + other +
                     ". Whichever saves last is what stays.";
}

void DeskFiles::noteEvent(std::int64_t now) {
  if (!pending_) changedAt_ = now;
  eventAt_ = now;
  pending_ = true;
}

void DeskFiles::keepAside(std::int64_t now) {
  if (!pending_ || (now - eventAt_ < kQuiet && now - changedAt_ < kLongest)) return;
  pending_ = false;
  keepNow();
}

// The disk may take its time: the desk does not wait for it.
void DeskFiles::keepNow() {
  if (!session_.plugin.matrixForm.loaded()) return;
  if (!changed()) return forgetKept();
  if (!held_) hold();
  KeptShow now{
      session_.path(), session_.name(), whatChanged ? whatChanged() : aside_.changes, {}, {},
      project.text()};
  try {
    now.show = session_.showText();
    now.grid = session_.gridText();
  } catch (const std::exception&) {
    return;  // what can't be written now is no better kept
  }
  if (now == aside_) return;
  aside_ = std::move(now);
  if (writing_.valid()) writing_.wait();
  writing_ = std::async(std::launch::async, [this, show = aside_] {
    try {
      shows_.keep(show);
    } catch (const std::exception&) {
      // A disk that is full now is told of when the person saves.
    }
  });
}

void DeskFiles::forgetKept() {
  if (writing_.valid()) writing_.wait();
  shows_.drop();
  aside_ = {};
  pending_ = false;
}

void DeskFiles::end() { forgetKept(); }

void DeskFiles::offerLeft() {
  const auto left = shows_.left();
  if (!left) return;
  std::string text = left->show.name +
                     " was changed and not saved when the desk ended. It was kept at " +
                     left->time + ".";
  if (!left->show.changes.empty()) text += " Changed last:";
  for (const std::string& change : left->show.changes) text += "\n- " + change;
  question_.ask(text, {"Open it", "Throw it away", "Later"}, [this, left](std::size_t answer) {
    if (answer == 0) restore(*left);
    if (answer == 1) shows_.drop(left->key);
  });
}

// The copy has a folder of its own for as long as it is read.
void DeskFiles::restore(const KeptShows::Left& left) {
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::path folder =
      fs::temp_directory_path(error) / ("korvane-" + left.key + "-" + std::to_string(::getpid()));
  Disk& disk = session_.platform.disk();
  disk.makeFolders(utf8Path(folder));
  const std::string stem = utf8Path(folder / systemPath(left.show.name));
  try {
    disk.create(stem + kShowEnding, left.show.show);
    disk.create(stem + kGridEnding, left.show.grid);
  } catch (const std::system_error& failure) {
    session_.platform.messageBox(left.show.name + " can't be opened. " + failure.what());
    return;
  }
  if (session_.restore(stem + kShowEnding, left.show.path)) {
    project.read(left.show.project);
    keepNow();
    if (shows_.key() != left.key) {
      if (writing_.valid()) writing_.wait();
      shows_.drop(left.key);
    }
  }
  for (const char* ending : {kShowEnding, kGridEnding}) disk.remove(stem + ending);
  disk.remove(utf8Path(folder));
}

}  // namespace korvane
