#include "generators/ColorChangeCode.h"

namespace korvane {

void startColorChange(Engine&, Deck&) {}

void colorChangeStep(Engine&, Deck&) {}

void colorChangeTransition(Engine&, Deck&) {}

}  // namespace korvane
