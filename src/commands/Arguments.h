#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "commands/Json.h"

namespace korvane {

/// What a whole number in a command may be.
struct Range {
  std::int64_t least = std::numeric_limits<std::int32_t>::min();
  std::int64_t most = std::numeric_limits<std::int32_t>::max();
};

/// A whole text as a whole number; nothing if it is none, or does not fit 64 bits.
std::optional<std::int64_t> wholeNumber(std::string_view text);

/// The tokens behind a command's name. A token that is not what was asked for raises
/// CommandError, which calls it by `what`.
class Arguments {
 public:
  explicit Arguments(std::vector<std::string> tokens) : tokens_(std::move(tokens)) {}

  std::size_t count() const { return tokens_.size(); }
  const std::string& text(std::size_t at) const { return tokens_.at(at); }
  /// A whole number of the range.
  int integer(std::size_t at, const char* what, Range range = {}) const;
  /// An index, 0 up to but excluding `count`.
  int index(std::size_t at, const char* what, std::size_t count) const;
  /// RRGGBB, in capitals or not.
  Color color(std::size_t at, const char* what) const;
  /// All but the first `skipped` tokens.
  Arguments from(std::size_t skipped) const;

 private:
  std::vector<std::string> tokens_;
};

}  // namespace korvane
