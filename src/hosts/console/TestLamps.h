#pragma once

#include <map>
#include <optional>

#include "desk/output/Sender.h"
#include "desk/output/TestNetwork.h"

namespace korvane {

/// Lamps that take sACN and Art-Net as receivers do: a packet whose number is up to 20 behind the
/// last one is dropped, unless nothing has come for some seconds.
class TestLamps {
 public:
  void take(const std::vector<std::uint8_t>& bytes, TimePoint now) {
    if (bytes.size() == kSacnSize) return put(Kind::Sacn, bytes[114], bytes[111], &bytes[126], now);
    if (bytes.size() == kArtnetSize) put(Kind::Artnet, bytes[14], bytes[12], &bytes[18], now);
  }
  /// The values of a universe; nothing before the first packet.
  std::optional<Slots> sacn(int universe) const { return valuesOf({Kind::Sacn, universe}); }
  std::optional<Slots> artnet(int universe) const { return valuesOf({Kind::Artnet, universe}); }

 private:
  enum class Kind { Sacn, Artnet };
  static constexpr std::size_t kSacnSize = 638, kArtnetSize = 530;
  static constexpr auto kForgotten = std::chrono::milliseconds(2500);

  struct Universe {
    std::uint8_t number = 0;
    TimePoint heard{};
    Slots values{};
  };

  std::optional<Slots> valuesOf(const std::pair<Kind, int>& key) const {
    const auto found = universes_.find(key);
    return found == universes_.end() ? std::nullopt : std::optional(found->second.values);
  }
  void put(Kind kind, int universe, std::uint8_t number, const std::uint8_t* values,
           TimePoint now) {
    const auto found = universes_.find({kind, universe});
    if (found != universes_.end() && now - found->second.heard < kForgotten) {
      const auto behind = static_cast<std::uint8_t>(found->second.number - number);
      if (behind < 20) return;
    }
    Universe& taken = universes_[{kind, universe}];
    taken.number = number;
    taken.heard = now;
    std::copy_n(values, taken.values.size(), taken.values.begin());
  }

  std::map<std::pair<Kind, int>, Universe> universes_;
};

}  // namespace korvane
