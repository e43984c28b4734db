#include "hosts/play/ServiceNotice.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <charconv>
#include <cstddef>
#include <cstdlib>
#include <string_view>

namespace korvane {
namespace {

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace

ServiceNotice::ServiceNotice() : socket_(environment("NOTIFY_SOCKET")) {
  const std::string limit = environment("WATCHDOG_USEC");
  std::int64_t microseconds = 0;
  std::from_chars(limit.data(), limit.data() + limit.size(), microseconds);
  interval_ = microseconds / 2000;  // half of it, in ms
}

// A name that begins with @ is none of the file system's. A full socket is no reason to wait.
void ServiceNotice::tell(const std::string& text) const {
  sockaddr_un address{};
  if (socket_.empty() || socket_.size() >= sizeof address.sun_path) return;
  address.sun_family = AF_UNIX;
  socket_.copy(address.sun_path, socket_.size());
  if (socket_.front() == '@') address.sun_path[0] = '\0';
  const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + socket_.size());
  const int descriptor = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  if (descriptor < 0) return;
  sendto(descriptor, text.data(), text.size(), MSG_DONTWAIT | MSG_NOSIGNAL,
         reinterpret_cast<const sockaddr*>(&address), size);
  close(descriptor);
}

void ServiceNotice::status(const std::string& text) {
  if (text == status_) return;
  status_ = text;
  tell("STATUS=" + text);
}

void ServiceNotice::alive(std::int64_t milliseconds) {
  if (interval_ == 0 || milliseconds < next_) return;
  next_ = milliseconds + interval_;
  tell("WATCHDOG=1");
}

}  // namespace korvane
