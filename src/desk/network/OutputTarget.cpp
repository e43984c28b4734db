#include "desk/network/OutputTarget.h"

#include <stdexcept>

#include "desk/network/TargetText.h"

namespace korvane {
namespace {

using Text = std::string_view;

constexpr Text kForm = "PROTOCOL:UNIVERSE[@ADDRESS[:PORT]][%INTERFACE]";

const Protocol& readProtocol(Text word) {
  if (const Protocol* protocol = findProtocol(word)) return *protocol;
  std::string known;
  for (const Protocol& protocol : protocols()) {
    known += (known.empty() ? "" : " or ") + std::string(protocol.word);
  }
  failTarget("unknown protocol " + quotedTarget(word) + ", expected " + known);
}

OutputTarget parse(Text text) {
  const auto interface = cutOff(text, '%');
  auto address = cutOff(text, '@');
  const auto port = address ? cutOff(*address, ':') : std::nullopt;
  const auto universe = cutOff(text, ':');
  const Protocol& protocol = readProtocol(text);
  if (!universe) failTarget("the universe is missing, expected " + std::string(kForm));

  const int number = readTargetNumber(*universe, std::string(protocol.name) + " universe",
                                      protocol.minUniverse, protocol.maxUniverse);
  return {&protocol, number, address ? readAddress(*address) : protocol.address(number),
          port ? readPort(*port) : protocol.port, interface ? readInterface(*interface) : ""};
}

}  // namespace

OutputTarget parseOutputTarget(std::string_view text) try {
  return parse(text);
} catch (const std::invalid_argument& error) {
  throw std::invalid_argument("output " + quotedTarget(text) + ": " + error.what());
}

std::string describe(const OutputTarget& target) {
  std::string text = std::string(target.protocol->name) + " universe " +
                     std::to_string(target.universe) + " to " + target.address + ":" +
                     std::to_string(target.port);
  return target.interface.empty() ? text : text + " by " + target.interface;
}

}  // namespace korvane
