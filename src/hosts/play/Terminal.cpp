#include "hosts/play/Terminal.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <string_view>

#include "platform/Signals.h"

namespace korvane {
namespace {

constexpr std::string_view kTake = "\x1b[?1049h\x1b[?25l\x1b[2J";
constexpr std::string_view kGiveBack = "\x1b[0m\x1b[?25h\x1b[?1049l";
constexpr int kPatience = 200;  // ms for a terminal to take the last few characters

constexpr std::array kFollowed = {SIGTSTP, SIGCONT, SIGWINCH};
constexpr std::array kCrashes = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGQUIT, SIGSYS};

// What a crash needs to know; its handler may use nothing else.
termios before;                           // settings of the terminal as it was found
volatile std::sig_atomic_t rawKeys = -1;  // descriptor of the terminal whose settings we changed
volatile std::sig_atomic_t takenScreen = -1;  // the one that shows our screen

// Both are safe within a signal's handler.
void putBack() {
  if (takenScreen >= 0) {
    [[maybe_unused]] const ssize_t done = write(takenScreen, kGiveBack.data(), kGiveBack.size());
  }
  if (rawKeys >= 0) tcsetattr(rawKeys, TCSANOW, &before);
  takenScreen = -1;
  rawKeys = -1;
}

extern "C" void crash(int signal) {
  putBack();
  raise(signal);  // with its usual effect: the handler is gone
}

void putBackAfterCrashes() {
  static char stack[16384];  // a stack that overflowed can't be used
  const stack_t own = {stack, 0, sizeof stack};
  sigaltstack(&own, nullptr);
  struct sigaction action = {};
  action.sa_handler = crash;
  action.sa_flags = static_cast<int>(SA_RESETHAND | SA_ONSTACK | SA_NODEFER);
  for (const int signal : kCrashes) sigaction(signal, &action, nullptr);
}

bool isRaw(const termios& settings) { return (settings.c_lflag & (ICANON | ECHO)) == 0; }

/// Another way to the same terminal, so that not to wait there concerns nobody else.
int openScreen() {
  return isatty(STDOUT_FILENO) == 0
             ? -1
             : open("/proc/self/fd/1", O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

}  // namespace

Terminal::Terminal() : keys_(isatty(STDIN_FILENO) != 0 ? STDIN_FILENO : -1), screen_(openScreen()) {
  if (keys_ < 0 && screen_ < 0) return;
  Signals::note(kFollowed);
  // Whoever asks the terminal for something from the background would be stopped, and the lamps
  // too.
  std::signal(SIGTTOU, SIG_IGN);
  std::signal(SIGTTIN, SIG_IGN);
  putBackAfterCrashes();
  attend();
}

Terminal::~Terminal() {
  letGo();
  if (screen_ >= 0) close(screen_);
}

bool Terminal::inForeground() const {
  const int terminal = keys_ >= 0 ? keys_ : screen_;
  const pid_t group = tcgetpgrp(terminal);
  return group < 0 ? held_ : group == getpgrp();  // one that is gone says so when it is read
}

void Terminal::attend() {
  if (Signals::take(SIGTSTP)) {
    letGo();
    Signals::suffer(SIGTSTP);
  }
  // After a stop that could not be noted, the terminal is whatever the shell made of it.
  if (Signals::take(SIGCONT) && held_) held_ = false;
  if (inForeground() && !held_) hold();
  if (!inForeground()) held_ = false;
  if (Signals::take(SIGWINCH) && hasPictures()) measure();
}

void Terminal::hold() {
  termios now{};
  if (keys_ >= 0 && tcgetattr(keys_, &now) == 0) {
    if (rawKeys < 0 || !isRaw(now)) before = now;
    rawKeys = keys_;
    now.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
    now.c_iflag &= ~static_cast<tcflag_t>(IXON);  // Ctrl-S is a key like others
    now.c_cc[VMIN] = 1;
    now.c_cc[VTIME] = 0;
    tcsetattr(keys_, TCSANOW, &now);
  }
  held_ = true;
  if (screen_ < 0) return;
  takenScreen = screen_;
  rest_.clear();
  write(std::string(kTake));
  measure();
}

void Terminal::letGo() {
  if (!held_) return;
  rest_.clear();  // what gives the screen back also ends a sequence that was cut off
  pollfd output = {screen_, POLLOUT, 0};
  if (screen_ >= 0) poll(&output, 1, kPatience);
  putBack();
  held_ = false;
}

void Terminal::measure() {
  winsize size{};
  if (ioctl(screen_, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 && size.ws_row > 0)
    size_ = {size.ws_col, size.ws_row};
  shown_.clear();
  write("\x1b[2J");
}

void Terminal::show(const std::vector<std::string>& lines) {
  if (!hasPictures()) return;
  writeRest();
  if (!rest_.empty()) return;
  write(linesThatDiffer(lines, shown_));
  shown_ = lines;
}

void Terminal::write(const std::string& text) {
  rest_ += text;
  writeRest();
}

void Terminal::writeRest() {
  std::size_t done = 0;  // a terminal takes a picture in small pieces
  while (done < rest_.size()) {
    const ssize_t written = ::write(screen_, rest_.data() + done, rest_.size() - done);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) break;
    done += static_cast<std::size_t>(written);
  }
  rest_.erase(0, done);
}

char Terminal::waitForKey(int milliseconds) {
  const bool listening = held_ && keys_ >= 0;
  if (!waitUnlessSignalled(milliseconds, listening ? keys_ : -1)) return 0;
  pollfd input = {listening ? keys_ : -1, POLLIN, 0};
  if (poll(&input, 1, 0) <= 0) return 0;
  char key = 0;
  const ssize_t count = read(keys_, &key, 1);
  const bool gone = count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN);
  return gone ? 'q' : key;
}

}  // namespace korvane
