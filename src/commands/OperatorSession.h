#pragma once

#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "commands/OperatorConsole.h"
#include "commands/ShowContents.h"
#include "commands/Tokens.h"
#include "persistence/MatrixDefinition.h"

namespace korvane {

/// One command of a session, and the most bytes that a file may get while it
/// runs: a full disk.
struct Action {
  static constexpr long kNoLimit = -1;
  std::string line;
  long limit = kNoLimit;
};

/// An operator's evening: commands, one after another, and after each of them
/// whatever must hold of the shows on the disk. The same commands from the same
/// seed do the same. Console is OperatorConsole, or another with the same members.
template <class Console = OperatorConsole>
class OperatorSession {
 public:
  /// The folder is made anew and holds the examples besides what the session
  /// saves.
  OperatorSession(std::string folder, const std::string& examples, std::uint64_t seed)
      : folder_(std::move(folder)) {
    std::signal(SIGXFSZ, SIG_IGN);
    std::filesystem::remove_all(folder_);
    for (const char* made : {"/again", "/dir.Korvane", "/dir.korvaneconf"})
      std::filesystem::create_directories(folder_ + made);
    std::filesystem::copy(examples, folder_, std::filesystem::copy_options::recursive);
    console_ = std::make_unique<Console>(folder_ + "/show", seed);
  }
  ~OperatorSession() { std::filesystem::remove_all(folder_); }
  OperatorSession(const OperatorSession&) = delete;
  OperatorSession& operator=(const OperatorSession&) = delete;

  /// Carries it out; ShowLost if something that was saved is not there any
  /// more.
  void perform(const Action& action) {
    if (action.line.starts_with("answer ")) answered_ = tokens(action.line).at(1);
    const std::map<std::string, std::string> before = {{answered_, bytesOf(answered_)}};
    console_->platform.questions.clear();
    {
      const Limit limit(action.limit);
      reply = console_->answer(action.line);
    }
    if (action.line.starts_with("answer ")) return;
    asked = console_->platform.questions;
    console_->platform.answers.clear();
    const bool saysSaved = console_->saved();
    console_->platform.boxes.clear();
    console_->platform.failedSaves.clear();
    checkSave(saysSaved, action.limit == Action::kNoLimit, before.begin()->second);
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
  /// No file grows beyond so many bytes.
  struct Limit {
    explicit Limit(long bytes) {
      if (bytes == Action::kNoLimit) return;
      getrlimit(RLIMIT_FSIZE, &before);
      rlimit now = before;
      now.rlim_cur = static_cast<rlim_t>(bytes);
      setrlimit(RLIMIT_FSIZE, &now);
      set = true;
    }
    ~Limit() {
      if (set) setrlimit(RLIMIT_FSIZE, &before);
    }
    Limit(const Limit&) = delete;
    Limit& operator=(const Limit&) = delete;
    rlimit before{};
    bool set = false;
  };

  static std::string bytesOf(const std::string& path) {
    if (!std::filesystem::is_regular_file(path)) return {};
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

  void checkSave(bool saysSaved, bool room, const std::string& before) {
    const bool show = !asked.empty() && asked.back().purpose == FileQuestion::Purpose::Save &&
                      asked.back().filter.find("*.Korvane") != std::string::npos;
    if (!show || answered_.empty() || answered_ == "cancel") return;
    if (saysSaved) {
      ++saved;
      checkLoads(answered_);
      return;
    }
    ++refused;
    if (room && complete() &&
        std::filesystem::is_directory(std::filesystem::path(answered_).parent_path()) &&
        !std::filesystem::is_directory(answered_)) {
      throw ShowLost("a show could not be saved to " + answered_);
    }
    if (before != bytesOf(answered_) && before != bytesOf(answered_ + ".bak"))
      throw ShowLost("a save that failed left no whole version of " + answered_);
  }

  /// A load that broke off can leave a list empty, or a fade of no type: such a show is not saved.
  bool complete() const {
    const Variablen& v = engine().v;
    const ListView& fades = engine().master.efxXList;
    if (v.A.efxList.count() == 0 || v.B.efxList.count() == 0 || fades.count() == 0) return false;
    const std::int16_t type = v.efxX.at(static_cast<std::size_t>(slotOfCurrent(fades))).type;
    return type >= 0 && type < kFadeTypes;
  }

  /// What was saved can be loaded by another plug-in with the same grid, and
  /// holds the same.
  void checkLoads(const std::string& path) {
    const std::string again = folder_ + "/again/show";
    writeDefinition(console_->engine(), again + ".korvaneconf", "again");
    OperatorConsole other(again, 1);
    other.answer("answer " + path);
    Json loaded = other.answer("click MatrixForm.load");
    // A Gradient has no way over one column or one row; all was read by then.
    const bool read = loaded["ok"] == true || loaded["failure"]["number"] == kDivisionByZero;
    if (!read) throw ShowLost(path + " can't be loaded: " + loaded.dump());
    const Json kept = ShowContents::of(engine()), found = ShowContents::of(other.engine());
    if (kept != found)
      throw ShowLost(path + " holds something else: " + Json::diff(kept, found).dump());
    for (const char* ending : {".korvaneconf", ".korvaneconf.bak"})
      std::filesystem::remove(again + ending);
  }

  std::string folder_;
  std::string answered_;  // the path given to the next file dialog
  std::unique_ptr<Console> console_;
};

}  // namespace korvane
