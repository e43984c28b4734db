#pragma once

#include <cstdint>
#include <vector>

#include "persistence/MatrixDefinition.h"
#include "testing/Drawing.h"
#include "testing/TestPlugin.h"

namespace korvane {

/// What the tests of Color Change and Color Scroll share: an open window, and a deck whose first
/// record becomes an effect with a list of colours.
class ColorEffects : public TestPlugin {
 protected:
  ColorEffects(EffectType type, Side side) : deck(openedDeck(side)) {
    effect.type = type;
    effect.speed = 50;
    resize(4, 4);
  }

  bool isB() const { return deck.isB(); }
  /// Gives the grid a size at once: without a window, beyond what the windows offer.
  void dimension(int cols, int rows) {
    v.matrixCols = static_cast<std::int16_t>(cols);
    v.matrixRows = static_cast<std::int16_t>(rows);
    dimensionMatrix(engine);
  }
  /// Stores the list of colours without an event, one spare slot behind each array.
  void setColors(const std::vector<Color>& colors, const std::vector<double>& times,
                 const std::vector<std::int32_t>& widths) {
    effect.colorCount = static_cast<std::int16_t>(colors.size());
    effect.colors = colors;
    effect.itemTimes = times;
    effect.itemWidths = widths;
    effect.colors.resize(colors.size() + 1);
    effect.itemTimes.resize(times.size() + 1);
    effect.itemWidths.resize(widths.size() + 1);
  }
  /// Selects the row, which starts the effect.
  void start() { pick(deck.efxList, 0); }
  /// Opens the effect's dialog.
  bool edit() { return click((isB() ? plugin.matrixForm.panelB : plugin.matrixForm.panelA).edit); }
  bool toggle(CheckBox& box) {
    return event([&box] { box.setValue(1 - box.value()); });
  }
  void beat() {
    event([this] { plugin.plugIn.ITharnPlugin_MessageHandle(kMessageBeat, 0, 0); });
  }

  Deck& deck;
  Effect& effect = deck.effect();

 private:
  Deck& openedDeck(Side side) {
    open();
    return side == Side::B ? v.B : v.A;
  }
};

/// The same for one type of effect over both decks.
template <EffectType kType>
class ColorEffectsOnDecks : public ColorEffects, public testing::WithParamInterface<Side> {
 protected:
  ColorEffectsOnDecks() : ColorEffects(kType, GetParam()) {}
};

/// The fade modes of Color Change.
enum ColorFadeMode : std::int16_t {
  kFadeNone,
  kFadeBlend,
  kFadeRandom,
  kFadeFillDown,
  kFadeFillUp,
  kFadeScrollUp,
  kFadeScrollDown,
  kFadeScrollLeft,
  kFadeScrollRight
};

/// A colour change to play, over both decks.
class ColorChanges : public ColorEffectsOnDecks<kColorChange> {
 protected:
  void play(const std::vector<Color>& colors, const std::vector<double>& times,
            std::int16_t mode = kFadeNone) {
    setColors(colors, times, {});
    effect.fadeMode = mode;
    deck.savedFadeMode = mode;
    start();
  }
  /// A step from red to green whose transition takes one second, on a grid, and nothing of it yet.
  void startTransition(std::int16_t mode, int cols = 4, int rows = 3) {
    resize(cols, rows);
    effect.amount = 100;
    play({kRed, kGreen}, {1, 1}, mode);
    advance(1000);
  }
  /// Ticks of the transition.
  void ticks(int count) { advance(std::int64_t{count} * deck.timer2.interval()); }
};

}  // namespace korvane
