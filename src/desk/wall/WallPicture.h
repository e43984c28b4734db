#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "desk/network/Packet.h"
#include "platform/Grid.h"
#include "state/ChannelMap.h"

namespace korvane {

/// Universes of a wall; a channel code counts on over them: 1 - 512 first, 513 - 1024 second, ...
inline constexpr int kWallUniverses = kUniverses;
inline constexpr std::int32_t kLastWallCode = kWallUniverses * kUniverseChannels;

/// What stands behind the values of a wall's pictures; the same for all that one patch takes.
struct WallLayout {
  /// A channel that a lamp has.
  struct Channel {
    std::uint16_t at;        ///< its byte among those of all universes, 0 - 8191
    std::uint8_t component;  ///< 0 red - 2 blue
    std::uint8_t threshold;  ///< the lamp's
  };
  std::vector<Channel> channels;  ///< in the order of the channels
  /// By lamps along the wire: the part of a byte's step from which a smoothed value goes up to the
  /// next byte, as 256 less this number in 256ths. Each value comes once in 8 x 8 lamps.
  std::vector<std::uint8_t> lampThresholds;
};

/// One picture on its way to the lamps: what every channel of the wall is to hold.
struct WallPicture {
  /// The values of universe u stand at index u - 1; a channel that no lamp has holds 0.
  std::array<Slots, kWallUniverses> universes{};
  /// The lamps one after another along the wire, for protocols that know no universes. Lamps that
  /// have no channel are not on the wire; lamps beyond the last universe are.
  std::vector<Rgb> lamps;
  /// Of the patch that took the picture; none for a picture that no patch took.
  std::shared_ptr<const WallLayout> layout;

  /// The values of all universes one after another.
  std::uint8_t* bytes() { return universes.data()->data(); }
  Slots& universe(int number) { return universes.at(static_cast<std::size_t>(number) - 1); }
  const Slots& universe(int number) const {
    return universes.at(static_cast<std::size_t>(number) - 1);
  }
  /// The same values.
  bool operator==(const WallPicture& other) const {
    return universes == other.universes && lamps == other.lamps;
  }
};

/// A lamp by its cell, counted from 0.
struct LampAt {
  int col = 0;
  int row = 0;

  auto operator<=>(const LampAt&) const = default;  // NOLINT(modernize-use-nullptr): no pointer
};

/// A channel of the wall: universe 1 - 16, channel 1 - 512.
struct WallChannel {
  int universe = 1;
  int channel = 1;

  auto operator<=>(const WallChannel&) const = default;  // NOLINT(modernize-use-nullptr): none
};

/// The channel of a code; nothing for a code that is none of the wall's, below 1 or above 8192.
std::optional<WallChannel> wallChannel(std::int32_t code);
/// The code of a channel.
std::int32_t codeOf(const WallChannel& channel);

/// Which component of which lamp goes to which channel, made once from a channel map so that
/// taking a picture is one pass over a table.
///
///     if (!patch.madeFrom(v.channelMap)) patch = Patch(v.channelMap);
///     output.show(patch.take(v.frameM));
class Patch {
 public:
  /// A lamp's component, 0 red - 2 blue, that feeds a channel.
  struct Feed {
    LampAt lamp;
    int component = 0;

    bool operator==(const Feed&) const = default;
  };

  Patch() = default;
  /// Takes the codes whether a lamp is marked as configured or not, as the plug-in does.
  explicit Patch(const ChannelMap& map);

  /// Whether the map still has the size and the codes from which this patch was made. Costs about
  /// as much as copying the map.
  bool madeFrom(const ChannelMap& map) const;

  /// The picture of a frame, which must have the map's size: else kSubscript. Of lamps that share
  /// a channel the last one holds it, in the order column, row, red, green, blue.
  WallPicture take(const Frame& frame) const;

  int cols() const { return codes_.cols(); }
  int rows() const { return codes_.rows(); }
  /// The codes of a lamp, as the map has them.
  const ChannelMap::Codes& codes(const LampAt& lamp) const { return codes_.at(lamp.col, lamp.row); }
  /// What feeds a channel; nothing if no lamp has it.
  std::optional<Feed> feed(const WallChannel& channel) const;

  /// The lamps along the wire, as in WallPicture::lamps: in the order of their lowest channels.
  /// Lamps that share that channel stand there once, as the one that holds it.
  const std::vector<LampAt>& wire() const { return wire_; }
  /// Lamps with a colour beyond the last universe, by columns.
  const std::vector<LampAt>& beyond() const { return beyond_; }
  /// Lamps without any channel, by columns.
  const std::vector<LampAt>& withoutChannels() const { return withoutChannels_; }
  /// Lamps that share a channel with another lamp, by columns.
  const std::vector<LampAt>& sharing() const { return sharing_; }
  /// Channels that more than one lamp has.
  const std::vector<WallChannel>& sharedChannels() const { return sharedChannels_; }
  /// The highest universe that has a lamp, 0 for none.
  int lastUniverse() const { return lastUniverse_; }

 private:
  struct Transfer {
    std::uint32_t from;  // byte of the frame's memory
    std::uint32_t to;    // byte of the universes'
  };
  using Codes = ChannelMap::Codes;

  LampAt lampOf(std::uint32_t byte) const;
  void connect();
  void layWire();
  void findShared();
  void describe();

  Grid<Codes> codes_;
  std::vector<Transfer> transfers_;      // in the order of the channels, one for each that is fed
  std::vector<std::uint32_t> wireFrom_;  // cells of the frame's memory
  std::vector<LampAt> wire_, beyond_, withoutChannels_, sharing_;
  std::vector<WallChannel> sharedChannels_;
  int lastUniverse_ = 0;
  std::shared_ptr<const WallLayout> layout_;
};

}  // namespace korvane
