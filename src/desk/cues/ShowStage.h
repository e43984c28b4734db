#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desk/cues/Cue.h"

namespace korvane {

inline constexpr std::int64_t kLookAtFade = 20;  ///< ms from one look at a running fade to the next
inline constexpr std::int64_t kMostLate = 1000;  ///< ms that a late step is made up for

/// What cues and automatic play act on: the lists of a show, the master fader, the grand master.
class ShowStage {
 public:
  struct Row {
    std::int16_t slot = 0;
    std::string name;
  };

  virtual ~ShowStage() = default;

  /// The rows of a list from the top.
  virtual std::vector<Row> rows(ShowList list) const = 0;
  virtual bool has(ShowList list, std::int16_t slot) const = 0;
  /// Slot of the selected row; RowRef::kGone for an empty list.
  virtual std::int16_t selected(ShowList list) const = 0;
  /// Presses the row that shows a slot. That of a fade breaks off a fade that runs.
  virtual void press(ShowList list, std::int16_t slot) = 0;

  /// True if the fader stands at this deck's end: the other one is not seen.
  virtual bool standsAt(Side side) const = 0;
  /// The deck that is seen more.
  virtual Side seen() const = 0;
  /// Starts the selected fade from where the fader stands.
  virtual void fadeTo(Side side) = 0;
  virtual void cutTo(Side side) = 0;
  virtual bool fading() const = 0;
  /// Seconds until the fade that runs is done; 0 without one.
  virtual double fadeLeft() const = 0;
  /// How long a fade takes from one end to the other, in milliseconds.
  virtual std::int64_t fadeLength(std::int16_t slot) const = 0;

  virtual int master() const = 0;  ///< percent, 0 - 100
  virtual void setMaster(int percent) = 0;
};

}  // namespace korvane
