#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace korvane {
namespace {

// Code points of the bytes 0x80 to 0x9F of code page 1252; all other bytes are their own number.
constexpr std::array<char32_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::size_t sequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  if (lead >= 0xF0 && lead < 0xF5) return 4;
  return 0;
}

char32_t codePoint(std::string_view character) {
  const auto lead = static_cast<unsigned char>(character.front());
  if (character.size() == 1) return lead < 0x80 ? lead : U'\uFFFD';
  char32_t code = lead & (0xFFU >> (character.size() + 1));
  for (std::size_t i = 1; i < character.size(); ++i) {
    code = (code << 6) | (static_cast<unsigned char>(character[i]) & 0x3FU);
  }
  return code;
}

// Whether a code has to be written in so many bytes; surrogates are no characters at all.
bool needsBytes(char32_t code, std::size_t length) {
  constexpr std::array<char32_t, 6> kFirst = {0, 0, 0x80, 0x800, 0x10000, 0x110000};
  const bool surrogate = code >= 0xD800 && code < 0xE000;
  return code >= kFirst[length] && code < kFirst[length + 1] && !surrogate;
}

// Length of the character at the front, 1 for a byte that begins none.
std::size_t leadingCharacter(std::string_view text) {
  const std::size_t length = sequenceLength(static_cast<unsigned char>(text.front()));
  if (length <= 1 || length > text.size()) return 1;
  for (std::size_t i = 1; i < length; ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return 1;
  }
  return needsBytes(codePoint(text.substr(0, length)), length) ? length : 1;
}

char codePageByte(char32_t code) {
  if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
  const auto* found = std::find(kUpperControls.begin(), kUpperControls.end(), code);
  return found == kUpperControls.end() ? '?'
                                       : static_cast<char>(0x80 + (found - kUpperControls.begin()));
}

void appendUtf8(std::string& text, char32_t code) {
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0 | (code >> 6));
    text += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    text += static_cast<char>(0xE0 | (code >> 12));
    text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (code & 0x3F));
  }
}

}  // namespace

std::string lowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return 'A' <= c && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return text;
}

std::vector<std::string> numbersUpTo(int last) {
  std::vector<std::string> numbers;
  for (int n = 1; n <= last; ++n) numbers.push_back(std::to_string(n));
  return numbers;
}

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> fields;
  for (;;) {
    const std::size_t at = text.find(separator);
    fields.emplace_back(text.substr(0, at));
    if (at == std::string_view::npos) return fields;
    text.remove_prefix(at + 1);
  }
}

std::vector<std::string> characters(std::string_view utf8) {
  std::vector<std::string> all;
  while (!utf8.empty()) {
    const std::size_t length = leadingCharacter(utf8);
    all.emplace_back(utf8.substr(0, length));
    utf8.remove_prefix(length);
  }
  return all;
}

std::size_t characterCount(std::string_view utf8) {
  std::size_t count = 0;
  for (; !utf8.empty(); ++count) utf8.remove_prefix(leadingCharacter(utf8));
  return count;
}

std::string toCodePage1252(std::string_view utf8) {
  std::string bytes;
  while (!utf8.empty()) {
    const std::size_t length = leadingCharacter(utf8);
    bytes += codePageByte(codePoint(utf8.substr(0, length)));
    utf8.remove_prefix(length);
  }
  return bytes;
}

std::string fromCodePage1252(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    appendUtf8(text, byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80U] : byte);
  }
  return text;
}

}  // namespace korvane
