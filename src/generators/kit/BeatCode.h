#pragma once

#include "state/Engine.h"

namespace korvane {

/// One beat of the host: one step of a beat-driven effect.
void beatStep(Engine& engine, Deck& deck);

/// Makes the deck's effect follow the beat: both timers stop, and the sequence timer gets the
/// interval within which beats are dropped. Or makes it step by time again; to start the step timer
/// is the caller's.
void followBeat(Engine& engine, Deck& deck, bool on);

}  // namespace korvane
