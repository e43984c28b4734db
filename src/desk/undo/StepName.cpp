#include "desk/undo/StepName.h"

#include <algorithm>
#include <optional>

#include "desk/undo/CueStepName.h"

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

/// What became of the rows of one list.
struct RowsChange {
  std::string list;  ///< its name for people
  std::string what;  ///< stands in it
  std::vector<const RowState*> added = {}, removed = {};
  bool copies = false;                      ///< the added rows are of others' kinds and names
  std::vector<std::string> reordered = {};  ///< the names of those that were moved
  bool exchanged = false;                   ///< two rows have each other's place

  bool any() const { return !added.empty() || !removed.empty() || !reordered.empty(); }
};

// The fewest rows that must be moved from one order to the other.
std::vector<std::string> movedRows(const std::vector<RowState>& before,
                                   const std::vector<RowState>& after) {
  std::vector<std::size_t> longest(after.size(), 1), previous(after.size(), after.size());
  std::vector<std::ptrdiff_t> place;  // before
  place.reserve(after.size());
  for (const RowState& row : after) place.push_back(rowOf(before, row.slot) - before.data());
  std::size_t last = 0;
  for (std::size_t i = 0; i < after.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (place[j] > place[i] || longest[j] < longest[i]) continue;
      longest[i] = longest[j] + 1;
      previous[i] = j;
    }
    if (longest[i] > longest[last]) last = i;
  }
  std::vector<bool> stays(after.size());
  for (; last < after.size(); last = previous[last]) stays[last] = true;
  std::vector<std::string> moved;
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (!stays[i]) moved.push_back(after[i].text);
  }
  return moved;
}

RowsChange changeOfRows(const std::vector<RowState>& before, const std::vector<RowState>& after,
                        const std::string& list, const std::string& what) {
  RowsChange change{list, what, rowsWithout(after, before), rowsWithout(before, after)};
  if (!change.added.empty() || !change.removed.empty() || before.size() != after.size())
    return change;
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (before[i].slot != after[i].slot) change.reordered.push_back(after[i].text);
  }
  change.exchanged = change.reordered.size() == 2;
  if (change.reordered.size() > 2) change.reordered = movedRows(before, after);
  return change;
}

// A copy takes the fields of its kind alone, and its source may hold more.
bool holdsCopies(const RowsChange& change, const ShowState& before, const DeckState& after) {
  const auto isCopy = [&](const RowState* row) {
    const auto slot = static_cast<std::size_t>(row->slot);
    if (slot >= after.slots.size() || !after.edited.at(slot)) return false;
    return std::ranges::any_of(before.decks, [&](const auto& deck) {
      const Effect& copy = *after.slots[slot];
      return std::ranges::any_of(deck->slots, [&copy](const auto& effect) {
        return effect->type == copy.type && effect->name == copy.name;
      });
    });
  };
  return !change.added.empty() && std::ranges::all_of(change.added, isCopy);
}

// "'Embers'", or "3 effects".
std::string counted(const std::vector<std::string>& names, const std::string& what) {
  return names.size() == 1 ? quoted(names[0]) : std::to_string(names.size()) + " " + what;
}
std::vector<std::string> textsOf(const std::vector<const RowState*>& rows) {
  std::vector<std::string> texts;
  texts.reserve(rows.size());
  for (const RowState* row : rows) texts.push_back(row->text);
  return texts;
}

const StepName kLoad = {"load", "load"};

// One list alone has changed.
StepName named(const RowsChange& change) {
  const std::string key = "rows " + change.list;
  if (change.exchanged)
    return {"exchanged " + quoted(change.reordered[0]) + " and " + quoted(change.reordered[1]),
            key + "="};
  if (!change.reordered.empty())
    return {"moved " + counted(change.reordered, change.what), key + "="};
  if (!change.added.empty() && !change.removed.empty()) return kLoad;
  if (!change.removed.empty())
    return {"removed " + counted(textsOf(change.removed), change.what), key + "-"};
  if (change.copies) return {"copied " + counted(textsOf(change.added), change.what), key + "+"};
  return change.added.size() == 1 ? StepName{"new row in the " + change.list, key + "+"} : kLoad;
}

// Rows that one deck has lost and the other has got.
bool wentFrom(const RowsChange& from, const RowsChange& to) {
  return from.added.empty() && to.removed.empty() && from.reordered.empty() && to.copies &&
         textsOf(from.removed) == textsOf(to.added);
}

// What became of the rows; `contents` is what else has changed.
StepName named(const std::vector<RowsChange>& rows, const std::vector<StepName>& contents) {
  // What plays next when its row goes, or what an open dialog held, is noted by the way.
  constexpr std::size_t kMostByTheWay = 2;
  if (contents.size() > kMostByTheWay || rows.size() > 2) return kLoad;
  if (rows.size() == 1) return named(rows[0]);
  for (const auto& [from, to] : {std::pair(&rows[0], &rows[1]), std::pair(&rows[1], &rows[0])}) {
    if (wentFrom(*from, *to))
      return {"moved " + counted(textsOf(to->added), to->what) + " to the " + to->list, "drag"};
  }
  return kLoad;
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
  std::vector<RowsChange> rows;
  std::vector<StepName> contents;
  for (std::size_t i = 0; i < kLists.size(); ++i) {
    if (before.decks[i] == after.decks[i]) continue;
    const DeckState &was = *before.decks[i], &is = *after.decks[i];
    RowsChange change = changeOfRows(was.rows, is.rows, kLists[i], "effects");
    change.copies = holdsCopies(change, before, is);
    if (change.any()) rows.push_back(std::move(change));
    changesOfEffects(was, is, kLists[i], contents);
    if (was.chosenFadeMode != is.chosenFadeMode && contents.empty())
      contents.push_back({"change of colours", std::string("mode ") + kLists[i], true});
  }
  if (before.fades != after.fades) {
    RowsChange change = changeOfRows(before.fades->rows, after.fades->rows, "fade list", "fades");
    if (change.any()) rows.push_back(std::move(change));
    changesOfFades(*before.fades, *after.fades, contents);
  }
  const bool otherGrid = before.grid != after.grid;
  if (otherGrid && rows.empty()) return changeOfGrid(*before.grid, *after.grid);
  if (!rows.empty()) return otherGrid ? kLoad : named(rows, contents);
  if (contents.size() > 1) return kLoad;
  if (!contents.empty()) return contents.front();
  return nameOfCueStep(*before.cues, *after.cues).value_or(StepName{"change", "change"});
}

}  // namespace korvane
