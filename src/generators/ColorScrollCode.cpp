#include "generators/ColorScrollCode.h"

namespace korvane {

void buildScrollStrip(Engine&, Deck&) {}

void tickColorScroll(Engine&, Deck&) {}

}  // namespace korvane
