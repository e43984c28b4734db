#include "desk/whole/FilmStudio.h"

#include <algorithm>

#include "persistence/MatrixDefinition.h"
#include "platform/Events.h"
#include "playback/EffectLists.h"

namespace korvane {

Raster smallPicture(const Frame& frame, int cols, int rows) {
  if (frame.cols() < cols || frame.rows() < rows) return {1, 1};  // another grid is on its way
  const int longer = std::max({cols, rows, 1});
  const int side = std::min(longer, kSmallSide);
  Raster picture(std::max(1, cols * side / longer), std::max(1, rows * side / longer));
  for (int x = 0; x < picture.width(); ++x) {
    for (int y = 0; y < picture.height(); ++y)
      picture.setPixel(x, y, rgb(frame.at(x * longer / side, y * longer / side)));
  }
  return picture;
}

namespace {

bool allDark(const Frame& frame) {
  return std::all_of(frame.data(), frame.data() + frame.span(),
                     [](const Rgb& lamp) { return lamp == Rgb{}; });
}

// From the start of an effect; 0 for one that stands still.
std::int32_t untilFirstStep(const Deck& deck) {
  return deck.timer1.enabled() ? deck.timer1.interval() : 0;
}

}  // namespace

FilmStudio::FilmStudio(Platform& machine) : platform_(machine) {
  platform_.timers = &plugin_.engine.timers;
  runEvent(platform_, [this] {
    plugin_.plugIn.ITharnPlugin_Init("Korvane", "", host_);
    plugin_.matrixForm.Form::load();
  });
}

void FilmStudio::takeGrid(const Variablen& show) {
  Variablen& v = plugin_.engine.v;
  v.showFolder = show.showFolder;
  v.projectDirectory = show.projectDirectory;
  if (v.matrixCols == show.matrixCols && v.matrixRows == show.matrixRows) return;
  v.matrix.cols = show.matrix.cols;
  v.matrix.rows = show.matrix.rows;
  dimensionMatrix(plugin_.engine);
  for (Deck* deck : {&v.A, &v.B}) deck->mini.resize(v.matrixCols, v.matrixRows);
}

void FilmStudio::begin(const Variablen& show, Side side, const Effect& effect) {
  Engine& engine = plugin_.engine;
  deck_ = side == Side::B ? &engine.v.B : &engine.v.A;
  pictures_.clear();
  plays_ = runEvent(platform_, [&] {
    takeGrid(show);
    deck_->frame.fill({});  // of the effect before, which a slow one leaves for seconds
    deck_->efx.at(0) = effect;
    deck_->efxEdited.at(0) = true;
    deck_->efxList.select(0);
    efxList_Click(engine, *deck_);
  });
  nextPicture_ = engine.timers.now() + (allDark(deck_->frame) ? untilFirstStep(*deck_) : 0);
}

bool FilmStudio::goOn() {
  const Variablen& v = plugin_.engine.v;
  TimerQueue& timers = plugin_.engine.timers;
  const auto gate = [this](const std::function<void()>& tick) { runEvent(platform_, tick); };
  int steps = std::max(1, kLampsASlice / std::max(1, v.matrixCols * v.matrixRows));
  while (plays_ && pictures_.size() < kLength) {
    const std::int64_t due = timers.nextDue();
    if (due <= nextPicture_) {
      if (steps-- == 0) return false;
      timers.advanceTo(due, gate);
      continue;
    }
    timers.advanceTo(nextPicture_, gate);
    pictures_.push_back(smallPicture(deck_->frame, v.matrixCols, v.matrixRows));
    nextPicture_ += kStep;
  }
  end();
  return true;
}

void FilmStudio::end() {
  deck_->timer1.disable();
  deck_->timer2.disable();
  platform_.boxes.clear();
  platform_.failures.clear();
}

}  // namespace korvane
