#pragma once

#include <memory>

#include "commands/TestShowsWatch.h"
#include "commands/Tokens.h"

namespace korvane {

/// One command of a session, and how many bytes there is room for while it runs.
struct Action {
  std::string line;
  std::size_t room = SimulatedDisk::kUnlimited;
};

/// An operator's evening: commands, one after another, and after each of them whatever must hold of
/// the shows on the disk. The same commands from the same seed do the same. Console is
/// OperatorConsole, or another with the same members.
template <class Console = OperatorConsole>
class OperatorSession {
 public:
  /// The disk holds the examples besides what the session saves.
  OperatorSession(const std::string& examples, std::uint64_t seed) : disk_(seed) {
    disk_.takeFolder(examples, folder_);
    for (const char* pictures : {"/slides", "/animation"})
      disk_.takeFolder(examples + pictures, folder_ + pictures);
    for (const char* made : {"/dir.Korvane", "/dir.korvaneconf"}) disk_.makeFolders(folder_ + made);
    console_ = std::make_unique<Console>(disk_, folder_ + "/show", seed);
  }

  /// Carries it out; ShowLost if something that was saved is not there any more.
  void perform(const Action& action) {
    if (action.line.starts_with("answer ")) answered_ = tokens(action.line).at(1);
    console_->platform.questions.clear();
    if (action.room != SimulatedDisk::kUnlimited) disk_.capacity = disk_.used() + action.room;
    reply = console_->answer(action.line);
    disk_.capacity = SimulatedDisk::kUnlimited;
    watch_.check();
    if (action.line.starts_with("answer ")) return;
    asked = console_->platform.questions;
    console_->platform.answers.clear();
    const bool saysSaved = console_->saved();
    console_->platform.boxes.clear();
    console_->platform.failedSaves.clear();
    checkSave(saysSaved, action.room == SimulatedDisk::kUnlimited);
    answered_.clear();
  }

  const Engine& engine() const { return console_->engine(); }
  bool over() const { return console_->over(); }

  const std::string& folder() const { return folder_; }

  Json reply;                       ///< to the last command
  std::vector<FileQuestion> asked;  ///< what its file dialogs asked
  int saved = 0;                    ///< shows that said that they are saved
  int refused = 0;                  ///< saves that did not

 private:
  void checkSave(bool saysSaved, bool room) {
    const bool show = !asked.empty() && asked.back().purpose == FileQuestion::Purpose::Save &&
                      asked.back().filter.find("*.Korvane") != std::string::npos;
    if (!show || answered_.empty() || answered_ == "cancel") return;
    if (saysSaved) {
      ++saved;
      if (console_->holds(answered_)) watch_.checkLoads(console_->engine(), answered_);
      return;
    }
    ++refused;
    const auto folder = utf8Path(systemPath(answered_).parent_path());
    if (room && complete() && disk_.kind(folder) == Disk::Kind::Folder &&
        disk_.kind(answered_) != Disk::Kind::Folder)
      throw ShowLost("a show could not be saved to " + answered_);
  }

  /// A load that broke off can leave a list empty, or a fade of no type: such a show is not saved.
  bool complete() const {
    const Variablen& v = engine().v;
    const ListView& fades = engine().master.efxXList;
    if (v.A.efxList.count() == 0 || v.B.efxList.count() == 0 || fades.count() == 0) return false;
    const std::int16_t type = v.efxX.at(static_cast<std::size_t>(slotOfCurrent(fades))).type;
    return type >= 0 && type < kFadeTypes;
  }

  const std::string folder_ = "/shows";
  SimulatedDisk disk_;
  ShowsWatch watch_{disk_};
  std::string answered_;  // the path given to the next file dialog
  std::unique_ptr<Console> console_;
};

}  // namespace korvane
