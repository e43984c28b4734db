#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "platform/Signals.h"

namespace korvane {
namespace {

constexpr std::array<int, 3> kEndSignals = {SIGHUP, SIGINT, SIGTERM};

// A handler may touch nothing else than such flags and a descriptor.
volatile std::sig_atomic_t noted[NSIG] = {};
int wakePipe[2] = {-1, -1};

extern "C" void noteSignal(int signal) {
  const int error = errno;
  noted[signal] = 1;
  const char byte = 0;
  [[maybe_unused]] const ssize_t written = write(wakePipe[1], &byte, 1);
  errno = error;
}

void openPipe() {
  if (wakePipe[0] < 0 && pipe2(wakePipe, O_CLOEXEC | O_NONBLOCK) != 0) wakePipe[0] = -1;
}

void handle(int signal) {
  struct sigaction before = {};
  sigaction(signal, nullptr, &before);
  if (before.sa_handler == SIG_IGN) return;
  struct sigaction action = {};
  action.sa_handler = noteSignal;
  action.sa_flags = SA_RESTART;
  sigaction(signal, &action, nullptr);
}

}  // namespace

void Signals::note(std::span<const int> signals) {
  openPipe();
  for (const int signal : signals) handle(signal);
}

int Signals::descriptor() { return wakePipe[0]; }

void Signals::drain() {
  char bytes[64];
  while (read(wakePipe[0], bytes, sizeof bytes) > 0) continue;
}

bool Signals::take(int signal) {
  if (noted[signal] == 0) return false;
  noted[signal] = 0;
  return true;
}

void Signals::suffer(int signal) {
  std::signal(signal, SIG_DFL);
  raise(signal);
  handle(signal);
}

void noteEndSignals() { Signals::note(kEndSignals); }

int takeEndSignal() {
  for (const int signal : kEndSignals) {
    if (Signals::take(signal)) return signal;
  }
  return 0;
}

bool waitUnlessSignalled(int milliseconds, int descriptor) {
  pollfd waits[] = {{Signals::descriptor(), POLLIN, 0}, {descriptor, POLLIN, 0}};
  const int ready = poll(waits, 2, milliseconds);
  return ready <= 0 || waits[0].revents == 0;
}

}  // namespace korvane
