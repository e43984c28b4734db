// What every network protocol's packet is made from.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane {

/// The values of one universe; channel 1 stands at index 0.
using Slots = std::array<std::uint8_t, 512>;

/// The 16 bytes of a UUID in the order in which they are sent.
using Uuid = std::array<std::uint8_t, 16>;

/// What a packet says besides the values.
struct PacketHead {
  Uuid component{};  ///< Who sends: sACN's CID. Art-Net has no such field.
  int universe = 1;  ///< sACN 1 - 63999, Art-Net Port-Address 0 - 32767.
  std::uint8_t sequence = 0;
  bool terminated = false;  ///< The stream ends with this packet. sACN only.
  // The rest is sACN's as well.
  std::string_view source = "Korvane";  ///< Name for people, up to 63 bytes of UTF-8.
  int priority = 100;                   ///< 0 - 200; receivers take the highest.
  int synchronisation = 0;  ///< Universe whose synchronisation packets release the values; 0: none.
};

/// A packet that grows byte by byte; numbers are written most significant byte first.
class PacketWriter {
 public:
  explicit PacketWriter(std::size_t size) { bytes_.reserve(size); }

  void u8(unsigned value) { bytes_.push_back(static_cast<std::uint8_t>(value)); }
  void u16(unsigned value) { u8(value >> 8), u8(value & 255); }
  void u32(unsigned value) { u16(value >> 16), u16(value & 65535); }
  void bytes(std::span<const std::uint8_t> data) {
    bytes_.insert(bytes_.end(), data.begin(), data.end());
  }
  /// The text, filled up with zeros to `width` bytes; it must not be longer.
  void text(std::string_view text, std::size_t width) {
    bytes_.insert(bytes_.end(), text.begin(), text.end());
    bytes_.insert(bytes_.end(), width - text.size(), 0);
  }

  std::vector<std::uint8_t> take() { return std::move(bytes_); }

 private:
  std::vector<std::uint8_t> bytes_;
};

}  // namespace korvane
