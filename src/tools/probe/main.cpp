// korvane-net-probe: sends a known sequence of passes, for the check of what arrives.
//
//     korvane-net-probe TARGET PASSES GAP_MS QUIET_MS
//
// Each pass is told on standard output as the console tells the calls of the host. After the last
// pass the window thread, as it were, hangs for QUIET_MS; then the stream is ended.

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <thread>

#include "desk/output/Outputs.h"

namespace {

using korvane::Outputs;
using korvane::WallPicture;

constexpr std::size_t kLamps = 1000;

struct Script {
  int passes;
  std::chrono::milliseconds gap;
  std::chrono::milliseconds quiet;
};

void set(WallPicture& wall, int channel, int value) {
  wall.universe(1).at(static_cast<std::size_t>(channel) - 1) = static_cast<std::uint8_t>(value);
  std::cout << R"(, ["SetChannel", )" << channel << ", " << value << "]";
}

/// Channels 1 and 2 count the passes; a third one moves through the universe up to channel 512. All
/// universes hold the same; the first of the lamps counts too.
void sendPass(Outputs& outputs, WallPicture& wall, int pass) {
  std::cout << R"({"ok": true, "calls": [["UserInteraction"])";
  set(wall, 1, pass % 256);
  set(wall, 2, pass / 256 % 256);
  set(wall, 512 - pass * 7 % 510, 255 - pass % 100);
  for (int universe = 2; universe <= korvane::kWallUniverses; ++universe)
    wall.universe(universe) = wall.universe(1);
  wall.lamps.front()[0] = static_cast<std::uint8_t>(pass % 256);
  outputs.show(wall);
  std::cout << "]}" << std::endl;
}

void play(const korvane::OutputConfig& target, const Script& script) {
  Outputs outputs("korvane-net-probe");
  outputs.add(target).switchOn();
  WallPicture wall;
  wall.lamps.resize(kLamps);
  for (int pass = 1; pass <= script.passes; ++pass) {
    std::this_thread::sleep_for(script.gap);
    sendPass(outputs, wall, pass);
  }
  std::this_thread::sleep_for(script.quiet);
  std::cerr << outputs.status() << "\n";
  for (const std::string& receiver : outputs.at(0).figures().receivers)
    std::cerr << "found " << receiver << "\n";
}

std::chrono::milliseconds milliseconds(const char* text) {
  return std::chrono::milliseconds(std::atoi(text));
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 5)
    throw std::invalid_argument("usage: korvane-net-probe TARGET PASSES GAP_MS QUIET_MS");
  play(korvane::parseOutput(argv[1]),
       {std::atoi(argv[2]), milliseconds(argv[3]), milliseconds(argv[4])});
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << "\n";
  return 2;
}
