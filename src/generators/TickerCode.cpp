#include "generators/TickerCode.h"

namespace korvane {

void tickerPlace(Engine&, Deck&) {}

void tickerBuild(Engine&, Deck&) {}

void tickerTick(Engine&, Deck&) {}

}  // namespace korvane
