#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "desk/show/DeskSession.h"
#include "desk/whole/FilmStudio.h"

namespace korvane {

/// Small pictures of the effects in the rows of the decks' lists: of the row that plays the deck's
/// own picture, of all others a short film, over and over. Only what a view asks for, because it is
/// seen, is made, and nothing moves while it asks for nothing.
class RowPictures {
 public:
  static constexpr std::size_t kMostFilms = 64;  ///< that are kept, of both decks

  explicit RowPictures(DeskSession& session) : session_(session) {}

  bool on() const { return on_; }
  void setOn(bool on);
  /// How soon settle() is to be called again, in ms; nothing while nobody sees a picture.
  std::optional<int> wanted() const;
  /// After each pass over the timers, at this time in ms.
  void settle(std::int64_t now);
  int filmsMade() const { return filmsMade_; }

 private:
  using Key = std::pair<Side, std::int16_t>;  // deck and slot
  struct Film {
    Effect effect;
    std::pair<int, int> grid;
    std::vector<Raster> pictures;
    std::int64_t asked = 0;  // the step
    bool stale = true;
  };

  bool moving() const;
  const Raster* picture(const Deck& deck, int row);
  const Raster* playing(const Deck& deck);
  void goOnFilming();
  void beginOne();
  void forgetOldest();

  DeskSession& session_;
  std::unique_ptr<FilmStudio> studio_;
  std::map<Key, Film> films_;
  std::map<Side, Raster> playing_;
  std::optional<Key> filming_;
  std::int64_t step_ = 0, asked_ = 0;  // the step now, and the last with a picture that was seen
  int filmsMade_ = 0;
  bool on_ = false;
};

}  // namespace korvane
