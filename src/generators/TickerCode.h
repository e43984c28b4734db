#pragma once

#include "state/Engine.h"

namespace korvane {

/// Reckons where the text stands across its direction of travel, from `amount`, as a selected row
/// does it: only for running text of the 5-point font.
void tickerPlace(Engine& engine, Deck& deck);
inline void tickerPlaceA(Engine& engine) { tickerPlace(engine, engine.v.A); }
inline void tickerPlaceB(Engine& engine) { tickerPlace(engine, engine.v.B); }

/// Renders the text into the strip, clears the picture to the background and restarts the pass.
void tickerBuild(Engine& engine, Deck& deck);
inline void tickerBuildA(Engine& engine) { tickerBuild(engine, engine.v.A); }
inline void tickerBuildB(Engine& engine) { tickerBuild(engine, engine.v.B); }

/// One step of the Ticker effect.
void tickerTick(Engine& engine, Deck& deck);
inline void tickerTickA(Engine& engine) { tickerTick(engine, engine.v.A); }
inline void tickerTickB(Engine& engine) { tickerTick(engine, engine.v.B); }

}  // namespace korvane
