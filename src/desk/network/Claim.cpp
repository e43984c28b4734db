#include "desk/network/Claim.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <utility>

namespace korvane {
namespace {

/// An abstract address: it belongs to the network name space and leaves nothing in any folder.
struct Address {
  explicit Address(const std::string& name) {
    const std::string whole = "korvane/" + name;
    const std::size_t length = std::min(whole.size(), sizeof data.sun_path - 1);
    data.sun_family = AF_UNIX;
    std::copy_n(whole.data(), length, data.sun_path + 1);
    size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + length);
  }
  const sockaddr* generic() const { return reinterpret_cast<const sockaddr*>(&data); }

  sockaddr_un data{};
  socklen_t size = 0;
};

int newSocket() { return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0); }

std::string holderOf(const Address& address) {
  const int asking = newSocket();
  ucred who{};
  socklen_t size = sizeof who;
  if (asking >= 0 && connect(asking, address.generic(), address.size) == 0)
    getsockopt(asking, SOL_SOCKET, SO_PEERCRED, &who, &size);
  if (asking >= 0) close(asking);
  std::string name;
  std::getline(std::ifstream("/proc/" + std::to_string(who.pid) + "/comm"), name);
  if (name.empty()) return "another program";
  return name + " (process " + std::to_string(who.pid) + ")";
}

}  // namespace

Claim::Claim(const std::string& name) : socket_(newSocket()) {
  const Address address(name);
  if (socket_ < 0) return;
  // Nobody takes the calls of those who ask for the holder: they stay in this queue.
  if (bind(socket_, address.generic(), address.size) == 0 && listen(socket_, SOMAXCONN) == 0)
    return;
  close(std::exchange(socket_, -1));
  holder_ = holderOf(address);
}

Claim::~Claim() {
  if (socket_ >= 0) close(socket_);
}

Claim::Claim(Claim&& other) noexcept
    : socket_(std::exchange(other.socket_, -1)), holder_(std::move(other.holder_)) {}

Claim& Claim::operator=(Claim&& other) noexcept {
  std::swap(socket_, other.socket_);
  std::swap(holder_, other.holder_);
  return *this;
}

}  // namespace korvane
