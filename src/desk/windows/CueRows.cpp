// What a person does with rows of the cues' list beside the buttons.

#include <algorithm>

#include "desk/windows/CuesForm.h"

namespace korvane {

void CuesForm::bindRows() {
  list.actions = {
      {"Start", "", [this](const std::vector<int>& rows) { list.doubleClick(rows.front()); }},
      {"Rename", "F2",
       [this](const std::vector<int>& rows) { list.beginEdit(rows.front(), kNameColumn); }},
      {"Duplicate", "Ctrl+D",
       [this](const std::vector<int>& rows) { copyCues(rows, rows.back() + 1); }},
      {"Remove", "Del", [this](const std::vector<int>& rows) { removeCues(rows); }},
  };
  list.onName = [this](int row) { return run_.list.at(row).name; };
  list.onEdited = [this](int row, int) {
    run_.list.cues[static_cast<std::size_t>(row)].name = typedName_;
    refresh();
  };
  list.onValidate = [this](int, const std::string& typed) { return typedName_ = typed; };
  list.takesRowsOf = [this](const ListView& from) { return &from == &list; };
  list.onDrop = [this](const ListView::Drop& drop) {
    drop.copy ? copyCues(drop.rows, drop.before) : moveCues(drop.rows, drop.before);
  };
}

void CuesForm::removeCues(std::vector<int> rows) {
  std::sort(rows.rbegin(), rows.rend());
  for (const int cue : rows) {
    run_.list.cues.erase(run_.list.cues.begin() + cue);
    run_.cues.removed(cue);
  }
  refresh();
}

void CuesForm::copyCues(const std::vector<int>& rows, int before) {
  std::vector<Cue> copies;
  copies.reserve(rows.size());
  for (const int cue : rows) copies.push_back(run_.list.at(cue));
  for (Cue& copy : copies) insert(before++, std::move(copy));
}

void CuesForm::moveCue(int from, int to) {
  const int by = from < to ? 1 : -1;
  for (int at = from; at != to; at += by) {
    const int other = at + by;
    std::swap(run_.list.cues[static_cast<std::size_t>(at)],
              run_.list.cues[static_cast<std::size_t>(other)]);
    run_.cues.exchanged(at, other);
  }
}

// Those from above come one by one from the same distance, as each leaves its place to the next.
void CuesForm::moveCues(const std::vector<int>& rows, int before) {
  const auto above = static_cast<int>(
      std::count_if(rows.begin(), rows.end(), [before](int row) { return row < before; }));
  for (int i = above - 1; i >= 0; --i)
    moveCue(rows[static_cast<std::size_t>(i)], before - above + i);
  for (std::size_t i = static_cast<std::size_t>(above); i < rows.size(); ++i)
    moveCue(rows[i], before + static_cast<int>(i) - above);
  list.select(before - above);
  refresh();
}

}  // namespace korvane
