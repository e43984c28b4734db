#include "playback/EffectStart.h"

#include <array>

#include "generators/color/ColorCode.h"
#include "generators/colorchange/ColorChangeCode.h"
#include "generators/colorscroll/ColorScrollCode.h"
#include "generators/fireandwater/FireAndWaterCode.h"
#include "generators/image/ImageCode.h"
#include "generators/paint/PaintCode.h"
#include "generators/ticker/TickerCode.h"
#include "output/Preview.h"
#include "platform/Numbers.h"

namespace korvane {
namespace {

constexpr double kSlowCurve = 0.8;  // step interval of Image and Color Scroll
constexpr double kFastCurve = 0.4;  // step interval of Fire, Fluid and Ticker

const Rgb kBlackCell = {0, 0, 0};

bool byType(StartCause cause) { return cause != StartCause::RowSelected; }

// New Color effects are red on the left and blue on the right, so that a fresh show has two sides.
Color deckColor(const Variablen& v, const Deck& deck) {
  return deck.isB() ? v.colorBlue : v.colorRed;
}

void defaultsColor(Engine& engine, Deck& deck) { deck.effect().color1 = deckColor(engine.v, deck); }

void defaultsGradient(Engine& engine, Deck& deck) {
  Effect& effect = deck.effect();
  effect.color1 = engine.v.colorRed;
  effect.color2 = engine.v.colorYellow;
  effect.direction = 7;
}

// A new Paint effect begins as the picture that the deck was showing.
void defaultsPaint(Engine& engine, Deck& deck) {
  Grid<Color>& picture = deck.effect().paintPixels;
  picture.resizeKeeping(engine.v.matrixCols, engine.v.matrixRows);
  for (int col = 0; col < engine.v.matrixCols; ++col) {
    for (int row = 0; row < engine.v.matrixRows; ++row)
      picture.at(col, row) = rgb(deck.frame.at(col, row));
  }
}

void defaultsNone(Engine&, Deck&) {}

// The first store is overwritten by the second; 30 is the default that stands.
void defaultsColorChange(Engine&, Deck& deck) {
  deck.effect().speed = 50;
  deck.effect().speed = 30;
}

void defaultsFire(Engine& engine, Deck& deck) {
  Effect& effect = deck.effect();
  effect.color1 = engine.v.colorYellow;
  effect.color2 = engine.v.colorRed;
  effect.speed = 80;
  effect.amount = 30;
}

void defaultsFluid(Engine& engine, Deck& deck) {
  Effect& effect = deck.effect();
  effect.color1 = engine.v.colorBlue;
  effect.color2 = engine.v.colorWhite;
  effect.direction = 5;
  effect.speed = 80;
  effect.amount = 40;
}

void defaultsTicker(Engine& engine, Deck& deck) {
  Effect& effect = deck.effect();
  effect.color1 = engine.v.colorWhite;
  effect.color2 = engine.v.colorBlack;
  effect.tickerFont = 5;
  effect.tickerText = "Korvane - TharnDesk - ";
  effect.direction = 3;
  effect.speed = 75;
  effect.beatControl = 0;
  effect.tickerBackward = 0;
  effect.tickerMirror = 0;
  // Only the left deck leaves letter mode here; the right one keeps what the record held
  // (docs/kept.md, deck-letters).
  if (!deck.isB()) effect.tickerLetter = 0;
}

// The end of a still effect's start. Unlike publishDeckFrame it also mixes in a fade of long steps.
void publishStill(Engine& engine, Deck& deck) {
  drawMatrix(engine, deck);
  if (mixIsFree(engine, kSlowFadeFrame)) mixAndDraw(engine);
}

void runStepTimer(Deck& deck, double curve) {
  deck.timer1.setInterval(stepInterval(curve, deck.effect().speed));
  deck.timer1.enable();
}

void startColor(Engine& engine, Deck& deck, StartCause) {
  paintColor(engine, deck);
  publishStill(engine, deck);
}

void startGradient(Engine& engine, Deck& deck, StartCause) {
  paintGradient(engine, deck);
  publishStill(engine, deck);
}

void startPaint(Engine& engine, Deck& deck, StartCause) {
  paintPicture(engine, deck);
  publishStill(engine, deck);
}

void loadFirstImage(Engine& engine, Deck& deck, StartCause cause) {
  Effect& effect = deck.effect();
  if (loadImage(engine, deck, 0)) {
    placeImage(engine, deck);
  } else if (byType(cause)) {
    engine.platform.messageBox("File not found ! Please edit effect !");
  }
  if (effect.imageCount > 1) deck.timer2.setInterval(roundToInt32(effect.itemTimes.at(0) * 1000));
}

void startImage(Engine& engine, Deck& deck, StartCause cause) {
  const bool selected = cause == StartCause::RowSelected;
  // The left deck sets its step interval before the image is loaded, the right one doesn't
  // (docs/kept.md, deck-image-speed).
  if (selected && !deck.isB())
    deck.timer1.setInterval(stepInterval(kSlowCurve, deck.effect().speed));
  if (deck.effect().imageCount > 0) loadFirstImage(engine, deck, cause);
  prepareImage(engine, deck);
  if (!selected) return;
  deck.imageIndex = 0;
  if (deck.effect().imageCount > 1) deck.timer2.enable();
}

void startColorChangeEffect(Engine& engine, Deck& deck, StartCause) {
  deck.colorIndex = 0;
  startColorChange(engine, deck);
}

void startColorScroll(Engine& engine, Deck& deck, StartCause cause) {
  Effect& effect = deck.effect();
  // The right deck's type list leaves `beatOn` as it is where the left one clears it
  // (docs/kept.md, deck-scroll-beat).
  const bool clearsBeat = !(byType(cause) && deck.isB());
  if (effect.colorCount < 2) {
    deck.timer1.disable();
    if (byType(cause) && clearsBeat) deck.beatOn = false;
    engine.platform.messageBox("ColorScroll not configured ! Please edit effect !");
    return;
  }
  deck.colorIndex = 0;
  if (cause == StartCause::RowSelected) deck.step = 0;
  // Only the right deck's type list makes room for all widths. Meant.
  if (byType(cause) && deck.isB())
    effect.itemWidths.resize(static_cast<std::size_t>(effect.colorCount) + 1);
  buildScrollStrip(engine, deck);
  if (effect.beatControl != 0) {
    deck.beatOn = true;
    return;
  }
  if (clearsBeat) deck.beatOn = false;
  runStepTimer(deck, kSlowCurve);
}

void startFire(Engine& engine, Deck& deck, StartCause cause) {
  if (cause != StartCause::TypeChosen) {
    fillFrame(engine, deck, kBlackCell);
    drawMatrix(engine, deck);
    mixAndDraw(engine);
  }
  fireTick(engine, deck);
  runStepTimer(deck, kFastCurve);
}

// The picture is not cleared: what the deck showed flows out of the grid.
void startFluid(Engine& engine, Deck& deck, StartCause cause) {
  if (cause == StartCause::TypeChanged) deck.step = 0;
  fluidTick(engine, deck);
  runStepTimer(deck, kFastCurve);
}

// The step timer runs even for a beat-driven text; the beats step it as well.
void startTicker(Engine& engine, Deck& deck, StartCause cause) {
  const Effect& effect = deck.effect();
  deck.beatOn = effect.beatControl != 0;
  if (byType(cause)) {
    if (cause == StartCause::TypeChanged) deck.step = 0;
    fillFrame(engine, deck, colorParts(effect.color2));
    publishDeckFrame(engine, deck);
    tickerBuild(engine, deck);
    tickerTick(engine, deck);
  } else {
    tickerPlace(engine, deck);
    tickerBuild(engine, deck);
  }
  runStepTimer(deck, kFastCurve);
}

struct TypeRow {
  void (*defaults)(Engine&, Deck&);
  void (*start)(Engine&, Deck&, StartCause);
};

// One row per effect type, in the order of their numbers.
constexpr std::array<TypeRow, kEffectTypes> kTypes = {{
    {defaultsColor, startColor},
    {defaultsGradient, startGradient},
    {defaultsPaint, startPaint},
    {defaultsNone, startImage},
    {defaultsColorChange, startColorChangeEffect},
    {defaultsNone, startColorScroll},
    {defaultsFire, startFire},
    {defaultsFluid, startFluid},
    {defaultsTicker, startTicker},
}};

bool exists(std::int16_t type) { return type >= 0 && type < kEffectTypes; }

const TypeRow& rowOf(std::int16_t type) { return kTypes.at(static_cast<std::size_t>(type)); }

}  // namespace

void setTypeDefaults(Engine& engine, Deck& deck, std::int16_t type) {
  if (exists(type)) rowOf(type).defaults(engine, deck);
}

void startEffect(Engine& engine, Deck& deck, std::int16_t type, StartCause cause) {
  if (!exists(type)) return engine.platform.messageBox("Wert nicht erlaubt");
  rowOf(type).start(engine, deck, cause);
}

}  // namespace korvane
