#pragma once

#include <array>
#include <cstdint>

#include "state/Engine.h"

namespace korvane {

/// The transitions from one colour to the next, in the order of `fadeMode`.
inline constexpr std::array<const char*, 9> kColorFadeNames = {
    "None",     "Fade",       "Random",     "FillDown",   "FillUp",
    "ScrollUp", "ScrollDown", "ScrollLeft", "ScrollRight"};

/// Starts the effect at `colorIndexA`. Without a colour it says so and stops the deck's timers.
void startColorChange(Engine& engine, Deck& deck);

/// A tick of the step timer: the next colour, at once or by a transition. The tick has turned the
/// timer off; it stays off during a transition.
void colorChangeStep(Engine& engine, Deck& deck);

/// A beat: the next colour, at once.
void colorChangeBeat(Engine& engine, Deck& deck);

/// A tick of the sequence timer: one step of the running transition, or its end. The tick has
/// turned the timer off; a `fadeMode` without a transition leaves it so.
void colorChangeTransition(Engine& engine, Deck& deck);

}  // namespace korvane
