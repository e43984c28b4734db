#pragma once

#include <cstdint>

namespace korvane {

/// The boolean of records and shared state: 16 bits, 0 false, -1 true.
class Boolean {
 public:
  constexpr Boolean() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): a bool by another width
  constexpr Boolean(bool value) : raw_(value ? std::int16_t{-1} : std::int16_t{0}) {}

  constexpr operator bool() const { return raw_ != 0; }  // NOLINT(google-explicit-constructor)
  constexpr std::int16_t raw() const { return raw_; }

 private:
  std::int16_t raw_ = 0;
};

}  // namespace korvane
