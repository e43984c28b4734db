#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "platform/Failure.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace korvane {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

// Takes a number apart into the plain form that std::from_chars reads.
class NumberReader {
 public:
  NumberReader(std::string_view text, const NumberFormat& format)
      : rest_(trimmed(text)), format_(format) {}

  std::optional<double> read() {
    if (!rest_.empty() && (rest_.front() == '+' || rest_.front() == '-')) {
      if (rest_.front() == '-') plain_ += '-';
      rest_.remove_prefix(1);
    }
    readMantissa();
    if (digits_ == 0 || !readExponent() || !rest_.empty()) return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(plain_.data(), plain_.data() + plain_.size(), value);
    if (error != std::errc() || end != plain_.data() + plain_.size()) return std::nullopt;
    return value;
  }

 private:
  static constexpr char kNoSkip = '\0';

  bool skips(char separator) const { return separator != kNoSkip && rest_.front() == separator; }

  void takeDigits(char alsoSkipped) {
    while (!rest_.empty() && (isDigit(rest_.front()) || (digits_ > 0 && skips(alsoSkipped)))) {
      if (isDigit(rest_.front())) {
        plain_ += rest_.front();
        ++digits_;
      }
      rest_.remove_prefix(1);
    }
  }

  void readMantissa() {
    takeDigits(format_.thousands);
    if (rest_.empty() || rest_.front() != format_.decimal) return;
    rest_.remove_prefix(1);
    if (digits_ == 0) plain_ += '0';
    plain_ += '.';
    takeDigits(kNoSkip);
    if (plain_.back() == '.') plain_ += '0';
  }

  bool readExponent() {
    if (rest_.empty() || (rest_.front() != 'e' && rest_.front() != 'E')) return true;
    plain_ += 'e';
    rest_.remove_prefix(1);
    if (!rest_.empty() && (rest_.front() == '+' || rest_.front() == '-')) {
      plain_ += rest_.front();
      rest_.remove_prefix(1);
    }
    const int before = digits_;
    takeDigits(kNoSkip);
    return digits_ > before;
  }

  std::string_view rest_;
  NumberFormat format_;
  std::string plain_;
  int digits_ = 0;
};

// The number with the 15 digits that it shows: 100.5 for the 100.49999999999999 that 1.005 x 100
// is.
double asShown(double value) {
  std::array<char, 40> digits{};
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                          std::chars_format::scientific, 14);
  std::from_chars(digits.data(), end, value);
  return value;
}

// Halves go up, as a person sees them in the decimals. From 1e13 on 15 digits hold no third one.
double roundToHundredths(double magnitude) {
  return magnitude < 1e13 ? std::floor(asShown(magnitude * 100) + 0.5) / 100 : magnitude;
}

std::string quoted(std::string_view text) { return "'" + std::string(text.substr(0, 60)) + "'"; }

}  // namespace

std::optional<double> parseNumber(std::string_view text, const NumberFormat& format) {
  return NumberReader(text, format).read();
}

std::optional<double> parseEitherDecimal(std::string_view text) {
  std::string pointed(text);
  std::replace(pointed.begin(), pointed.end(), ',', '.');
  return parseNumber(pointed, {'.', '\0'});
}

double toReal(std::string_view text, const NumberFormat& format) {
  const std::optional<double> value = parseNumber(text, format);
  if (!value) throw Failure(kTypeMismatch, quoted(text) + " is not a number");
  return *value;
}

std::int16_t toInteger16(std::string_view text, const NumberFormat& format) {
  return roundToInt16(toReal(text, format));
}

std::int32_t toInteger32(std::string_view text, const NumberFormat& format) {
  return roundToInt32(toReal(text, format));
}

std::string formatStandard(double value, const NumberFormat& format) {
  const double rounded = roundToHundredths(std::fabs(value));
  std::array<char, 400> digits{};
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), rounded,
                                          std::chars_format::fixed, 2);
  std::string text(digits.data(), end);
  const auto point = static_cast<std::ptrdiff_t>(text.size()) - 3;
  text[static_cast<std::size_t>(point)] = format.decimal;
  for (std::ptrdiff_t at = point - 3; at > 0; at -= 3)
    text.insert(static_cast<std::size_t>(at), 1, format.thousands);
  return value < 0 && rounded > 0 ? "-" + text : text;
}

std::string formatGeneral(double value, const NumberFormat& format) {
  std::array<char, 40> digits{};
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                          std::chars_format::general, 15);
  std::string text(digits.data(), end);
  std::replace(text.begin(), text.end(), '.', format.decimal);
  std::replace(text.begin(), text.end(), 'e', 'E');
  return text;
}

}  // namespace korvane
