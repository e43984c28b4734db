#include "desk/undo/CueStepName.h"

#include <algorithm>
#include <string>
#include <vector>

namespace korvane {
namespace {

// A row's name stands in each of its cues.
std::vector<Cue> withoutNamesOfRows(std::vector<Cue> cues) {
  for (Cue& cue : cues) {
    for (RowRef& row : cue.rows) row.name.clear();
  }
  return cues;
}

// Those of a list that are more than in another one, which is in the same order; nothing if it
// isn't.
std::vector<std::string> namesBeside(const std::vector<Cue>& list, const std::vector<Cue>& other) {
  std::vector<std::string> names;
  auto next = other.begin();
  for (const Cue& cue : list) {
    if (next != other.end() && cue == *next) {
      ++next;
    } else {
      names.push_back(cue.name);
    }
  }
  return next == other.end() ? names : std::vector<std::string>();
}

// "cue 'Doors'", or "3 cues".
std::string counted(const std::vector<std::string>& names) {
  return names.size() == 1 ? "cue '" + names[0] + "'" : std::to_string(names.size()) + " cues";
}

const char* wordsFor(const Cue& before, const Cue& after) {
  if (before.name != after.name) return "name";
  if (before.row(ShowList::Left) != after.row(ShowList::Left)) return "left effect";
  if (before.row(ShowList::Right) != after.row(ShowList::Right)) return "right effect";
  if (before.move != after.move) return "fader";
  if (before.row(ShowList::Fades) != after.row(ShowList::Fades)) return "fade";
  return before.master != after.master ? "master" : "end";
}

// As many cues as before.
std::optional<StepName> nameOfChange(const std::vector<Cue>& before,
                                     const std::vector<Cue>& after) {
  std::vector<std::size_t> others;
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (before[i] != after[i]) others.push_back(i);
  }
  if (others.empty()) return std::nullopt;
  const std::size_t one = others.front();
  if (others.size() == 1) {
    const std::string words = wordsFor(before[one], after[one]);
    return StepName{words + " of cue '" + before[one].name + "'",
                    "cue " + std::to_string(one) + words, true};
  }
  return StepName{std::ranges::is_permutation(before, after) ? "order of the cues" : "cues",
                  "cues"};
}

}  // namespace

std::optional<StepName> nameOfCueStep(const CueList& before, const CueList& after) {
  const std::vector<Cue> was = withoutNamesOfRows(before.cues);
  const std::vector<Cue> is = withoutNamesOfRows(after.cues);
  const std::vector<std::string> added = namesBeside(is, was), removed = namesBeside(was, is);
  if (is.size() > was.size() && !added.empty()) return StepName{"added " + counted(added), "cues+"};
  if (is.size() < was.size() && !removed.empty())
    return StepName{"removed " + counted(removed), "cues-"};
  if (is.size() != was.size()) return StepName{"cues", "cues"};
  if (auto name = nameOfChange(was, is)) return name;
  const bool options =
      before.loop != after.loop || before.random != after.random || before.guard != after.guard;
  return options ? std::optional(StepName{"options of the cues", "cues'"}) : std::nullopt;
}

}  // namespace korvane
