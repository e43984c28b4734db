#pragma once

#include <atomic>
#include <cstdint>
#include <vector>

#include "desk/network/Packet.h"

namespace korvane {

/// The last sequence number that an identity used on each universe, kept beyond the end of an
/// output and of the program, a crash included: a receiver drops packets whose number is a little
/// behind the last one, up to 20 with sACN (ANSI E1.31-2018, 6.7.2). It lies in memory that ends
/// with the machine.
class SequenceStore {
 public:
  /// Those of sACN, then the port addresses of Art-Net.
  static constexpr std::size_t kUniverses = std::size_t{2} * 65536;

  /// Kept for this run alone.
  SequenceStore() : own_(kUniverses), numbers_(own_.data()) {}
  /// Kept for the next run under this identity. Where that can't be, for this run alone.
  explicit SequenceStore(const Uuid& identity);
  ~SequenceStore();
  SequenceStore(const SequenceStore&) = delete;
  SequenceStore& operator=(const SequenceStore&) = delete;

  /// The number for sACN's next packet. From any thread.
  std::uint8_t next(int universe) { return nextAt(static_cast<std::uint16_t>(universe)); }
  /// The same for Art-Net: 1 to 255, as 0 would say that none is used.
  std::uint8_t nextArtnet(int address) {
    const std::size_t at = kUniverses / 2 + static_cast<std::uint16_t>(address);
    const std::uint8_t number = nextAt(at);
    return number != 0 ? number : nextAt(at);
  }

 private:
  std::uint8_t nextAt(std::size_t at) {
    std::atomic_ref<std::uint8_t> number(numbers_[at]);
    return static_cast<std::uint8_t>(number.fetch_add(1) + 1);
  }

  std::vector<std::uint8_t> own_;
  std::uint8_t* numbers_;
};

}  // namespace korvane
