#include "desk/undo/StepName.h"

#include <algorithm>
#include <optional>

namespace korvane {
namespace {

std::string quoted(const std::string& name) { return "'" + name + "'"; }

const RowState* rowOf(const std::vector<RowState>& rows, std::int16_t slot) {
  const auto found = std::ranges::find(rows, slot, &RowState::slot);
  return found == rows.end() ? nullptr : &*found;
}

// Rows of one list that another one has not.
std::vector<const RowState*> rowsWithout(const std::vector<RowState>& rows,
                                         const std::vector<RowState>& other) {
  std::vector<const RowState*> alone;
  for (const RowState& row : rows) {
    if (rowOf(other, row.slot) == nullptr) alone.push_back(&row);
  }
  return alone;
}

bool sameOrder(const std::vector<RowState>& one, const std::vector<RowState>& other) {
  return std::ranges::equal(one, other, {}, &RowState::slot, &RowState::slot);
}

// A list that got or lost rows, or has them in another order.
std::optional<StepName> changeOfRows(const std::vector<RowState>& before,
                                     const std::vector<RowState>& after, const std::string& list) {
  const auto added = rowsWithout(after, before), removed = rowsWithout(before, after);
  const std::string key = "rows " + list;
  if (added.size() + removed.size() > 1) return StepName{"load", "load"};
  if (!added.empty()) return StepName{"new row in the " + list, key + "+"};
  if (!removed.empty()) return StepName{"removed " + quoted(removed[0]->text), key + "-"};
  if (!sameOrder(before, after)) return StepName{"order of the " + list, key + "="};
  return std::nullopt;
}

std::string wordsFor(const std::vector<const char*>& differences) {
  return differences.empty() ? "" : differences.front();
}

StepName named(const std::string& words, const std::string& row, const std::string& list,
               std::int16_t slot) {
  return {words + " of " + quoted(row), list + std::to_string(slot) + words, words != "kind"};
}

void changesOfEffects(const DeckState& before, const DeckState& after, const std::string& list,
                      std::vector<StepName>& names) {
  for (const RowState& row : before.rows) {
    const RowState* now = rowOf(after.rows, row.slot);
    const auto slot = static_cast<std::size_t>(row.slot);
    if (now == nullptr || slot >= before.slots.size() || slot >= after.slots.size()) continue;
    std::string words;
    if (before.slots[slot] != after.slots[slot])
      words = wordsFor(differences(*before.slots[slot], *after.slots[slot]));
    if (words.empty() && now->text != row.text) words = "name";
    if (words.empty() && before.edited.at(slot) != after.edited.at(slot))
      words = after.edited.at(slot) ? "use" : "clearing";
    if (!words.empty()) names.push_back(named(words, row.text, list, row.slot));
  }
}

void changesOfFades(const FadesState& before, const FadesState& after,
                    std::vector<StepName>& names) {
  for (const RowState& row : before.rows) {
    const RowState* now = rowOf(after.rows, row.slot);
    const auto slot = static_cast<std::size_t>(row.slot);
    if (now == nullptr || slot >= before.slots.size() || slot >= after.slots.size()) continue;
    std::string words = wordsFor(differences(before.slots[slot], after.slots[slot]));
    if (words.empty() && now->text != row.text) words = "name";
    if (!words.empty())
      names.push_back({words + " of fade " + quoted(row.text),
                       "X" + std::to_string(row.slot) + words, words != "kind"});
  }
}

StepName changeOfGrid(const GridState& before, const GridState& after) {
  const Matrix& was = before.matrix;
  const Matrix& is = after.matrix;
  if (was.cols != is.cols || was.rows != is.rows) return {"size of the grid", "size"};
  if (before.name != after.name || before.shownName != after.shownName)
    return {"name of the grid", "grid's name", true};
  return {"channels of the lamps", "channels"};
}

}  // namespace

StepName nameOfStep(const ShowState& before, const ShowState& after) {
  static constexpr std::array<const char*, 2> kLists = {"left list", "right list"};
  std::vector<StepName> rows, contents;
  for (std::size_t i = 0; i < kLists.size(); ++i) {
    if (before.decks[i] == after.decks[i]) continue;
    if (auto change = changeOfRows(before.decks[i]->rows, after.decks[i]->rows, kLists[i]))
      rows.push_back(*change);
    changesOfEffects(*before.decks[i], *after.decks[i], kLists[i], contents);
  }
  if (before.fades != after.fades) {
    if (auto change = changeOfRows(before.fades->rows, after.fades->rows, "fade list"))
      rows.push_back(*change);
    changesOfFades(*before.fades, *after.fades, contents);
  }
  if (before.grid != after.grid && rows.empty()) return changeOfGrid(*before.grid, *after.grid);
  if (rows.size() == 1) return rows.front();
  if (!rows.empty() || contents.size() > 1) return {"load", "load"};
  return contents.empty() ? StepName{"change", "change"} : contents.front();
}

}  // namespace korvane
