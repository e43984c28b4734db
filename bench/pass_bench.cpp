// From the pass to the lamps: 50 x 50 lamps on fifteen universes, until the last packet has come.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <thread>

#include "Stage.h"
#include "desk/output/LampFeed.h"
#include "testing/UdpReceiver.h"

namespace korvane {
namespace {

using Clock = std::chrono::steady_clock;
constexpr int kLastUniverse = 15;

/// Waits for pictures on this machine.
struct Receiver : UdpReceiver {
  /// Waits for the last universe of the picture whose first lamp has this value.
  void waitFor(std::uint8_t value) const {
    bool seen = false;
    for (auto bytes = packet(); bytes.size() == 638; bytes = packet()) {
      if (bytes[114] == 1) seen = bytes[126] == value;
      if (seen && bytes[114] == kLastUniverse) return;
    }
  }
};

/// The time from the end of a pass to its fifteenth packet, in microseconds.
void passToLastPacket(benchmark::State& state) {
  Stage stage(50, kColor);
  Receiver receiver;
  LampFeed feed("korvane-bench");
  feed.outputs
      .add(parseOutput("sacn:1-15@127.0.0.1:" + std::to_string(receiver.port) + ",rate=1000"))
      .switchOn();
  std::vector<double> microseconds;
  const auto since = [](Clock::time_point from) {
    return std::chrono::duration<double, std::micro>(Clock::now() - from).count();
  };
  std::uint8_t value = 0;
  for ([[maybe_unused]] auto _ : state) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    stage.engine.v.frameM.at(0, 0)[0] = ++value;
    feed.announce();
    const auto from = Clock::now();
    feed.endOfPass(stage.engine.v);
    receiver.waitFor(value);
    microseconds.push_back(since(from));
    state.SetIterationTime(microseconds.back() / 1e6);
  }
  std::sort(microseconds.begin(), microseconds.end());
  const auto percentile = [&](double part) {
    return microseconds[static_cast<std::size_t>(part *
                                                 static_cast<double>(microseconds.size() - 1))];
  };
  state.counters["p50_us"] = percentile(0.5);
  state.counters["p99_us"] = percentile(0.99);
  state.counters["max_us"] = microseconds.back();
}
BENCHMARK(passToLastPacket)->UseManualTime()->Iterations(2000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace korvane

BENCHMARK_MAIN();
