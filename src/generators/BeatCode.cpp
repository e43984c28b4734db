#include "generators/BeatCode.h"

namespace korvane {

void beatStep(Engine&, Deck&) {}

}  // namespace korvane
