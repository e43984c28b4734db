#pragma once

#include "state/Engine.h"

namespace korvane {

/// One step of the Fire effect: repaints one cell in three.
void fireTick(Engine& engine, Deck& deck);
inline void fireTickA(Engine& engine) { fireTick(engine, engine.v.A); }
inline void fireTickB(Engine& engine) { fireTick(engine, engine.v.B); }

/// One step of the Fluid effect: the picture moves one cell and a fresh line enters behind it.
void fluidTick(Engine& engine, Deck& deck);
inline void fluidTickA(Engine& engine) { fluidTick(engine, engine.v.A); }
inline void fluidTickB(Engine& engine) { fluidTick(engine, engine.v.B); }

}  // namespace korvane
