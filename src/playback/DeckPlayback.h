#pragma once

#include "state/Engine.h"

namespace korvane {

/// A tick of a deck's step timer: one step of the running effect. The tick stops its own timer
/// first and, where the effect runs on, enables it last, so that a slow tick never piles up.
void timer1_Timer(Engine& engine, Deck& deck);
/// A tick of a deck's sequence timer: the next image, or a step of a Color Change transition. For
/// any other effect the timer just stays off, which is how a beat's lock-out ends.
void timer2_Timer(Engine& engine, Deck& deck);

/// Stops both timers of a deck, as every change of its selection, type or contents does first.
void stopDeck(Deck& deck);

}  // namespace korvane
