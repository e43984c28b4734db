// One whole tick of a travelling image, and one whole stroke of the paint box: the picture, both
// previews, the mix and the output. Every tick changes what it paints, so the host is handed all
// that it can be.

#include "Stage.h"
#include "generators/Dialogs.h"
#include "generators/image/ImageCode.h"
#include "generators/paint/MxPaintForm.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

int sideOf(const benchmark::State& state) { return static_cast<int>(state.range(0)); }

// No two neighbours are alike, nor is any byte of theirs.
Raster checkered(int width, int height) {
  Raster raster(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x)
      raster.setPixel(x, y, (x + y) % 2 == 0 ? rgb(10, 20, 30) : rgb(200, 100, 50));
  }
  return raster;
}

void imageScroll(benchmark::State& state) {
  const int side = sideOf(state);
  Stage stage(side, kImage);
  Deck& deck = stage.engine.v.A;
  deck.effect().imageCount = 1;
  deck.effect().direction = toInt16(state.range(1));
  deck.mini.resize(side, side);
  deck.image.setRaster(checkered(side * 3, side * 3));
  placeImage(stage.engine, deck);
  measure(state, stage, [](Engine& engine, Deck& deckA) { moveImage(engine, deckA); });
}

// The whole redraw that follows each stroke, the drawing area of 600 x 600 pixels included.
void paintStroke(benchmark::State& state) {
  const int side = sideOf(state);
  Stage stage(side, kPaint);
  Dialogs dialogs(stage.engine);
  auto& paint = stage.engine.desktop.get<MxPaintForm>();
  stage.engine.v.A.effect().paintPixels.redim(side, side);
  paint.Bild.resize(600, 600);
  paint.open();
  Color color = 0;
  measure(state, stage, [&](Engine&, Deck& deckA) {
    color ^= rgb(255, 255, 255);
    deckA.effect().paintPixels.at(1, 1) = color;
    paint.drawPaint();
  });
}

BENCHMARK(imageScroll)
    ->ArgsProduct({{12, 50}, benchmark::CreateDenseRange(1, 8, 1)})
    ->Apply(inTurns);
BENCHMARK(paintStroke)->Arg(12)->Arg(50)->Apply(inTurns);

}  // namespace
}  // namespace korvane

BENCHMARK_MAIN();
