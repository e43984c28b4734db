#pragma once

#include "state/Engine.h"

namespace korvane {

/// Starts the effect at `colorIndexA`.
void startColorChange(Engine& engine, Deck& deck);
inline void startColorChangeA(Engine& engine) { startColorChange(engine, engine.v.A); }
inline void startColorChangeB(Engine& engine) { startColorChange(engine, engine.v.B); }

/// A tick of the step timer: the next colour, at once or by a transition.
void colorChangeStep(Engine& engine, Deck& deck);
inline void colorChangeStepA(Engine& engine) { colorChangeStep(engine, engine.v.A); }
inline void colorChangeStepB(Engine& engine) { colorChangeStep(engine, engine.v.B); }

/// A tick of the sequence timer: one step of the running transition.
void colorChangeTransition(Engine& engine, Deck& deck);
inline void colorChangeTransitionA(Engine& engine) { colorChangeTransition(engine, engine.v.A); }
inline void colorChangeTransitionB(Engine& engine) { colorChangeTransition(engine, engine.v.B); }

}  // namespace korvane
