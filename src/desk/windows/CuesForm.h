#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "desk/cues/ShowRun.h"
#include "desk/windows/CueFields.h"
#include "platform/Controls.h"
#include "platform/Form.h"
#include "platform/ListView.h"
#include "state/Engine.h"

namespace korvane {

/// The window of the cues: the list with what is on and what is next, the fields of the selected
/// cue, and below them automatic play and the tempo.
class CuesForm : public Form {
 public:
  CuesForm(Engine& engine, ShowRun& run);

  /// Shows what has changed: all of it after an event, else what time alone changes.
  void refresh();
  void keepTime();
  /// True while something counts down.
  bool counting() const;
  /// The buttons that carry out a command of the show, with its name.
  std::vector<std::pair<Button*, const char*>> commands();

  Label now, then;
  ListView list;
  Button go, back, pause, stop, jump, next, record;
  PictureButton add, remove, up, down;
  Button duplicate;
  CheckBox loop, random;
  TextBox guard;
  CueFields fields;
  Group cueGroup, listGroup, autoGroup, tempoGroup;
  CheckBox autoPlay;
  TextBox every;
  ListBox unit;
  CheckBox autoRandom;
  TextBox bpm;
  Button tap;

 private:
  static constexpr int kNameColumn = 1;

  void declareLayout();
  void bindCommands();
  void bindEditing();
  void bindRows();
  void removeCues(std::vector<int> rows);
  void copyCues(const std::vector<int>& rows, int before);
  void moveCues(const std::vector<int>& rows, int before);
  void moveCue(int from, int to);
  void bindOptions();
  void bindAutomatic();
  bool selectedCue(int& cue) const;
  void insert(int at, Cue cue);
  void remove_Click();
  void move(int by);
  void takeNumber(TextBox& box, double least, double most, const std::string& what,
                  const std::function<void(double)>& take);
  void showRows();
  void showOptions();
  std::string whatIsOn() const;
  std::string whatIsNext() const;
  std::string left() const;

  Engine& engine_;
  ShowRun& run_;
  bool filling_ = false;
  std::string typedName_;
  int shownOn_ = -2, shownNext_ = -2;
};

}  // namespace korvane
