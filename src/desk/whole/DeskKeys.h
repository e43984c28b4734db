#pragma once

#include <string>
#include <vector>

#include "desk/keys/KeyBindings.h"
#include "desk/windows/DeskForm.h"
#include "desk/windows/KeysForm.h"
#include "shell/Plugin.h"

namespace korvane {

/// The keys of the desk: their window, and what its commands for the decks and the fader do.
class DeskKeys {
 public:
  DeskKeys(Plugin& plugin, DeskForm& desk, const std::string& file, Disk& disk);

  /// After each event of a person: rows may have other names, commands other keys.
  void refresh();

  /// A control of any window that does what a command does: its tool tip tells the key as well.
  void tellKey(Control& control, const std::string& command);

  KeyBindings bindings;
  KeysForm form;

 private:
  struct RowItems {
    DeskForm::Items& items;
    ListView& list;
  };
  struct Tip {
    Control& control;
    MenuItem& command;
    std::string words;
  };

  void bindFader();
  void bindRows();
  void showTips();
  void showRows() const;
  bool playing() const { return plugin_.matrixForm.visible(); }

  Plugin& plugin_;
  DeskForm& desk_;
  std::vector<RowItems> rows_;
  std::vector<Tip> tips_;
};

}  // namespace korvane
