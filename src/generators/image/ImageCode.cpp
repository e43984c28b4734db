#include "generators/image/ImageCode.h"

#include <array>
#include <cstddef>
#include <utility>

#include "generators/kit/StepCurves.h"
#include "output/Preview.h"
#include "platform/Numbers.h"
#include "platform/TextFile.h"

namespace korvane {
namespace {

constexpr int kStillDirection = 9;

// The sizes between which an image travels, in pixels, and the offset that `amount` makes of the
// spare width.
struct Travel {
  explicit Travel(Deck& deck)
      : width(deck.image.width()),
        height(deck.image.height()),
        cols(deck.mini.width()),
        rows(deck.mini.height()),
        offset(floorToInt32((width - cols) * static_cast<double>(deck.effect().amount) / 100)) {}

  int width, height;  // of the image
  int cols, rows;     // of the window onto it
  int offset;
};

void moveTo(Deck& deck, int x, int y) {
  deck.imagePosX = toInt16(x);
  deck.imagePosY = toInt16(y);
}

// The start of a travel, which the diagonal ones also come back to. Directions 3 and 7 take y from
// the width's difference too. Shows rely on how far the offset reaches
// (docs/kept.md, image-offset).
void moveToStart(Deck& deck, const Travel& t) {
  switch (deck.effect().direction) {
    case 0:
    case 1:
      return moveTo(deck, t.offset, 0);
    case 2:
      return moveTo(deck, 1 - t.cols + t.offset, 1 - t.rows);
    case 3:
      return moveTo(deck, 0, t.offset);
    case 4:
      return moveTo(deck, 1 - t.cols + t.offset, t.height - 1);
    case 5:
      return moveTo(deck, t.offset, t.height - t.rows - 1);
    case 6:
      return moveTo(deck, t.width - 1 - t.offset, t.height - 1);
    case 7:
      return moveTo(deck, t.width - t.cols - 1, t.offset);
    case 8:
      return moveTo(deck, t.width - 1 - t.offset, 1 - t.rows);
    default:
      return;
  }
}

struct Move {
  std::int16_t x, y;
};

// How the window moves by direction; the picture moves the other way.
constexpr std::array<Move, 9> kMoves = {
    {{0, 0}, {0, 1}, {1, 1}, {1, 0}, {1, -1}, {0, -1}, {-1, -1}, {-1, 0}, {-1, 1}}};

// Up and left look at 0, the others at what lies beyond; and of the diagonals one watches both
// axes, the others one (docs/kept.md, image-wrap).
void wrap(Deck& deck, const Travel& t) {
  std::int16_t& x = deck.imagePosX;
  std::int16_t& y = deck.imagePosY;
  switch (deck.effect().direction) {
    case 1:
      if (y >= t.height) y = 0;
      return;
    case 2:
    case 4:
      if (x >= deck.scrollLength) moveToStart(deck, t);
      return;
    case 3:
      if (x >= t.width) x = 0;
      return;
    case 5:
      if (y <= 0) y = toInt16(t.height - 1);
      return;
    case 6:
      if (x + t.cols < 0 || y + t.rows < 0) moveToStart(deck, t);
      return;
    case 7:
      if (x < 0) x = toInt16(t.width - 1);
      return;
    case 8:
      if (y >= deck.scrollLength) moveToStart(deck, t);
      return;
    default:
      return;
  }
}

void step(Deck& deck, const Travel& t) {
  const std::int16_t direction = deck.effect().direction;
  if (direction < 1 || direction >= static_cast<int>(kMoves.size())) return;
  const Move& move = kMoves.at(static_cast<std::size_t>(direction));
  deck.imagePosX = add16(deck.imagePosX, move.x);
  deck.imagePosY = add16(deck.imagePosY, move.y);
  wrap(deck, t);
}

// The part of a window that lies on the image, and the rest beyond its end. A window that reaches
// beyond drops the image's last line (docs/kept.md, image-seam).
struct Seam {
  Seam(int position, int window, int image) : before(window) {
    if (position + window > image) before = image - position - 1;
    after = window - before;
  }

