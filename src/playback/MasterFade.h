#pragma once

#include "state/Engine.h"

namespace korvane {

/// `masterValue` follows `faderM`; mixes unless a fade of short steps runs.
void masterAdjust(Engine& engine);
/// Sets `fadeMap` of every cell by `masterValue`: 1.0 above 0.5, else 0.0.
void resetFadeMap(Engine& engine);

/// Cuts to a deck.
void fadeA_Click(Engine& engine);
void fadeB_Click(Engine& engine);
/// Starts the selected fade towards a deck; does nothing while a fade runs.
void AutoFadeA_Click(Engine& engine);
void AutoFadeB_Click(Engine& engine);

/// One step of the running fade.
void timerM_Timer(Engine& engine);
/// One refresh of the mix.
void timerM2_Timer(Engine& engine);
/// The frame rate of `timerM2`.
void fps_Click(Engine& engine);

}  // namespace korvane
