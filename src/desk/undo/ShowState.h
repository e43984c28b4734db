#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "desk/cues/ShowRun.h"
#include "shell/Plugin.h"
#include "state/Matrix.h"

namespace korvane {

/// A row of a list: its text, and the slot of its record.
struct RowState {
  std::string text;
  std::int16_t slot = 0;

  bool operator==(const RowState&) const = default;
};

/// What a deck holds of the show. Effects that are alike are one record, shared between states.
struct DeckState {
  std::vector<std::shared_ptr<const Effect>> slots;
  std::vector<Boolean> edited;  ///< per slot
  std::vector<RowState> rows;
  std::int16_t count = 0, deleted = 0;
  std::int16_t chosenFadeMode = 0;  ///< of a Color Change, while a transition still has another one
};

struct FadesState {
  std::vector<FadeEntry> slots;
  std::vector<RowState> rows;
  std::int16_t count = 0, deleted = 0;
};

struct GridState {
  Matrix matrix;
  Boolean configured, quick;
  std::string name, shownName;  ///< of the definition, and in its window
};

/// All that a person changes in the show, the grid and the list of cues, as it is at one moment.
/// Two states are equal if they share what they are made of.
struct ShowState {
  std::array<std::shared_ptr<const DeckState>, 2> decks;
  std::shared_ptr<const FadesState> fades;
  std::shared_ptr<const GridState> grid;
  std::shared_ptr<const CueList> cues;

  bool operator==(const ShowState&) const = default;
};

/// The state of the show now. It shares with `last` whatever has not changed since.
ShowState stateOf(const Plugin& plugin, const CueList& cues, const ShowState& last = {});

/// The same state, but with the records of the effects that play as these are now.
ShowState withPlaying(const Plugin& plugin, const ShowState& last);

/// Bytes of memory that a state takes beside another one.
std::size_t bytesBeside(const ShowState& state, const ShowState& other);

/// Whether all fields of two records are alike that a person sets.
bool alike(const Effect& one, const Effect& other);
bool alike(const FadeEntry& one, const FadeEntry& other);

/// The fields that differ, in words, as in "speed"; nothing for records that are alike.
std::vector<const char*> differences(const Effect& one, const Effect& other);
std::vector<const char*> differences(const FadeEntry& one, const FadeEntry& other);

std::vector<RowState> listRows(const ListView& list);

}  // namespace korvane