  int before;
  int after = 0;
};

// Copies the window of a moving image: in the straight directions the image is endless along the
// travel, in the diagonal ones it slides through black.
void copyMovingWindow(Deck& deck, const Travel& t) {
  const int x = deck.imagePosX;
  const int y = deck.imagePosY;
  const std::int16_t direction = deck.effect().direction;
  const Seam across(x, t.cols, t.width);
  const Seam down(y, t.rows, t.height);
  const Raster& image = deck.image.raster();
  Raster& mini = deck.mini.canvas();
  mini.fill(0);
  mini.copy(0, 0, across.before, down.before, image, x, y);
  if (direction == 1 || direction == 5)
    mini.copy(0, down.before, across.before, down.after, image, x, 0);
  if (direction == 3 || direction == 7)
    mini.copy(across.before, 0, across.after, down.before, image, 0, y);
  deck.mini.touched();
}

// The loaded image itself is widened to the window and filled with repeats of what it was.
void tileAcross(Deck& deck, int matrixCols) {
  const Raster& picture = deck.image.raster();
  if (picture.width() >= matrixCols) return;
  const int whole = divTrunc(matrixCols, picture.width());
  Raster wide(deck.mini.width(), picture.height());
  for (int i = 0; i <= whole + 1; ++i)
    wide.copy(i * picture.width(), 0, picture.width(), picture.height(), picture, 0, 0);
  deck.image.setRaster(std::move(wide));
  deck.imagePosX = 0;
}

void tileDown(Deck& deck, int matrixRows) {
  const Raster& picture = deck.image.raster();
  if (picture.height() >= matrixRows) return;
  const int whole = divTrunc(matrixRows, picture.height());
  Raster tall(picture.width(), deck.mini.height());
  for (int i = 0; i <= whole + 1; ++i)
    tall.copy(0, i * picture.height(), picture.width(), picture.height(), picture, 0, 0);
  deck.image.setRaster(std::move(tall));
  deck.imagePosY = 0;
}

void showWindow(Variablen& v, Deck& deck) {
  const Effect& effect = deck.effect();
  deck.mini.clear();
  if (effect.imageTile == 1) {
    tileAcross(deck, v.matrixCols);
    tileDown(deck, v.matrixRows);
  }
  deck.mini.canvas().copy(0, 0, deck.mini.width(), deck.mini.height(), deck.image.raster(),
                          deck.imagePosX, deck.imagePosY);
  deck.mini.touched();
  if (effect.direction <= 0 || effect.direction == kStillDirection || effect.speed <= 0) return;
  runStepTimer(deck, kSlowCurve);
}

}  // namespace

std::string pictureFile(const std::string& path, const std::string& showFolder, Disk& disk) {
  if (path.empty() || showFolder.empty() || systemPath(path).is_absolute()) return path;
  const std::u8string found =
      (systemPath(showFolder) / systemPath(path)).lexically_normal().u8string();
  const std::string beside(found.begin(), found.end());
  return fileExists(beside, disk) ? beside : path;
}

bool loadImage(Engine& engine, Deck& deck, const std::string& path) {
  const std::string file = pictureFile(path, engine.v.showFolder, engine.platform.disk());
  if (!fileExists(file, engine.platform.disk())) return false;
  deck.image.setRaster(engine.platform.loadPicture(file));
  return true;
}

bool loadImage(Engine& engine, Deck& deck, int index) {
  return loadImage(engine, deck, deck.effect().imageFiles.at(static_cast<std::size_t>(index)));
}

void placeImage(Engine&, Deck& deck) {
  const Travel t(deck);
  deck.scrollLength = toInt16(t.height - t.rows > t.width - t.cols ? t.width : t.height);
  moveToStart(deck, t);
}

void prepareImage(Engine& engine, Deck& deck) {
  const Effect& effect = deck.effect();
  if (effect.imageCount <= 0) {
    engine.platform.messageBox("No Pictures in List. Please edit preset");
    deck.mini.clear();
  } else if (effect.imageStretch == 1) {
    deck.mini.canvas().stretch(deck.image.raster());
    deck.mini.touched();
    deck.timer1.disable();
  } else {
    showWindow(engine.v, deck);
  }
  sampleMini(engine, deck);
}

void sampleMini(Engine& engine, Deck& deck) {
  const Raster& mini = deck.mini.raster();
  for (int col = 0; col < engine.v.matrixCols; ++col) {
    for (int row = 0; row < engine.v.matrixRows; ++row)
      deck.frame.at(col, row) = colorParts(mini.pixel(col, row));
  }
  publishBetweenSteps(engine, deck);
}

void moveImage(Engine& engine, Deck& deck) {
  const Travel t(deck);
  step(deck, t);
  copyMovingWindow(deck, t);
  sampleMini(engine, deck);
}

void nextImage(Engine& engine, Deck& deck) {
  Effect& effect = deck.effect();
  if (effect.imageCount <= 0) return;  // the sequence has ended
  std::int16_t& index = deck.imageIndex;
  index = index >= effect.imageCount - 1 ? std::int16_t{0} : add16(index, 1);
  if (!loadImage(engine, deck, index)) {
    effect.imageCount = 0;
    return engine.platform.messageBox("File not found: " +
                                      effect.imageFiles[static_cast<std::size_t>(index)]);
  }
  // On the right deck the next image starts at the corner, and a travel keeps the limits of the
  // image before (docs/kept.md, deck-image-next).
  if (deck.isB()) {
    moveTo(deck, 0, 0);
  } else {
    placeImage(engine, deck);
  }
  prepareImage(engine, deck);
  holdImage(deck, index);
}

void holdImage(Deck& deck, int index) {
  const double seconds = deck.effect().itemTimes.at(static_cast<std::size_t>(index));
  deck.timer2.setInterval(roundToInt32(seconds * 1000));
  deck.timer2.enable();
}

}  // namespace korvane
