#pragma once

#include <gtest/gtest.h>

#include <optional>

#include "desk/network/SacnPacket.h"
#include "desk/output/Sender.h"
#include "desk/output/TestNetwork.h"

namespace korvane {

inline constexpr TimePoint kStart = TimePoint{} + std::chrono::hours(1000);
inline TimePoint virtualNow = kStart;

inline constexpr Endpoint kOther{0x0a000007, 5568};  // 10.0.0.7
inline constexpr Uuid kOurs = {1, 2, 3};
inline constexpr Uuid kTheirs = {9, 9, 9};

/// An output under a virtual clock, on a network that the test holds. A look is a picture whose
/// first channel, or first lamp, tells it from others.
class Senders : public testing::Test {
 protected:
  void begin(const std::string& text, int value = 1) {
    config = parseOutput(text);
    virtualNow = kStart;
    sender.emplace(config, makeCarrier(config, {kOurs, &sequences}, network), look(value));
  }
  OutputPicture look(int value) const {
    WallPicture wall;
    wall.lamps.resize(lamps);
    for (Slots& slots : wall.universes) slots[0] = static_cast<std::uint8_t>(value);
    for (Rgb& lamp : wall.lamps) lamp = {static_cast<std::uint8_t>(value), 0, 0};
    return pictureFor(config, wall);
  }
  void show(int value) { sender->show(look(value), virtualNow); }
  /// Lets time pass; steps run when they are due.
  void runUntil(std::chrono::milliseconds end) {
    while (!sender->ended() && sender->due() <= kStart + end) {
      virtualNow = std::max(virtualNow, sender->due());
      const std::size_t before = network.calls.size();
      sender->step(virtualNow, [] { return virtualNow; });
      for (std::size_t call = before; call < network.calls.size(); ++call)
        times.push_back(virtualNow);
    }
    virtualNow = std::max(virtualNow, kStart + end);
  }
  /// "5@100": the first value was 5 at 100 ms; "!" marks a terminated packet; pictures alone.
  std::string log() const {
    std::string text;
    for (std::size_t i = 0; i < network.calls.size(); ++i) {
      const std::vector<std::uint8_t>& bytes = network.calls[i].datagrams.front().bytes;
      const bool sacn = config.kind == OutputKind::Sacn;
      if (bytes.size() < 500) continue;
      const int value = bytes[sacn ? 126 : config.kind == OutputKind::Artnet ? 18 : 10];
      const auto at =
          std::chrono::duration_cast<std::chrono::milliseconds>(times[i] - kStart).count();
      text += (text.empty() ? "" : " ") + std::to_string(value) + "@" + std::to_string(at) +
              (sacn && bytes[112] == 0x40 ? "!" : "");
    }
    return text;
  }
  OutputFigures figures() const { return sender->figures(virtualNow); }
  std::vector<std::uint8_t> foreign(const std::string& name, int universe, int priority,
                                    bool terminated = false) const {
    return sacnPacket({kTheirs, universe, 1, terminated, name, priority}, Slots{});
  }

  TestNetwork network;
  SequenceStore sequences;
  std::size_t lamps = 200;
  OutputConfig config;
  std::optional<Sender> sender;
  std::vector<TimePoint> times;
};

}  // namespace korvane
