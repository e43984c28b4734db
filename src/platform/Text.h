#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// The separators of the user's locale.
struct NumberFormat {
  char decimal = '.';
  char thousands = ',';
};

/// A number as a person or a file writes it under the format: blanks around it, a sign, thousands
/// separators in its whole part and an exponent are allowed. Nothing if it is not numeric.
std::optional<double> parseNumber(std::string_view text, const NumberFormat& format);
/// As parseNumber, but a comma and a point are both decimal separators: for the times of list
/// cells, whose default "3,00" must be read under every locale.
std::optional<double> parseEitherDecimal(std::string_view text);

/// Conversions of a whole text. kTypeMismatch if it is not numeric, kOverflow if it does not fit;
/// integers are rounded, ties to even.
double toReal(std::string_view text, const NumberFormat& format);
std::int16_t toInteger16(std::string_view text, const NumberFormat& format = {});
std::int32_t toInteger32(std::string_view text, const NumberFormat& format = {});

/// Number format "Standard": thousands separators and two decimals, halves away from zero.
std::string formatStandard(double value, const NumberFormat& format);
/// General form with up to 15 significant digits.
std::string formatGeneral(double value, const NumberFormat& format);

/// The text with the capitals A to Z made small.
std::string lowerCase(std::string text);

/// The texts "1" to the last number, as lists offer them.
std::vector<std::string> numbersUpTo(int last);

/// The fields between the separators; one field more than there are separators.
std::vector<std::string> split(std::string_view text, char separator);

/// Number of characters of a UTF-8 text, and each of them as a text of its own. A byte that is no
/// part of a character counts as one.
std::size_t characterCount(std::string_view utf8);
std::vector<std::string> characters(std::string_view utf8);

/// Windows code page 1252 and UTF-8. Characters that the page lacks become "?"; the five bytes
/// that the page leaves open stand for the control characters with their numbers.
std::string toCodePage1252(std::string_view utf8);
std::string fromCodePage1252(std::string_view bytes);

}  // namespace korvane
