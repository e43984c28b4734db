#include "desk/network/OutputTarget.h"

#include <arpa/inet.h>
#include <net/if.h>

#include <charconv>
#include <optional>
#include <stdexcept>

namespace korvane {
namespace {

using Text = std::string_view;

constexpr Text kForm = "PROTOCOL:UNIVERSE[@ADDRESS[:PORT]][%INTERFACE]";
constexpr int kMaxPort = 65535;

[[noreturn]] void fail(const std::string& what) { throw std::invalid_argument(what); }

std::string quoted(Text text) { return "'" + std::string(text) + "'"; }

/// Takes the mark and what follows it off the text; none when the mark is absent.
std::optional<Text> cutOff(Text& text, char mark) {
  const auto at = text.find(mark);
  if (at == Text::npos) return std::nullopt;
  const Text tail = text.substr(at + 1);
  text = text.substr(0, at);
  return tail;
}

int readNumber(Text text, const std::string& what, int min, int max) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool allRead = end == text.data() + text.size();
  if (error == std::errc::invalid_argument || !allRead) {
    fail(what + " " + quoted(text) + " is not a whole number");
  }
  if (error != std::errc() || number < min || number > max) {
    fail(what + " " + std::string(text) + " is out of range, expected " + std::to_string(min) +
         " to " + std::to_string(max));
  }
  return number;
}

const Protocol& readProtocol(Text word) {
  if (const Protocol* protocol = findProtocol(word)) return *protocol;
  std::string known;
  for (const Protocol& protocol : protocols()) {
    known += (known.empty() ? "" : " or ") + std::string(protocol.word);
  }
  fail("unknown protocol " + quoted(word) + ", expected " + known);
}

std::string readAddress(Text text) {
  std::string address(text);
  in_addr parsed{};
  if (inet_pton(AF_INET, address.c_str(), &parsed) != 1) {
    fail("address " + quoted(text) + " is not an IPv4 address such as 192.168.1.20");
  }
  return address;
}

std::string readInterface(Text text) {
  if (text.empty() || text.size() >= IFNAMSIZ) {
    fail("interface " + quoted(text) + " is not 1 to " + std::to_string(IFNAMSIZ - 1) +
         " characters long");
  }
  return std::string(text);
}

OutputTarget parse(Text text) {
  const auto interface = cutOff(text, '%');
  auto address = cutOff(text, '@');
  const auto port = address ? cutOff(*address, ':') : std::nullopt;
  const auto universe = cutOff(text, ':');
  const Protocol& protocol = readProtocol(text);
  if (!universe) fail("the universe is missing, expected " + std::string(kForm));

  const int number = readNumber(*universe, std::string(protocol.name) + " universe",
                                protocol.minUniverse, protocol.maxUniverse);
  return {&protocol, number, address ? readAddress(*address) : protocol.address(number),
          port ? readNumber(*port, "port", 1, kMaxPort) : protocol.port,
          interface ? readInterface(*interface) : ""};
}

}  // namespace

OutputTarget parseOutputTarget(std::string_view text) try {
  return parse(text);
} catch (const std::invalid_argument& error) {
  throw std::invalid_argument("output " + quoted(text) + ": " + error.what());
}

std::string describe(const OutputTarget& target) {
  std::string text = std::string(target.protocol->name) + " universe " +
                     std::to_string(target.universe) + " to " + target.address + ":" +
                     std::to_string(target.port);
  return target.interface.empty() ? text : text + " by " + target.interface;
}

}  // namespace korvane
