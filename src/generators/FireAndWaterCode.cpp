#include "generators/FireAndWaterCode.h"

namespace korvane {

void fireTick(Engine&, Deck&) {}

void fluidTick(Engine&, Deck&) {}

}  // namespace korvane
