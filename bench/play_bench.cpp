// The player with the show that desk_bench shows on the desk: the real program on a terminal of its
// own, from start to end. What it takes to start is taken away: a short run of the same.

#include <fcntl.h>
#include <pty.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>

#include "FullSpeed.h"

namespace korvane {
namespace {

constexpr int kShortRun = 1;  // seconds
constexpr int kLongRun = 4;

double seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

struct Run {
  double core;   // seconds of the processor
  double bytes;  // that it drew
};

// Plays a show for some seconds on a terminal that a grid of 50 x 50 fits.
Run play(const std::string& show, int length) {
  winsize size{.ws_row = 60, .ws_col = 160, .ws_xpixel = 0, .ws_ypixel = 0};
  int terminal = -1;
  const pid_t player = forkpty(&terminal, nullptr, nullptr, &size);
  if (player < 0) throw std::runtime_error("no terminal for the player");
  if (player == 0) {
    execl(KORVANE_PLAY, KORVANE_PLAY, "--seconds", std::to_string(length).c_str(), show.c_str(),
          nullptr);
    _exit(127);
  }
  char drawn[65536];
  double bytes = 0;
  for (ssize_t count; (count = read(terminal, drawn, sizeof drawn)) > 0;)
    bytes += static_cast<double>(count);
  close(terminal);
  int status = 0;
  rusage used{};
  wait4(player, &status, 0, &used);
  if (status != 0) throw std::runtime_error("the player failed");
  return {seconds(used.ru_utime) + seconds(used.ru_stime), bytes};
}

void secondOfPlayer(benchmark::State& state) {
  const std::string stem = (std::filesystem::temp_directory_path() / "korvane-play-bench").string();
  saveFullSpeed(stem, static_cast<int>(state.range(0)), static_cast<std::int16_t>(state.range(1)));
  for ([[maybe_unused]] auto turn : state) {
    const Run start = play(stem + ".Korvane", kShortRun);
    const Run whole = play(stem + ".Korvane", kLongRun);
    const double core = (whole.core - start.core) / (kLongRun - kShortRun);
    state.SetIterationTime(core);
    state.counters["percent"] = core * 100;
    state.counters["drawn_bytes"] = (whole.bytes - start.bytes) / (kLongRun - kShortRun);
  }
  for (const char* ending : {".Korvane", ".korvaneconf"}) std::filesystem::remove(stem + ending);
}

BENCHMARK(secondOfPlayer)
    ->ArgsProduct({{12, 50}, {kFire, kFluid}})
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace korvane

BENCHMARK_MAIN();
