#include "desk/output/OutputConfig.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "desk/network/ArtnetPacket.h"
#include "desk/network/DdpPacket.h"
#include "desk/network/SacnPacket.h"
#include "desk/network/TargetText.h"
#include "desk/wall/WallPicture.h"
#include "platform/Network.h"
#include "platform/Text.h"

namespace korvane {
namespace {

using Text = std::string_view;

constexpr Text kForm =
    "KIND[:UNIVERSES][@ADDRESS[:PORT]][%INTERFACE][,SETTING=VALUE...], as in sacn:1-15";
constexpr int kOlaPort = 9010;
constexpr int kOlaLastUniverse = 0x7fffffff;
constexpr std::size_t kMostSource = 63;

constexpr OutputKindRow kKinds[] = {
    {OutputKind::Sacn, "sacn", "sACN", 1, kSacnLastUniverse, kSacnPort},
    {OutputKind::Artnet, "artnet", "Art-Net", 0, kArtnetLastUniverse, kArtnetPort},
    {OutputKind::Ddp, "ddp", "DDP", 0, 0, kDdpPort},
    {OutputKind::Ola, "ola", "OLA", 0, kOlaLastUniverse, kOlaPort},
};

constexpr std::array<std::pair<Text, AtEnd>, 3> kEnds = {
    {{"black", AtEnd::Black}, {"hold", AtEnd::Hold}, {"release", AtEnd::Release}}};

const OutputKindRow& readKind(Text word) {
  const auto* found = std::ranges::find(kKinds, word, &OutputKindRow::word);
  if (found != std::end(kKinds)) return *found;
  failTarget("unknown protocol " + quotedTarget(word) + ", expected sacn, artnet, ddp or ola");
}

/// A number or a range of them.
struct Span {
  int first;
  int last;
};

Span readSpan(Text text, const std::string& what, int min, int max) {
  const auto dash = text.find('-', 1);  // one in front is a sign
  const int first = readTargetNumber(text.substr(0, dash), what, min, max);
  if (dash == Text::npos) return {first, first};
  const int last = readTargetNumber(text.substr(dash + 1), what, min, max);
  if (last < first) failTarget(what + "s " + std::string(text) + " run backwards");
  return {first, last};
}

/// One part of the universes: "7", "7-9", or with the wall's in front "2=7", "2-4=7-9".
void readPart(Text text, const OutputKindRow& kind, std::vector<Route>& routes) {
  const std::string whole(text);
  const auto target = cutOff(text, '=');
  const Span to = readSpan(target ? *target : text, std::string(kind.name) + " universe",
                           kind.minUniverse, kind.maxUniverse);
  const int count = to.last - to.first + 1, next = routes.empty() ? 1 : routes.back().wall + 1;
  const Span wall = target ? readSpan(text, "universe of the wall", 1, kWallUniverses)
                           : Span{next, next + count - 1};
  if (wall.last - wall.first + 1 != count)
    failTarget("as many universes must stand behind the '=' as before it, not " +
               quotedTarget(whole));
  if (count > kWallUniverses || wall.last > kWallUniverses)
    failTarget("the wall has " + std::to_string(kWallUniverses) + " universes, not more");
  for (int i = 0; i < count; ++i) routes.push_back({wall.first + i, to.first + i});
}

std::vector<Route> readRoutes(Text text, const OutputKindRow& kind) {
  std::vector<Route> routes;
  for (bool more = true; more;) {
    Text part = text;
    const auto tail = cutOff(part, '+');
    readPart(part, kind, routes);
    more = tail.has_value();
    if (more) text = *tail;
  }
  for (std::size_t i = 0; i < routes.size(); ++i) {
    for (std::size_t k = 0; k < i; ++k) {
      if (routes[i].universe == routes[k].universe)
        failTarget(std::string(kind.name) + " universe " + std::to_string(routes[i].universe) +
                   " stands there twice");
    }
  }
  return routes;
}

bool readSwitch(Text name, Text value) {
  if (value == "on" || value == "off") return value == "on";
  failTarget(std::string(name) + " must be on or off, not " + quotedTarget(value));
}

double readGamma(Text value) {
  const std::optional<double> gamma = parseEitherDecimal(value);
  if (gamma && *gamma >= OutputLook::kLeastGamma && *gamma <= OutputLook::kMostGamma) return *gamma;
  failTarget("gamma must be a number, 1 to 4, not " + quotedTarget(value));
}

/// "100/90/80": the shares of red, green and blue.
std::array<int, 3> readBalance(Text value) {
  const std::vector<std::string> parts = split(value, '/');
  if (parts.size() != 3)
    failTarget("balance must be three shares in percent, as in 100/90/80, not " +
               quotedTarget(value));
  std::array<int, 3> balance{};
  for (std::size_t i = 0; i < balance.size(); ++i)
    balance[i] = readTargetNumber(parts[i], "share of a colour", 0, 100);
  return balance;
}

AtEnd readEnd(Text value) {
  const auto* found = std::ranges::find(kEnds, value, &std::pair<Text, AtEnd>::first);
  if (found != kEnds.end()) return found->second;
  failTarget("end must be black, hold or release, not " + quotedTarget(value));
}

std::optional<unsigned> hexDigit(char digit) {
  const auto at = Text("0123456789ABCDEF").find(digit);
  return at == Text::npos ? std::nullopt : std::optional(static_cast<unsigned>(at));
}

/// A "%" without two digits stands for itself.
std::string unescaped(Text text) {
  std::string name;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto high = at + 2 < text.size() ? hexDigit(text[at + 1]) : std::nullopt;
    const auto low = high ? hexDigit(text[at + 2]) : std::nullopt;
    if (text[at] == '%' && low) {
      name += static_cast<char>(*high << 4 | *low);
      at += 2;
    } else {
      name += text[at];
    }
  }
  return name;
}

std::string readName(const std::string& what, Text value, std::size_t most) {
  std::string name = unescaped(value);
  if (name.empty() || name.size() > most)
    failTarget(what + " must be 1 to " + std::to_string(most) + " bytes long");
  return name;
}

void readSetting(Text setting, OutputConfig& config) {
  const auto value = cutOff(setting, '=');
  if (!value) failTarget("the setting " + quotedTarget(setting) + " needs a value, as in rate=30");
  const bool sacn = config.kind == OutputKind::Sacn, artnet = config.kind == OutputKind::Artnet;
  if (setting == "name") {
    config.name = readName("name", *value, 200);
  } else if (setting == "rate") {
    config.rate = readTargetNumber(*value, "rate", 1, 1000);
  } else if (setting == "end") {
    config.atEnd = readEnd(*value);
  } else if (setting == "gamma") {
    config.look.gamma = readGamma(*value);
  } else if (setting == "smooth") {
    config.look.smooth = readSwitch(setting, *value);
  } else if (setting == "balance") {
    config.look.balance = readBalance(*value);
  } else if (sacn && setting == "priority") {
    config.priority = readTargetNumber(*value, "priority", 0, 200);
  } else if (sacn && setting == "source") {
    config.source = readName("source", *value, kMostSource);
  } else if (sacn && setting == "sync") {
    config.synchronisation =
        readTargetNumber(*value, "synchronisation universe", 1, kSacnLastUniverse);
  } else if (artnet && setting == "sync") {
    config.artSync = readSwitch(setting, *value);
  } else {
    failTarget(std::string(rowOf(config.kind).name) + " has no setting " + quotedTarget(setting) +
               ", expected rate, end, gamma, smooth, balance" +
               (sacn     ? ", priority, source, sync"
                : artnet ? ", sync"
                         : "") +
               " or name");
  }
}

void readPlace(Text text, OutputConfig& config) {
  const auto port = cutOff(text, ':');
  if (port) config.port = readPort(*port);
  if (config.kind == OutputKind::Artnet && text == "nodes") {
    config.toNodes = true;
  } else {
    config.address = readAddress(text);
  }
}

OutputConfig parse(Text text) {
  OutputConfig config;
  auto settings = cutOff(text, ',');
  const auto interface = cutOff(text, '%');
  const auto place = cutOff(text, '@');
  const auto universes = cutOff(text, ':');
  const OutputKindRow& kind = readKind(text);
  config.kind = kind.kind;
  config.port = kind.port;
  if (interface) config.interface = readInterface(*interface);
  if (place) readPlace(*place, config);
  if (kind.kind == OutputKind::Ddp) {
    if (universes) failTarget("DDP has no universes; it takes the whole wall");
    if (!place) failTarget("DDP needs an address, as in ddp@192.168.1.50");
  } else {
    if (!universes) failTarget("the universe is missing, expected " + std::string(kForm));
    config.routes = readRoutes(*universes, kind);
  }
  while (settings) {
    Text setting = *settings;
    settings = cutOff(setting, ',');
    readSetting(setting, config);
  }
  return config;
}

std::string number(int value) { return std::to_string(value); }

/// Runs of routes that count up on both sides.
template <class Take>
void forEachRun(const std::vector<Route>& routes, Take take) {
  for (std::size_t first = 0, last = 0; first < routes.size(); first = ++last) {
    while (last + 1 < routes.size() && routes[last + 1].wall == routes[last].wall + 1 &&
           routes[last + 1].universe == routes[last].universe + 1)
      ++last;
    take(routes[first], routes[last]);
  }
}

std::string spanText(int first, int last) {
  return first == last ? number(first) : number(first) + "-" + number(last);
}

std::string universesText(const OutputConfig& config) {
  std::string text;
  forEachRun(config.routes, [&](const Route& first, const Route& last) {
    text += (text.empty() ? "" : ", ") + spanText(first.universe, last.universe);
  });
  if (config.kind == OutputKind::Artnet && config.routes.size() == 1)
    return describePortAddress(config.routes.front().universe);
  return text;
}

std::string placeText(const OutputConfig& config) {
  const std::string port = ":" + number(config.port);
  if (config.toNodes) return "the nodes that answer";
  if (!config.address.empty()) return config.address + port;
  if (config.kind == OutputKind::Artnet) return "255.255.255.255" + port;
  if (config.kind == OutputKind::Ola) return "this machine's olad";
  if (config.routes.size() > 1) return "their groups";
  const int universe = config.routes.front().universe;
  return "239.255." + number(universe / 256) + "." + number(universe % 256) + port;
}

}  // namespace

