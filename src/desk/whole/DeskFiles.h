#pragma once

#include <cstdint>
#include <functional>
#include <future>
#include <optional>
#include <string>
#include <vector>

#include "desk/project/DeskProject.h"
#include "desk/project/KeptShows.h"
#include "desk/show/DeskSession.h"
#include "desk/show/RecentShows.h"
#include "desk/windows/DeskForm.h"
#include "desk/windows/DeskQuestion.h"

namespace korvane {

/// The three files of a desk's project, the show, its grid and what the desk keeps beside them:
/// opened, begun and saved together. Nothing that was changed is left without a question.
class DeskFiles {
 public:
  /// `recentFile` keeps the shows that were opened lately, and what was changed is kept aside in
  /// the folder `kept`; empty: they are not kept.
  DeskFiles(DeskSession& session, DeskForm& form, DeskQuestion& question,
            const std::string& recentFile, const std::string& kept);

  /// Opens the project that any of its three files belongs to. The person is asked first if
  /// changes would be lost.
  void open(const std::string& path);
  void begin();
  /// At the start: opens the show that was opened or saved last, if the person wants that.
  void openLast();
  /// Whether it was saved.
  bool save();
  bool saveAs();
  /// Goes on with `then` once nothing that was changed can be lost.
  void leave(std::function<void()> then);
  /// Whether the show, the grid or what the desk keeps is other than in the files.
  bool changed();
  /// All is as it is meant to be from the start: not a change of the person's.
  void keepAsIs() { kept_ = project.changes(); }
  /// Who else has the show open, in words; empty: nobody. No box: the show goes on meanwhile.
  const std::string& fault() const { return fault_; }
  /// Shows the name of the show and whether it was changed.
  void showTitle();

  /// At the start: offers what a desk that did not end well has left behind.
  void offerLeft();
  /// After each event of a person, at this time in ms.
  void noteEvent(std::int64_t now);
  /// After each pass over the timers: keeps a changed project aside when all is quiet.
  void keepAside(std::int64_t now);
  /// The desk ends as it is meant to: nothing is to be offered.
  void end();

  /// Another number after each change of the show or the grid that was noted.
  std::function<std::int64_t()> version;
  /// What was changed lately, in words.
  std::function<std::vector<std::string>()> whatChanged;
  DeskProject project;

 private:
  bool showChanged();
  bool saveTo(const std::string& show);
  void hold();
  void keepNow();
  void forgetKept();
  void restore(const KeptShows::Left& left);
  void openNow(const std::string& path);
  void openProject(const std::string& path);

  DeskSession& session_;
  DeskForm& form_;
  DeskQuestion& question_;
  RecentShows recent_;
  KeptShows shows_;
  std::optional<std::string> held_;  // the show that is held
  std::string fault_;
  KeptShow aside_;  // as it was kept last
  std::future<void> writing_;
  std::int64_t changedAt_ = 0, eventAt_ = 0;
  bool pending_ = false;
  /// What the last look found, and when: to compare means to write the whole show.
  struct Look {
    std::int64_t version = 0;
    int keeps = 0;
    bool changed = false;
  };
  std::optional<Look> look_;
  std::string kept_;  // of the project, when it was opened or saved last
};

}  // namespace korvane
