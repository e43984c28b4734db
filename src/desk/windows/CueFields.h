#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desk/cues/ShowRun.h"
#include "platform/Controls.h"
#include "platform/Layout.h"

namespace korvane {

/// The fields of one cue, for editing.
class CueFields {
 public:
  CueFields();

  std::vector<Control*> controls();
  Layout layout();
  /// Shows a cue, with the rows that its show has; nothing disables the fields.
  void show(const Cue* cue, const ShowStage& stage);

  TextBox name;
  ListBox left, right, move, fade;
  TextBox master;
  ListBox end;
  TextBox after;

  /// A person has changed a field: the cue as the fields have it. A text that is no cue's has been
  /// told of, and taken back.
  std::function<void(const Cue& cue)> onChange;
  std::function<void(const std::string& text)> onWrong;

 private:
  void bind();
  void changed();
  ListBox& boxOf(ShowList list);
  void showRow(ShowList list, const RowRef& row, const ShowStage& stage);
  void takeRow(ShowList list);
  bool takeNumbers();

  Cue cue_;
  std::vector<ShowStage::Row> rows_[3];
  bool filling_ = false;
};

/// A number of a cue as people write it: no more decimals than it needs.
std::string plainNumber(double number);
/// A row as a cue names it, for people.
std::string rowText(const RowRef& row, bool there);
/// How a cue ends, for people.
std::string endText(const Cue& cue);

}  // namespace korvane
