#pragma once

#include <string>

#include "generators/ticker/TickerCode.h"
#include "testing/CellEffects.h"

namespace korvane {

/// The Ticker over both decks: white text of the 5-point font on blue.
class TickerEffect : public CellEffects {
 protected:
  void SetUp() override {
    CellEffects::SetUp();
    effect().type = kTicker;
    effect().color1 = rgb(255, 255, 255);
    effect().color2 = rgb(0, 0, 255);
    effect().tickerFont = 5;
  }
  bool build(const std::string& text, int direction) {
    effect().tickerText = text;
    effect().direction = static_cast<std::int16_t>(direction);
    return event([this] { tickerBuild(engine, deck); });
  }
  bool tick(int times = 1) {
    bool well = true;
    for (int i = 0; i < times && well; ++i) well = event([this] { tickerTick(engine, deck); });
    return well;
  }
  bool offset(int amount) {
    effect().amount = static_cast<std::int16_t>(amount);
    return event([this] { tickerOffset(engine, deck); });
  }
  void place(int x, int y) {
    deck.imagePosX = static_cast<std::int16_t>(x);
    deck.imagePosY = static_cast<std::int16_t>(y);
  }
};

}  // namespace korvane
