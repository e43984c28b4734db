#pragma once

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <functional>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

namespace korvane {

/// Whether two terminals are set alike in everything.
inline bool sameSettings(const termios& one, const termios& other) {
  const auto all = [](const termios& of) {
    return std::tie(of.c_iflag, of.c_oflag, of.c_cflag, of.c_lflag, of.c_line, of.c_ispeed,
                    of.c_ospeed);
  };
  return all(one) == all(other) && std::ranges::equal(one.c_cc, other.c_cc);
}

/// A terminal of our own for tests, with a leader that owns it as a shell does, and a program in a
/// group of its own, in the foreground or in the background.
class TestTerminal {
 public:
  TestTerminal() {
    winsize size{};
    size.ws_col = 80;
    size.ws_row = 24;
    if (openpty(&master_, &slave_, nullptr, nullptr, &size) != 0)
      throw std::runtime_error("no pseudo-terminal is free");
    fcntl(master_, F_SETFD, FD_CLOEXEC);
    fcntl(slave_, F_SETFD, FD_CLOEXEC);
  }
  ~TestTerminal() {
    if (program_ > 0) kill(program_, SIGKILL);
    if (leader_ > 0) {
      kill(leader_, SIGKILL);
      waitpid(leader_, nullptr, 0);
    }
    hangUp();
    close(slave_);
  }
  TestTerminal(const TestTerminal&) = delete;
  TestTerminal& operator=(const TestTerminal&) = delete;

  /// Starts the program; `words` begins with its path.
  void start(const std::vector<std::string>& words, bool foreground = true) {
    int report[2], order[2];
    if (pipe(report) != 0 || pipe(order) != 0) throw std::runtime_error("no pipe");
    for (const int end : {report[0], report[1], order[0], order[1]})
      fcntl(end, F_SETFD, FD_CLOEXEC);
    leader_ = fork();
    if (leader_ == 0) lead(words, foreground, report[1], order[0]);
    close(report[1]);
    close(order[0]);
    report_ = report[0];
    order_ = order[1];
    if (read(report_, &program_, sizeof program_) != sizeof program_)
      throw std::runtime_error("the program was not started");
  }

  pid_t program() const { return program_; }
  void signal(int number) const { kill(program_, number); }
  void type(const std::string& keys) const {
    [[maybe_unused]] const ssize_t written = write(master_, keys.data(), keys.size());
  }
  /// Puts the program into the foreground, or back to the leader's background.
  void foreground(bool on) const {
    const char what = on ? 'f' : 'b';
    [[maybe_unused]] const ssize_t written = write(order_, &what, 1);
    wait([&] { return tcgetpgrp(master_) == (on ? program_ : leader_); });
  }
  void resize(int columns, int lines) const {
    winsize size{};
    size.ws_col = static_cast<unsigned short>(columns);
    size.ws_row = static_cast<unsigned short>(lines);
    ioctl(master_, TIOCSWINSZ, &size);
  }
  /// The person's end is gone, as when a connection breaks.
  void hangUp() {
    if (master_ >= 0) close(master_);
    master_ = -1;
  }

  termios settings() const {
    termios now{};
    tcgetattr(slave_, &now);
    return now;
  }
  void set(const termios& settings) const { tcsetattr(slave_, TCSANOW, &settings); }
  bool raw() const { return (settings().c_lflag & (ICANON | ECHO)) == 0; }

  /// Reads what was written until it holds the text; false if it does not within a few seconds.
  bool shows(const std::string& text) {
    return wait([&] {
      take();
      return screen.find(text) != std::string::npos;
    });
  }
  /// Reads what is there.
  void take() {
    char bytes[4096];
    pollfd input = {master_, POLLIN, 0};
    while (poll(&input, 1, 0) > 0) {
      const ssize_t count = read(master_, bytes, sizeof bytes);
      if (count <= 0) return;
      screen.append(bytes, static_cast<std::size_t>(count));
    }
  }
  /// The status of the program that ends or stops, as waitpid tells it; -1 if it does not.
  int status() {
    int status = 0;
    pollfd input = {report_, POLLIN, 0};
    return wait([&] {
             if (master_ >= 0) take();
             return poll(&input, 1, 0) > 0;
           }) && read(report_, &status, sizeof status) == sizeof status
               ? status
               : -1;
  }

  /// Waits until this holds, some seconds at most.
  static bool wait(const std::function<bool()>& holds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!holds()) {
      if (std::chrono::steady_clock::now() > end) return false;
      poll(nullptr, 0, 2);
    }
    return true;
  }

  std::string screen;  ///< all that was written and read

 private:
  /// The leader: starts the program, carries out orders, tells what becomes of it.
  [[noreturn]] void lead(const std::vector<std::string>& words, bool foreground, int report,
                         int order) const {
    close(master_);
    setsid();
    ioctl(slave_, TIOCSCTTY, 0);
    std::signal(SIGTTOU, SIG_IGN);
    std::signal(SIGHUP, SIG_IGN);  // the program is to be told by the system, not by the leader
    const pid_t program = fork();
    if (program == 0) become(words, foreground);
    setpgid(program, program);
    if (foreground) tcsetpgrp(slave_, program);
    [[maybe_unused]] ssize_t done = write(report, &program, sizeof program);
    pollfd orders = {order, POLLIN, 0};
    for (;;) {
      int status = 0;
      if (waitpid(program, &status, WNOHANG | WUNTRACED) == program) {
        done = write(report, &status, sizeof status);
        if (!WIFSTOPPED(status)) pause();
      }
      char what = 0;
      if (poll(&orders, 1, 2) > 0 && read(order, &what, 1) == 1)
        tcsetpgrp(slave_, what == 'f' ? program : getpid());
    }
  }

  [[noreturn]] void become(const std::vector<std::string>& words, bool foreground) const {
    setpgid(0, 0);
    if (foreground) tcsetpgrp(slave_, getpid());
    for (const int number : {SIGTTOU, SIGHUP}) std::signal(number, SIG_DFL);
    for (int descriptor = 0; descriptor < 3; ++descriptor) dup2(slave_, descriptor);
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execv(arguments.front(), arguments.data());
    _exit(127);
  }

  int master_ = -1;
  int slave_ = -1;
  int report_ = -1;
  int order_ = -1;
  pid_t leader_ = -1;
  pid_t program_ = -1;
};

}  // namespace korvane