std::span<const OutputKindRow> outputKinds() { return kKinds; }

const OutputKindRow& rowOf(OutputKind kind) {
  return *std::ranges::find(kKinds, kind, &OutputKindRow::kind);
}

// What would end a name within its text, and what not every file can hold, is written as in "%2C".
std::string escapedName(std::string_view name) {
  std::string text;
  for (const char letter : name) {
    const auto code = static_cast<unsigned char>(letter);
    if (letter != ',' && letter != '%' && code >= ' ' && code < 127) {
      text += letter;
    } else {
      text += '%';
      text += "0123456789ABCDEF"[code >> 4];
      text += "0123456789ABCDEF"[code & 15];
    }
  }
  return text;
}

std::string entryText(const OutputEntry& entry) {
  return (entry.on ? "on " : "off ") + outputText(entry.config);
}

OutputEntry parseEntry(std::string_view text) {
  const auto target = cutOff(text, ' ');
  if (!target || (text != "on" && text != "off"))
    failTarget("an output of a list begins with on or off, not " + quotedTarget(text));
  return {parseOutput(*target), text == "on"};
}

OutputConfig parseOutput(std::string_view text) try {
  return parse(text);
} catch (const std::invalid_argument& error) {
  throw std::invalid_argument("output " + quotedTarget(text) + ": " + error.what());
}

