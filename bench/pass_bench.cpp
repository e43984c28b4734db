// From the pass to the lamps: 50 x 50 lamps on fifteen universes, until the last packet has come.

#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>

#include "Stage.h"
#include "desk/output/LampFeed.h"

namespace korvane {
namespace {

using Clock = std::chrono::steady_clock;
constexpr int kLastUniverse = 15;

/// A socket of this machine that waits for packets.
class Receiver {
 public:
  Receiver() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* any = reinterpret_cast<sockaddr*>(&address);
    bind(socket_, any, size);
    getsockname(socket_, any, &size);
    port = ntohs(address.sin_port);
  }
  ~Receiver() { close(socket_); }
  Receiver(const Receiver&) = delete;
  Receiver& operator=(const Receiver&) = delete;

  /// Waits for the last universe of the picture whose first lamp has this value.
  void waitFor(std::uint8_t value) {
    std::array<std::uint8_t, 700> packet{};
    bool seen = false;
    while (recv(socket_, packet.data(), packet.size(), 0) == 638) {
      if (packet[114] == 1) seen = packet[126] == value;
      if (seen && packet[114] == kLastUniverse) return;
    }
  }

  int port = 0;

 private:
  int socket_ = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
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
