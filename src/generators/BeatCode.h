#pragma once

#include "state/Engine.h"

namespace korvane {

/// One beat of the host: one step of a beat-driven effect.
void beatStep(Engine& engine, Deck& deck);
inline void beatStepA(Engine& engine) { beatStep(engine, engine.v.A); }
inline void beatStepB(Engine& engine) { beatStep(engine, engine.v.B); }

}  // namespace korvane
