#pragma once

#include <functional>
#include <string>

#include "desk/project/DeskProject.h"
#include "desk/show/DeskSession.h"
#include "desk/show/RecentShows.h"
#include "desk/windows/DeskForm.h"
#include "desk/windows/DeskQuestion.h"

namespace korvane {

/// The three files of a desk's project, the show, its grid and what the desk keeps beside them:
/// opened, begun and saved together. Nothing that was changed is left without a question.
class DeskFiles {
 public:
  /// `recentFile` keeps the shows that were opened lately; empty: they are not kept.
  DeskFiles(DeskSession& session, DeskForm& form, DeskQuestion& question,
            const std::string& recentFile);

  /// Opens the project that any of its three files belongs to. The person is asked first if
  /// changes would be lost.
  void open(const std::string& path);
  void begin();
  /// Whether it was saved.
  bool save();
  bool saveAs();
  /// Goes on with `then` once nothing that was changed can be lost.
  void leave(std::function<void()> then);
  /// Whether the show, the grid or what the desk keeps is other than in the files.
  bool changed();
  /// All is as it is meant to be from the start: not a change of the person's.
  void keepAsIs() { kept_ = project.changes(); }
  /// Shows the name of the show and whether it was changed.
  void showTitle();

  DeskProject project;

 private:
  bool saveTo(const std::string& show);
  void openNow(const std::string& path);
  void openProject(const std::string& path);

  DeskSession& session_;
  DeskForm& form_;
  DeskQuestion& question_;
  RecentShows recent_;
  std::string kept_;  // of the project, when it was opened or saved last
};

}  // namespace korvane
