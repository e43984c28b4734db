#pragma once

#include <array>
#include <string>
#include <vector>

#include "desk/wall/WallPicture.h"

namespace korvane {

/// What a test lights to find mistakes on site, and where it has got to. The test goes straight to
/// the outputs, past all levels: what it lights shines even in a blackout.
struct LampTest {
  enum class What { Channel, Lamp, Row, Column, Universe, Wall };
  enum class Light { White, Red, Green, Blue, InTurn };

  What what = What::Lamp;
  Light light = Light::InTurn;  ///< of no account for a channel, which is full
  int at = 0;                   ///< which of them, from 0
  int turn = 0;                 ///< with InTurn: 0 red, 1 green, 2 blue, 3 white

  bool operator==(const LampTest&) const = default;
};

/// How many channels (with those that no lamp has), lamps, rows, columns or universes there are to
/// go through; at least 1.
int placesOf(LampTest::What what, const Patch& patch);

/// The test one step on, or back: the next colour if they come in turn, then the next place. Behind
/// the last one comes the first.
LampTest stepped(LampTest test, const Patch& patch, bool back = false);

/// The lamps that the test lights.
std::vector<LampAt> litLamps(const LampTest& test, const Patch& patch);
/// The colour in which it lights them; white for a channel that no lamp has.
Rgb litColor(const LampTest& test, const Patch& patch);
/// What goes to the outputs.
WallPicture testPicture(const LampTest& test, const Patch& patch);

/// For people: "Lamp 12 of 144, red: column 3, row 1, universe 1, channels 34 to 36".
std::string describe(const LampTest& test, const Patch& patch);
/// For people, of a lamp: "lamp 12: column 3, row 1, universe 1, channels 34 to 36".
std::string describe(const LampAt& lamp, const Patch& patch);

}  // namespace korvane
