#include "hosts/play/Terminal.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace korvane {
namespace {

constexpr const char* kHideCursor = "\x1b[?25l";
constexpr const char* kShowCursor = "\x1b[?25h\x1b[0m";

volatile std::sig_atomic_t interrupted = 0;

void interrupt(int) { interrupted = 1; }

}  // namespace

Terminal::Terminal()
    : pictures_(isatty(STDOUT_FILENO) != 0),
      keys_(isatty(STDIN_FILENO) != 0 && tcgetattr(STDIN_FILENO, &before_) == 0) {
  struct sigaction action = {};
  action.sa_handler = interrupt;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
  if (keys_) {
    termios raw = before_;
    raw.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
    tcsetattr(STDIN_FILENO, TCSANOW, &raw);
  }
  if (pictures_) write(kHideCursor);
}

Terminal::~Terminal() {
  if (pictures_) write(kShowCursor);
  if (keys_) tcsetattr(STDIN_FILENO, TCSANOW, &before_);
}

void Terminal::write(const std::string& text) const {
  for (std::size_t done = 0; done < text.size();) {
    const ssize_t written = ::write(STDOUT_FILENO, text.data() + done, text.size() - done);
    if (written < 0 && errno != EINTR) return;
    if (written > 0) done += static_cast<std::size_t>(written);
  }
}

char Terminal::waitForKey(int milliseconds) {
  pollfd input = {keys_ ? STDIN_FILENO : -1, POLLIN, 0};
  const int ready = poll(&input, 1, milliseconds);
  if (interrupted != 0) return 'q';
  char key = 0;
  if (ready > 0 && read(STDIN_FILENO, &key, 1) <= 0) return 'q';
  return key;
}

}  // namespace korvane
