#pragma once

#include "desk/show/DeskSession.h"
#include "desk/whole/RowSlots.h"

namespace korvane {

/// What a person does with rows of the fade list beside the tool's own buttons: drags, removes
/// several, duplicates and renames them. It is made of what the buttons do; the fade that is
/// selected stays so, and one that runs goes on.
class FadeRows {
 public:
  explicit FadeRows(DeskSession& session);

  /// After each event of a person: a show that was begun has made its lists anew.
  void refresh() { letNamesBeTyped(list_); }

 private:
  void bind();
  void remove(const RowSlots& slots);
  void copy(const RowSlots& slots, int before);
  void moveTo(std::int16_t slot, int place);
  void rename(int row);

  DeskSession& session_;
  Engine& engine_;
  ListView& list_;
};

}  // namespace korvane
