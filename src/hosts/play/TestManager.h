#pragma once

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace korvane {

/// Stands in for the service manager, which hears all that a player says.
class Manager {
 public:
  explicit Manager(std::string path)
      : path_(std::move(path)), socket_(socket(AF_UNIX, SOCK_DGRAM, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path_.copy(address.sun_path, sizeof address.sun_path - 1);
    EXPECT_EQ(bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    const timeval patience{10, 0};
    setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
  }
  ~Manager() { close(socket_); }
  Manager(const Manager&) = delete;
  Manager& operator=(const Manager&) = delete;

  pid_t start(std::vector<std::string> arguments) const {
    const pid_t player = fork();
    if (player != 0) return player;
    setenv("NOTIFY_SOCKET", path_.c_str(), 1);
    setenv("WATCHDOG_USEC", "200000", 1);
    if (std::freopen("/dev/null", "r", stdin) == nullptr) _exit(98);
    std::vector<char*> words = {const_cast<char*>(KORVANE_PLAY)};
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    execv(KORVANE_PLAY, words.data());
    _exit(99);
  }
  /// What a player says next; empty if it says nothing for long.
  std::string hear() const { return take(0); }
  /// What a player has said; empty if there is nothing more.
  std::string heard() const { return take(MSG_DONTWAIT); }
  /// The next thing that begins so.
  std::string hear(const std::string& beginning) const {
    for (std::string word = hear(); !word.empty(); word = hear()) {
      if (word.starts_with(beginning)) return word;
    }
    return "";
  }

 private:
  std::string take(int flags) const {
    std::array<char, 512> said{};
    const ssize_t size = recv(socket_, said.data(), said.size(), flags);
    return size <= 0 ? "" : std::string(said.data(), static_cast<std::size_t>(size));
  }

  std::string path_;
  int socket_;
};

/// Waits for the end of a player; how it ended, as wait() tells.
inline int endOf(pid_t player) {
  int status = 0;
  waitpid(player, &status, 0);
  return status;
}

}  // namespace korvane
