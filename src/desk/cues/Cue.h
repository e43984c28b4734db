#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "state/Deck.h"

namespace korvane {

/// The lists of a show from which a cue takes a row.
enum class ShowList { Left, Right, Fades };
inline constexpr std::array<ShowList, 3> kShowLists = {ShowList::Left, ShowList::Right,
                                                       ShowList::Fades};

/// The list of a deck's effects.
inline ShowList listOf(Side side) { return side == Side::A ? ShowList::Left : ShowList::Right; }
inline Side otherSide(Side side) { return side == Side::A ? Side::B : Side::A; }

/// A row of one of the show's lists. It is held by its slot, which stays the same when rows are
/// renamed, moved or removed; its name finds it again in a show that is loaded, and tells a person
/// what is gone.
struct RowRef {
  static constexpr std::int16_t kLeave = -1;  ///< no row: what is selected is left as it is
  static constexpr std::int16_t kGone = -2;   ///< a row that the show has no more

  std::int16_t slot = kLeave;
  std::string name{};

  bool leaves() const { return slot == kLeave; }
  bool operator==(const RowRef&) const = default;
};

/// One step of a show.
struct Cue {
  /// What it does with the master fader.
  enum class Move { None, FadeLeft, FadeRight, CutLeft, CutRight };
  /// When the next cue follows by itself.
  enum class End { ByHand, Seconds, Beats, FadeDone };

  std::string name;
  std::array<RowRef, 3> rows{};  ///< by ShowList: the decks' effects; the fade, for a fading move
  Move move = Move::None;
  std::optional<int> master{};  ///< grand master, percent 0 - 100; none leaves it
  End end = End::ByHand;
  double after = 10;  ///< seconds, 0.1 - 86400, or beats, 1 - 10000

  RowRef& row(ShowList list) { return rows[static_cast<std::size_t>(list)]; }
  const RowRef& row(ShowList list) const { return rows[static_cast<std::size_t>(list)]; }
  bool fades() const { return move == Move::FadeLeft || move == Move::FadeRight; }
  /// The deck to which the fader goes.
  Side towards() const {
    return move == Move::FadeLeft || move == Move::CutLeft ? Side::A : Side::B;
  }
  bool operator==(const Cue&) const = default;
};

inline constexpr double kShortestCue = 0.1, kLongestCue = 86400;  // seconds
inline constexpr int kMostBeats = 10000;
inline constexpr int kMostGuard = 5000;  // ms

struct CueList {
  std::vector<Cue> cues;
  bool loop = false;    ///< the first cue follows the last
  bool random = false;  ///< each once in an order drawn anew for each round
  int guard = 100;      ///< ms, 0 - 5000: a second Go within them is none

  int count() const { return static_cast<int>(cues.size()); }
  const Cue& at(int index) const { return cues.at(static_cast<std::size_t>(index)); }
  bool operator==(const CueList&) const = default;
};

}  // namespace korvane
