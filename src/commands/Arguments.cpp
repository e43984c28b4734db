#include "commands/Arguments.h"

#include <charconv>

#include "commands/CommandError.h"

namespace korvane {
namespace {

template <class Number>
std::optional<Number> parsed(std::string_view text, int base) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, number, base);
  if (error != std::errc() || stopped != end) return std::nullopt;
  return number;
}

}  // namespace

std::optional<std::int64_t> wholeNumber(std::string_view text) {
  return parsed<std::int64_t>(text, 10);
}

int Arguments::integer(std::size_t at, const char* what, Range range) const {
  const std::optional<std::int64_t> number = wholeNumber(text(at));
  if (!number)
    throw CommandError(std::string(what) + " must be a whole number, not " + inQuotes(text(at)) +
                       ".");
  if (*number < range.least || *number > range.most) {
    throw CommandError(std::string(what) + " must be " + std::to_string(range.least) + " to " +
                       std::to_string(range.most) + ", not " + text(at) + ".");
  }
  return static_cast<int>(*number);
}

int Arguments::index(std::size_t at, const char* what, std::size_t count) const {
  if (count == 0) throw CommandError(std::string("There is no ") + what + " to choose from.");
  return integer(at, what, {0, static_cast<std::int64_t>(count) - 1});
}

Color Arguments::color(std::size_t at, const char* what) const {
  const std::string& digits = text(at);
  const auto number = digits.size() == 6 ? parsed<std::uint32_t>(digits, 16) : std::nullopt;
  if (!number)
    throw CommandError(std::string(what) + " must be six hex digits RRGGBB, not " +
                       inQuotes(digits) + ".");
  return rgb(static_cast<int>(*number >> 16), static_cast<int>(*number >> 8 & 255),
             static_cast<int>(*number & 255));
}

Arguments Arguments::from(std::size_t skipped) const {
  return Arguments({tokens_.begin() + static_cast<std::ptrdiff_t>(skipped), tokens_.end()});
}

}  // namespace korvane