std::string outputText(const OutputConfig& config) {
  const OutputConfig usual;
  const OutputKindRow& kind = rowOf(config.kind);
  std::string text(kind.word);
  char mark = ':';
  int next = 1;
  forEachRun(config.routes, [&](const Route& first, const Route& last) {
    text += mark;
    if (first.wall != next) text += spanText(first.wall, last.wall) + "=";
    text += spanText(first.universe, last.universe);
    next = last.wall + 1;
    mark = '+';
  });
  const std::string port = config.port == kind.port ? "" : ":" + number(config.port);
  if (config.toNodes) text += "@nodes" + port;
  if (!config.address.empty()) text += "@" + config.address + port;
  if (!config.interface.empty()) text += "%" + config.interface;
  if (config.rate != usual.rate) text += ",rate=" + number(config.rate);
  if (config.priority != usual.priority) text += ",priority=" + number(config.priority);
  if (config.source != usual.source) text += ",source=" + escapedName(config.source);
  if (config.synchronisation != 0) text += ",sync=" + number(config.synchronisation);
  if (config.artSync) text += ",sync=on";
  for (const auto& [word, end] : kEnds) {
    if (end == config.atEnd && end != usual.atEnd) text += ",end=" + std::string(word);
  }
  if (config.look.gamma != usual.look.gamma)
    text += ",gamma=" + formatGeneral(config.look.gamma, {});
  if (config.look.smooth) text += ",smooth=on";
  if (config.look.balance != usual.look.balance) {
    const auto& [red, green, blue] = config.look.balance;
    text += ",balance=" + number(red) + "/" + number(green) + "/" + number(blue);
  }
  if (!config.name.empty()) text += ",name=" + escapedName(config.name);
  return text;
}

std::string describe(const OutputConfig& config) {
  std::string text(rowOf(config.kind).name);
  if (!config.routes.empty())
    text += (config.routes.size() == 1 ? " universe " : " universes ") + universesText(config);
  text += " to " + placeText(config);
  return config.interface.empty() ? text : text + " by " + config.interface;
}

}  // namespace korvane
