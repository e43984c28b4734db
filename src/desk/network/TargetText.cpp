#include "desk/network/TargetText.h"

#include <net/if.h>

#include <charconv>
#include <stdexcept>

#include "platform/Network.h"

namespace korvane {

using Text = std::string_view;

void failTarget(const std::string& what) { throw std::invalid_argument(what); }

std::string quotedTarget(Text text) { return "'" + std::string(text) + "'"; }

std::optional<Text> cutOff(Text& text, char mark) {
  const auto at = text.find(mark);
  if (at == Text::npos) return std::nullopt;
  const Text tail = text.substr(at + 1);
  text = text.substr(0, at);
  return tail;
}

int readTargetNumber(Text text, const std::string& what, int min, int max) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool allRead = end == text.data() + text.size();
  if (error == std::errc::invalid_argument || !allRead) {
    failTarget(what + " " + quotedTarget(text) + " is not a whole number");
  }
  if (error != std::errc() || number < min || number > max) {
    failTarget(what + " " + std::string(text) + " is out of range, expected " +
               std::to_string(min) + " to " + std::to_string(max));
  }
  return number;
}

int readPort(Text text) { return readTargetNumber(text, "port", 1, 65535); }

std::string readAddress(Text text) {
  std::string address(text);
  if (!parseAddress(address))
    failTarget("address " + quotedTarget(text) + " is not an IPv4 address such as 192.168.1.20");
  return address;
}

std::string readInterface(Text text) {
  if (text.empty() || text.size() >= IFNAMSIZ) {
    failTarget("interface " + quotedTarget(text) + " is not 1 to " + std::to_string(IFNAMSIZ - 1) +
               " characters long");
  }
  return std::string(text);
}

}  // namespace korvane
