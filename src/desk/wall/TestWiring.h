#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desk/wall/WiringPlan.h"

namespace korvane {

/// A wall wired by hand, for tests: each lamp reckons for itself its place on the wire from its
/// cell, and a walk over all channels of all universes then hands them out. Slow, and apart from
/// the code that it checks.
class WiringModel {
 public:
  explicit WiringModel(const WiringPlan& plan) : plan_(plan) {
    codes_.redim(plan.wallCols(), plan.wallRows());
    for (int col = 0; col < plan.wallCols(); ++col) {
      for (int row = 0; row < plan.wallRows(); ++row) {
        const auto place = static_cast<std::size_t>(placeOf(col, row));
        if (place >= byPlace_.size()) byPlace_.resize(place + 1);
        byPlace_[place] = LampAt{col, row};
      }
    }
    handOut();
  }

  const ChannelMap::Codes& codes(int col, int row) const { return codes_.at(col, row); }

 private:
  // Line and place within the line of a cell in a rectangle of w x h.
  struct Spot {
    int line, place, length;
  };
  static Spot spotIn(const WirePath& path, int w, int h, int x, int y) {
    if (path.start % 2 == 1) x = w - 1 - x;
    if (path.start / 2 == 1) y = h - 1 - y;
    const int line = path.columns ? x : y;
    const int length = path.columns ? h : w;
    const int place = path.columns ? y : x;
    return {line, path.snake && line % 2 == 1 ? length - 1 - place : place, length};
  }

  // Place on the strip, the unused lamps counted.
  int placeOf(int col, int row) const {
    if (!plan_.panels) {
      const Spot spot = spotIn(plan_.path, plan_.cols, plan_.rows, col, row);
      return spot.line * (spot.length + plan_.skipped) + spot.place;
    }
    const PanelPlan& p = *plan_.panels;
    const int width = plan_.wallCols() / p.across;
    const int height = plan_.wallRows() / p.down;
    const Spot panel = spotIn(p.path, p.across, p.down, col / width, row / height);
    int x = col % width;
    int y = row % height;
    // Turn the wall back until the panel hangs upright.
    int quarters = static_cast<int>(p.turn);
    if (p.turn == PanelPlan::Turn::AlternateHalf) quarters = panel.line % 2 == 1 ? 2 : 0;
    int h = height;
    int w = width;
    for (; quarters > 0; --quarters) {
      const int turnedX = y;
      y = w - 1 - x;
      x = turnedX;
      std::swap(w, h);
    }
    const Spot spot = spotIn(plan_.path, p.cols, p.rows, x, y);
    const int line = spot.length + plan_.skipped;
    const int lines = plan_.path.columns ? p.cols : p.rows;
    return ((panel.line * panel.length + panel.place) * lines + spot.line) * line + spot.place;
  }

  int lengthOfLine() const {
    const int w = plan_.panels ? plan_.panels->cols : plan_.cols;
    const int h = plan_.panels ? plan_.panels->rows : plan_.rows;
    return (plan_.path.columns ? h : w) + plan_.skipped;
  }

  // Whether a lamp may begin at this channel, as the `nth` of its universe (from 0).
  bool mayBegin(int channel, int nth, int place) const {
    if (channel > 510) return false;
    if (plan_.fill == UniverseFill::Count) return nth < plan_.lampsPerUniverse;
    if (plan_.fill == UniverseFill::Lines && place % lengthOfLine() == 0 && nth > 0)
      return channel + 3 * lengthOfLine() - 1 <= 512;
    return true;
  }

  void handOut() {
    int universe = plan_.first.universe;
    int channel = plan_.first.channel;
    int nth = 0;
    for (std::size_t place = 0; place < byPlace_.size(); ++place) {
      if (!mayBegin(channel, nth, static_cast<int>(place))) {
        ++universe;
        channel = 1;
        nth = 0;
      }
      if (byPlace_[place]) give(*byPlace_[place], (universe - 1) * 512 + channel);
      channel += 3;
      ++nth;
    }
  }

  void give(const LampAt& lamp, std::int32_t code) {
    const std::string order = kColorOrderNames.at(static_cast<std::size_t>(plan_.order));
    for (std::size_t component = 0; component < 3; ++component) {
      codes_.at(lamp.col, lamp.row)[component] =
          code + static_cast<std::int32_t>(order.find("RGB"[component]));
    }
  }

  WiringPlan plan_;
  std::vector<std::optional<LampAt>> byPlace_;
  Grid<ChannelMap::Codes> codes_;
};

}  // namespace korvane
