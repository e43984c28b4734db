#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "desk/wall/OutputLook.h"

namespace korvane {

enum class OutputKind { Sacn, Artnet, Ddp, Ola };

/// What the lamps are left with when an output ends, by a person or by a signal.
enum class AtEnd {
  Black,    ///< They go dark.
  Hold,     ///< They get the last picture once more.
  Release,  ///< Nothing more is sent but the protocol's farewell: other sources have them at once.
};

/// A universe of the wall, 1 - 16, and the universe of the protocol that carries it.
struct Route {
  int wall = 1;
  int universe = 1;

  bool operator==(const Route&) const = default;
};

/// All that can be set of an output. Made by parseOutput, its values are in range.
struct OutputConfig {
  std::string name;  ///< For people; empty: what describe says.
  OutputKind kind = OutputKind::Sacn;
  std::vector<Route> routes;  ///< Not for DDP, which takes the whole wall.
  std::string address;        ///< IPv4; empty: sACN's groups, Art-Net's broadcast, this
                              ///< machine's olad.
  int port = 0;               ///< 1 - 65535.
  std::string interface;      ///< Such as "eth0"; empty: the routing table decides.
  int rate = 44;              ///< Most pictures a second, 1 - 1000.
  AtEnd atEnd = AtEnd::Black;
  OutputLook look{};               ///< Curve and white balance.
  int priority = 100;              ///< sACN, 0 - 200.
  std::string source = "Korvane";  ///< sACN's name for people, up to 63 bytes.
  int synchronisation = 0;         ///< sACN's universe for it, 1 - 63999; 0: none.
  bool artSync = false;            ///< Art-Net: ArtSync behind each picture.
  bool toNodes = false;            ///< Art-Net: to the nodes that answer a poll, each its own.

  bool operator==(const OutputConfig&) const = default;
};

/// All that differs between the kinds as they are written and shown; one row each.
struct OutputKindRow {
  OutputKind kind;
  std::string_view word;  ///< Names the kind in a text.
  std::string_view name;  ///< For people.
  int minUniverse;        ///< Both 0 for a kind without universes.
  int maxUniverse;
  int port;
};

std::span<const OutputKindRow> outputKinds();
const OutputKindRow& rowOf(OutputKind kind);

/// Reads KIND[:UNIVERSES][@ADDRESS[:PORT]][%INTERFACE][,SETTING=VALUE...], as in "sacn:1-15",
/// "artnet:0-14@192.168.1.20", "ddp@192.168.1.50,rate=30". UNIVERSES are numbers and ranges joined
/// by "+"; they carry the wall's universes from the first on, or those before a "=", as in
/// "sacn:3=101+4-5=7-8". Throws std::invalid_argument whose text says what is wrong.
OutputConfig parseOutput(std::string_view text);

/// The text that parseOutput reads; "," and "%" in names are written as in "%2C".
std::string outputText(const OutputConfig& config);

/// A name as it stands within such a text.
std::string escapedName(std::string_view name);

/// An output of a list, and whether it is on: what is remembered of it.
struct OutputEntry {
  OutputConfig config;
  bool on = true;

  bool operator==(const OutputEntry&) const = default;
};

/// One line: "on sacn:1-15,rate=30" or "off artnet:0".
std::string entryText(const OutputEntry& entry);
/// Reads such a line. Throws as parseOutput does.
OutputEntry parseEntry(std::string_view text);

/// For people: "sACN universe 1 to 239.255.0.1:5568", "sACN universes 1-15 to their groups".
std::string describe(const OutputConfig& config);

}  // namespace korvane
