#pragma once

#include <functional>
#include <optional>
#include <string>

#include "desk/show/DeskHost.h"
#include "desk/show/DeskPlatform.h"
#include "desk/show/ShowCheck.h"
#include "shell/Plugin.h"

namespace korvane {

/// The show on the desk: a whole plug-in for the life of the desk, and the files of the present
/// show. Another show is loaded into it once it is known that it can be read.
class DeskSession {
 public:
  /// Begins with an empty show in the project `stem`, a path without an ending.
  DeskSession(Platform& machine, const std::string& stem);
  ~DeskSession();
  DeskSession(const DeskSession&) = delete;
  DeskSession& operator=(const DeskSession&) = delete;

  /// Opens the tool; the first time, with a new show.
  void openTool();
  /// An empty show on the present grid, of no file yet.
  void begin();
  /// Opens a show with its grid, in the project named after the file; its last whole version, with
  /// the reason told, if it can't be read. False, with everything as it was and the reason told, if
  /// that can't be done.
  bool open(const std::string& show);
  /// Saves the show and its grid to a file, which becomes the show's own. False, with the reason
  /// told, if that can't be done.
  bool save(const std::string& show);

  /// What a save would write of the show and of its grid now. A Failure for what can't be written.
  std::string showText();
  std::string gridText();
  /// Opens a copy of a show that was never saved, or not lately: it goes on as that of the file
  /// `original`, empty for none, whose folder has its pictures, and counts as changed. False if it
  /// can't be opened.
  bool restore(const std::string& copy, const std::string& original);

  /// The file of the show; empty for a new one.
  const std::string& path() const { return path_; }
  /// The show's name for people.
  std::string name();
  /// The folder of the project, with its slash.
  std::string folder();
  /// Whether effects, fades or the grid are others than when they were loaded or saved last.
  bool changed();
  /// How many times the show or the grid was found or put in its file.
  int keeps() const { return keeps_; }
  /// A show is being loaded: not all of it stands yet.
  bool loading() const { return loading_; }
  /// How many shows were begun or opened.
  int loads() const { return loads_; }
  /// Presses OK in the effect dialog of a deck that is open, if there is one.
  void commitDialog(const Deck& deck);
  void commitDialogs();
  /// Presses the rows of both decks that are selected, so that their effects start anew.
  void selectRowsAgain();

  /// Shows the grid as it is in the window that defines it, if that was looked at before.
  void showGrid();

  std::function<void()> onFile;  ///< the show has another file, or none

  DeskPlatform platform;
  DeskHost host;
  Plugin plugin;

 private:
  /// Opens a show whose pictures lie in a folder.
  bool open(const std::string& show, const std::string& folder);
  /// One of the two files of a project: what would be written to it, and what was last.
  struct Document {
    std::string (*text)(Plugin&);
    std::optional<std::string> kept;
  };

  void bindTool();
  void bindDeck(Deck& deck, DeckPanel& panel);
  void clearRecords();
  void loadToolAfresh();
  /// Runs what loads a show.
  bool load(const std::function<void()>& steps);
  void selectFirstRows();
  void adopt(const std::string& show);
  /// Whether the grid is to be saved with the show.
  bool needsGrid(const std::string& show);
  void keepIn(const std::string& show);
  void keepGridAside(const std::string& show);
  void dropGridAside();
  void tellOfBackup(const std::string& show, const ReadableShow& readable);
  /// The file of the grid, beside that of the show.
  std::string gridFile();
  void keep(Document& document);
  bool changed(const Document& document);

  std::string home_;  // the folder in which new shows begin
  std::string path_;
  std::string gridAside_;  // a file, while the tool saves
  bool loading_ = false;
  int loads_ = 0;
  int keeps_ = 0;
  Document composition_;
  Document definition_;
};

}  // namespace korvane
