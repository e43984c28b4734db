#include "desk/wall/WiringPlan.h"

#include <algorithm>

namespace korvane {
namespace {

constexpr int kChannelsOfLamp = 3;
using Turn = PanelPlan::Turn;

// By ColorOrder: which place on the wire red, green and blue have.
constexpr std::array<std::array<int, 3>, 6> kPlaces = {
    {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {2, 0, 1}, {1, 2, 0}, {2, 1, 0}}};

// Where a lamp of a panel is once the panel hangs turned.
LampAt turned(const LampAt& lamp, const PanelPlan& panel, Turn turn) {
  switch (turn) {
    case Turn::Quarter:
      return {panel.rows - 1 - lamp.row, lamp.col};
    case Turn::Half:
      return {panel.cols - 1 - lamp.col, panel.rows - 1 - lamp.row};
    case Turn::ThreeQuarters:
      return {lamp.row, panel.cols - 1 - lamp.col};
    default:
      return lamp;
  }
}

// Hands out the channels one lamp after another.
class Strip {
 public:
  explicit Strip(const WiringPlan& plan)
      : plan_(plan), universe_(plan.first.universe), channel_(plan.first.channel) {}

  void beginLine(std::size_t lamps) {
    const bool full = lamps_ > 0 && fits() < static_cast<int>(lamps);
    if (plan_.fill == UniverseFill::Lines && full) nextUniverse();
  }
  // The code of the next lamp's first channel.
  std::int32_t next() {
    const bool counted = plan_.fill == UniverseFill::Count && lamps_ == plan_.lampsPerUniverse;
    if (fits() == 0 || counted) nextUniverse();
    const std::int32_t code = codeOf({universe_, channel_});
    channel_ += kChannelsOfLamp;
    ++lamps_;
    return code;
  }

 private:
  int fits() const { return (kUniverseChannels + 1 - channel_) / kChannelsOfLamp; }
  void nextUniverse() {
    ++universe_;
    channel_ = 1;
    lamps_ = 0;
  }

  const WiringPlan& plan_;
  int universe_;
  int channel_;
  int lamps_ = 0;  // of this universe
};

WireLines linesOfPanels(const WiringPlan& plan) {
  const PanelPlan& panels = *plan.panels;
  const int width = plan.wallCols() / panels.across;
  const int height = plan.wallRows() / panels.down;
  const WireLines within = layOut(plan.path, panels.cols, panels.rows);
  WireLines lines;
  bool second = false;
  for (const std::vector<LampAt>& chain : layOut(panels.path, panels.across, panels.down)) {
    const Turn alternate = second ? Turn::Half : Turn::None;
    const Turn turn = panels.turn == Turn::AlternateHalf ? alternate : panels.turn;
    for (const LampAt& panel : chain) {
      for (const std::vector<LampAt>& line : within) {
        lines.emplace_back();
        for (const LampAt& lamp : line) {
          const LampAt at = turned(lamp, panels, turn);
          lines.back().push_back({panel.col * width + at.col, panel.row * height + at.row});
        }
      }
    }
    second = !second;
  }
  return lines;
}

bool outside(int value, int least, int most) { return value < least || value > most; }

std::string faultOf(const PanelPlan& panels) {
  for (const int number : {panels.cols, panels.rows, panels.across, panels.down}) {
    if (outside(number, 1, kMostSideOfWall))
      return "A panel has 1 to 50 columns and rows, and a wall 1 to 50 panels across and down.";
  }
  return {};
}

std::optional<ColorOrder> orderOf(const ChannelMap::Codes& codes) {
  const std::int32_t first = *std::min_element(codes.begin(), codes.end());
  for (std::size_t order = 0; order < kPlaces.size(); ++order) {
    const auto& places = kPlaces[order];
    if (codes == ChannelMap::Codes{first + places[0], first + places[1], first + places[2]})
      return static_cast<ColorOrder>(order);
  }
  return std::nullopt;
}

}  // namespace

int WiringPlan::wallCols() const {
  return panels ? panels->across * (panels->turnedAside() ? panels->rows : panels->cols) : cols;
}

int WiringPlan::wallRows() const {
  return panels ? panels->down * (panels->turnedAside() ? panels->cols : panels->rows) : rows;
}

std::string faultOf(const WiringPlan& plan) {
  if (plan.panels) {
    std::string fault = faultOf(*plan.panels);
    if (!fault.empty()) return fault;
  }
  if (outside(plan.wallCols(), 1, kMostSideOfWall) || outside(plan.wallRows(), 1, kMostSideOfWall))
    return "A wall has 1 to 50 columns and rows; this one would have " +
           std::to_string(plan.wallCols()) + " by " + std::to_string(plan.wallRows()) + ".";
  if (outside(plan.first.universe, 1, kWallUniverses) ||
      outside(plan.first.channel, 1, kUniverseChannels))
    return "The first lamp begins in universe 1 to 16 at channel 1 to 512.";
  if (outside(plan.lampsPerUniverse, 1, kMostLampsOfUniverse))
    return "A universe has 1 to 170 lamps.";
  if (outside(plan.skipped, 0, kMostLampsOfUniverse))
    return "0 to 170 lamps of a line can be left.";
  return {};
}

WireLines linesOf(const WiringPlan& plan) {
  return plan.panels ? linesOfPanels(plan) : layOut(plan.path, plan.cols, plan.rows);
}

ChannelMap wire(const WiringPlan& plan) {
  ChannelMap map;
  map.redim(plan.wallCols(), plan.wallRows());
  const auto& places = kPlaces.at(static_cast<std::size_t>(plan.order));
  Strip strip(plan);
  for (const std::vector<LampAt>& line : linesOf(plan)) {
    strip.beginLine(line.size() + static_cast<std::size_t>(plan.skipped));
    for (const LampAt& lamp : line) {
      const std::int32_t code = strip.next();
      for (int component = 0; component < kChannelsOfLamp; ++component) {
        map.set(lamp.col, lamp.row, component, code + places[static_cast<std::size_t>(component)]);
      }
    }
    for (int i = 0; i < plan.skipped; ++i) strip.next();
  }
  return map;
}

std::optional<WiringPlan> planOf(const ChannelMap& map) {
  const Patch patch(map);
  if (patch.wire().empty()) return std::nullopt;
  const ChannelMap::Codes& codes = patch.codes(patch.wire().front());
  const auto first = wallChannel(*std::min_element(codes.begin(), codes.end()));
  const auto order = orderOf(codes);
  if (!first || !order) return std::nullopt;
  WiringPlan plan{
      .cols = map.codes().cols(), .rows = map.codes().rows(), .first = *first, .order = *order};
  if (!faultOf(plan).empty()) return std::nullopt;
  for (const bool columns : {false, true}) {
    for (const bool snake : {false, true}) {
      for (int corner = 0; corner < 4; ++corner) {
        plan.path = {static_cast<WirePath::Corner>(corner), columns, snake};
        for (const UniverseFill fill : {UniverseFill::Full, UniverseFill::Lines}) {
          plan.fill = fill;
          if (patch.madeFrom(wire(plan))) return plan;
        }
      }
    }
  }
  return std::nullopt;
}

}  // namespace korvane
