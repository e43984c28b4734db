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

FilmStudio::FilmStudio(Platform& machine) : platform_(machine) {
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

std::vector<Raster> FilmStudio::film(const Variablen& show, Side side, const Effect& effect) {
  Engine& engine = plugin_.engine;
  Variablen& v = engine.v;
  Deck& deck = side == Side::B ? v.B : v.A;
  std::vector<Raster> pictures;
  const bool starts = runEvent(platform_, [&] {
    takeGrid(show);
    deck.efx.at(0) = effect;
    deck.efxEdited.at(0) = true;
    deck.efxList.select(0);
    efxList_Click(engine, deck);
  });
  const auto gate = [this](const std::function<void()>& tick) { runEvent(platform_, tick); };
  for (int i = 0; starts && i < kLength; ++i) {
    pictures.push_back(smallPicture(deck.frame, v.matrixCols, v.matrixRows));
    engine.timers.advanceTo(engine.timers.now() + kStep, gate);
  }
  deck.timer1.disable();
  deck.timer2.disable();
  platform_.boxes.clear();
  platform_.failures.clear();
  return pictures;
}

}  // namespace korvane
