#include "commands/CommandError.h"

namespace korvane {
namespace {

constexpr std::size_t kLongestQuote = 60;

}  // namespace

std::string inQuotes(std::string_view text) {
  if (text.size() <= kLongestQuote) return "'" + std::string(text) + "'";
  std::size_t end = kLongestQuote;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return "'" + std::string(text.substr(0, end)) + "...'";
}

}  // namespace korvane
