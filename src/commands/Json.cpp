#include "commands/Json.h"

namespace korvane {

std::string hexColor(Color color) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (const std::uint8_t part : colorParts(color)) {
    text += kDigits[part >> 4];
    text += kDigits[part & 15];
  }
  return text;
}

Json toJson(const Failure& failure) {
  return {{"number", failure.number}, {"text", failure.what()}};
}

}  // namespace korvane
