#include "desk/whole/RowPictures.h"

#include <algorithm>

#include "desk/undo/ShowState.h"
#include "platform/Text.h"
#include "playback/ListRows.h"

namespace korvane {
namespace {

constexpr int kSlice = 20;             // ms from slice to slice of a film
constexpr std::int64_t kPatience = 5;  // steps

}  // namespace

void RowPictures::setOn(bool on) {
  on_ = on;
  Variablen& v = session_.plugin.engine.v;
  for (Deck* deck : {&v.A, &v.B}) {
    if (on)
      deck->efxList.setPictures([this, deck](int row) { return picture(*deck, row); });
    else
      deck->efxList.setPictures(nullptr);
  }
  if (on) return;
  films_.clear();
  filming_.reset();
  studio_.reset();
}

// A view that has much to do may leave some steps out.
bool RowPictures::moving() const {
  return on_ && session_.plugin.matrixForm.visible() && step_ - asked_ <= kPatience;
}

std::optional<int> RowPictures::wanted() const {
  if (!moving()) return std::nullopt;
  return filming_ ? kSlice : FilmStudio::kStep;
}

void RowPictures::settle(std::int64_t now) {
  const bool next = now / FilmStudio::kStep != step_;
  step_ = now / FilmStudio::kStep;
  if (!moving() || session_.loading()) return;
  goOnFilming();
  if (!next) return;
  Variablen& v = session_.plugin.engine.v;
  for (Deck* deck : {&v.A, &v.B}) deck->efxList.picturesChanged();
}

const Raster* RowPictures::picture(const Deck& deck, int row) {
  asked_ = step_;
  const Variablen& v = session_.plugin.engine.v;
  const std::int16_t slot = toInteger16(deck.efxList.cell(row, kSlotColumn));
  const auto index = static_cast<std::size_t>(slot);
  const std::size_t slots = std::min(deck.efx.size(), deck.efxEdited.size());
  if (index >= slots || !deck.efxEdited[index]) return nullptr;
  if (slot == deck.sel) return playing(deck);
  Film& film = films_[{deck.side, slot}];
  film.asked = step_;
  const std::pair<int, int> grid{v.matrixCols, v.matrixRows};
  film.stale = film.stale || film.grid != grid || !alike(film.effect, deck.efx[index]);
  if (film.pictures.empty()) return nullptr;
  return &film.pictures[static_cast<std::size_t>(step_) % film.pictures.size()];
}

const Raster* RowPictures::playing(const Deck& deck) {
  const Variablen& v = session_.plugin.engine.v;
  Raster& picture = playing_[deck.side];
  picture = smallPicture(deck.frame, v.matrixCols, v.matrixRows);
  return &picture;
}

void RowPictures::goOnFilming() {
  if (!filming_) return beginOne();
  if (!studio_->goOn()) return;
  films_[*filming_].pictures = studio_->take();
  filming_.reset();
  ++filmsMade_;
  forgetOldest();
}

// Of those that were asked for since the last step.
void RowPictures::beginOne() {
  const auto wanted = std::ranges::find_if(films_, [this](const auto& entry) {
    return entry.second.stale && entry.second.asked >= step_ - 1;
  });
  if (wanted == films_.end()) return;
  auto& [key, film] = *wanted;
  const Variablen& v = session_.plugin.engine.v;
  const Deck& deck = key.first == Side::B ? v.B : v.A;
  film.stale = false;
  film.grid = {v.matrixCols, v.matrixRows};
  film.effect = deck.efx.at(static_cast<std::size_t>(key.second));
  if (!studio_) studio_ = std::make_unique<FilmStudio>(session_.platform);
  studio_->begin(v, key.first, film.effect);
  filming_ = key;
}

void RowPictures::forgetOldest() {
  if (films_.size() <= kMostFilms) return;
  films_.erase(
      std::ranges::min_element(films_, {}, [](const auto& entry) { return entry.second.asked; }));
}

}  // namespace korvane
