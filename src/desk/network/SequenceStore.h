#pragma once

#include <atomic>
#include <cstdint>
#include <vector>

#include "desk/network/Packet.h"

namespace korvane {

/// The last sequence number that an identity used on each universe, kept beyond the end of the
/// program, a crash included: a receiver drops packets whose number is up to 20 behind the last one
/// of the same identity (ANSI E1.31-2018, 6.7.2). It lies in memory that ends with the machine.
class SequenceStore {
 public:
  static constexpr std::size_t kUniverses = 65536;

  /// Kept for this run alone.
  SequenceStore() : own_(kUniverses), numbers_(own_.data()) {}
  /// Kept for the next run under this identity. Where that can't be, for this run alone.
  explicit SequenceStore(const Uuid& identity);
  ~SequenceStore();
  SequenceStore(const SequenceStore&) = delete;
  SequenceStore& operator=(const SequenceStore&) = delete;

  /// The number for the next packet. From any thread.
  std::uint8_t next(int universe) {
    std::atomic_ref<std::uint8_t> number(numbers_[static_cast<std::uint16_t>(universe)]);
    return static_cast<std::uint8_t>(number.fetch_add(1) + 1);
  }

 private:
  std::vector<std::uint8_t> own_;
  std::uint8_t* numbers_;
};

}  // namespace korvane
