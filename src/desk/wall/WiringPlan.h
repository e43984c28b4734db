#pragma once

#include <array>
#include <optional>
#include <string>

#include "desk/wall/WirePath.h"

namespace korvane {

/// The order in which a lamp's colours stand on the wire.
enum class ColorOrder { RGB, RBG, GRB, GBR, BRG, BGR };
inline constexpr std::array<const char*, 6> kColorOrderNames = {"RGB", "RBG", "GRB",
                                                                "GBR", "BRG", "BGR"};

/// How far along the wire the lamps of one universe reach. A lamp never lies in two universes.
enum class UniverseFill {
  Full,   ///< as many as fit: 170 in a whole universe
  Count,  ///< a number of lamps, or as many as fit
  Lines   ///< whole lines of the wire, as many as fit; a line too long for one is broken where full
};

/// A wall of equal panels, chained one after another.
struct PanelPlan {
  /// How the panels hang. Turned: all of them, clockwise. AlternateHalf: those of every second line
  /// of the chain stand on their heads.
  enum class Turn { None, Quarter, Half, ThreeQuarters, AlternateHalf };

  int cols = 8, rows = 8;    ///< lamps of a panel that is not turned, 1 - 50
  int across = 2, down = 2;  ///< panels of the wall, 1 - 50
  WirePath path{};           ///< the chain, from panel to panel
  Turn turn = Turn::None;

  bool turnedAside() const { return turn == Turn::Quarter || turn == Turn::ThreeQuarters; }
  bool operator==(const PanelPlan&) const = default;
};

/// How a wall is wired: what a person can say of it in a few words. The defaults are a strip in
/// rows from the top left corner.
struct WiringPlan {
  int cols = 12, rows = 12;  ///< lamps of the wall, 1 - 50; of no account with panels
  WallChannel first{};       ///< where the first lamp begins
  WirePath path{};           ///< from lamp to lamp, of the wall or of each panel
  ColorOrder order = ColorOrder::RGB;
  UniverseFill fill = UniverseFill::Full;
  int lampsPerUniverse = 170;  ///< 1 - 170, of account with UniverseFill::Count alone
  int skipped = 0;             ///< lamps of the strip left unused at the end of each line, 0 - 170
  std::optional<PanelPlan> panels{};

  /// Lamps of the whole wall.
  int wallCols() const;
  int wallRows() const;
  bool operator==(const WiringPlan&) const = default;
};

inline constexpr int kMostLampsOfUniverse = kUniverseChannels / 3;
inline constexpr int kMostSideOfWall = 50;

/// What is wrong with a plan, for a person to read; empty for a plan that can be laid.
std::string faultOf(const WiringPlan& plan);

/// The lamps of the wall along the wire, by lines of the strip; a line ends within its panel.
WireLines linesOf(const WiringPlan& plan);

/// The channels of a plan without a fault. Codes go on beyond the last universe, so that lamps for
/// which there is no room can be told.
ChannelMap wire(const WiringPlan& plan);

/// The plan without panels that gives this map; nothing if there is none.
std::optional<WiringPlan> planOf(const ChannelMap& map);

}  // namespace korvane
