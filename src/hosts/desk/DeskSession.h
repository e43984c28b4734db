#pragma once

#include <optional>
#include <string>

#include "hosts/desk/DeskHost.h"
#include "shell/Plugin.h"
#include "views/qt/machine/LoopGate.h"
#include "views/qt/windows/DesktopView.h"

namespace korvane {

/// A project on the desk: a whole plug-in with its windows, none of which is shown yet. Another
/// project is another session. Failures go to the platform.
class DeskSession {
 public:
  /// `stem` is the project's path without its ending.
  DeskSession(Platform& platform, NetworkOutput& output, const std::string& stem);
  ~DeskSession();
  DeskSession(const DeskSession&) = delete;
  DeskSession& operator=(const DeskSession&) = delete;

  /// Loads the project's show from a file; false if that failed.
  bool load(const std::string& show);
  void openTool();
  /// Opens the tool where it stood in the session before, with the output and the simulation as
  /// they were. Channels of the old show go to 0.
  void follow(DeskSession& before);

  /// The folder of the project.
  std::string directory();
  /// Tells the person if the grid is the default one for want of a file.
  void warnOfMissingGrid();

  /// Whether effects, fades or the grid are others than when they were loaded or saved last.
  bool changed();
  /// Asks for the files and saves what was changed; false if that was not done.
  bool save();

  DeskHost host;
  Plugin plugin;
  qt::LoopGate gate;
  qt::DesktopView view;

 private:
  /// One of the two files of a project: what would be written to it, and what was last.
  struct Document {
    std::string (*text)(Plugin&);
    std::optional<std::string> kept;
  };

  void keep(Document& document);
  void keepAll();
  bool changed(const Document& document);

  Document composition_;
  Document definition_;
};

/// The path of a show's project: without the ending, if it has the usual one.
std::string projectOf(const std::string& show);

}  // namespace korvane
