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

#include "desk/network/NetworkOutput.h"

namespace {

using korvane::NetworkOutput;

struct Script {
  int passes;
  std::chrono::milliseconds gap;
  std::chrono::milliseconds quiet;
};

void set(NetworkOutput& output, int channel, int value) {
  output.setChannel(channel, static_cast<std::uint8_t>(value));
  std::cout << R"(, ["SetChannel", )" << channel << ", " << value << "]";
}

/// Channels 1 and 2 count the passes; a third one moves through the universe up to channel 512.
void sendPass(NetworkOutput& output, int pass) {
  std::cout << R"({"ok": true, "calls": [["UserInteraction"])";
  set(output, 1, pass % 256);
  set(output, 2, pass / 256 % 256);
  set(output, 512 - pass * 7 % 510, 255 - pass % 100);
  output.endOfPass();
  std::cout << "]}" << std::endl;
}

void play(const korvane::OutputTarget& target, const Script& script) {
  NetworkOutput output("korvane-net-probe");
  output.start(target);
  for (int pass = 1; pass <= script.passes; ++pass) {
    std::this_thread::sleep_for(script.gap);
    sendPass(output, pass);
  }
  std::this_thread::sleep_for(script.quiet);
  std::cerr << output.status() << "\n";
}

std::chrono::milliseconds milliseconds(const char* text) {
  return std::chrono::milliseconds(std::atoi(text));
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 5)
    throw std::invalid_argument("usage: korvane-net-probe TARGET PASSES GAP_MS QUIET_MS");
  play(korvane::parseOutputTarget(argv[1]),
       {std::atoi(argv[2]), milliseconds(argv[3]), milliseconds(argv[4])});
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << "\n";
  return 2;
}
