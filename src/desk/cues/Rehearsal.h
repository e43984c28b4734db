#pragma once

#include <array>
#include <map>

#include "desk/cues/ShowStage.h"
#include "platform/TimerQueue.h"

namespace korvane {

/// A stage without a picture, in a time of its own: it only notes what would be on. Hours of cues
/// are gone through in no time, to find what should be on now.
class Rehearsal : public ShowStage {
 public:
  /// The show as it stands on a stage.
  explicit Rehearsal(const ShowStage& stage);

  std::vector<Row> rows(ShowList list) const override { return of(list).rows; }
  bool has(ShowList list, std::int16_t slot) const override;
  std::int16_t selected(ShowList list) const override { return of(list).selected; }
  void press(ShowList list, std::int16_t slot) override;
  bool standsAt(Side side) const override { return !fading() && atEnd_ && side_ == side; }
  Side seen() const override { return side_; }
  void fadeTo(Side side) override;
  void cutTo(Side side) override;
  bool fading() const override { return timers.now() < fadeEnds_; }
  double fadeLeft() const override {
    return fading() ? static_cast<double>(fadeEnds_ - timers.now()) / 1000 : 0;
  }
  std::int64_t fadeLength(std::int16_t slot) const override { return lengths_.at(slot); }
  int master() const override { return master_; }
  void setMaster(int percent) override { master_ = percent; }

  /// Brings what is noted onto a stage, with cuts.
  void bringTo(ShowStage& stage) const;

  TimerQueue timers;

 private:
  struct List {
    std::vector<Row> rows;
    std::int16_t selected = RowRef::kGone;
  };
  List& of(ShowList list) { return lists_[static_cast<std::size_t>(list)]; }
  const List& of(ShowList list) const { return lists_[static_cast<std::size_t>(list)]; }

  std::array<List, 3> lists_;
  std::map<std::int16_t, std::int64_t> lengths_;  // of the fades, in ms
  Side side_;
  bool atEnd_;
  int master_;
  std::int64_t fadeEnds_ = 0;
};

}  // namespace korvane
