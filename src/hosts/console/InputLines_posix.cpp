#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "hosts/console/InputLines.h"
#include "platform/Signals.h"

namespace korvane {
namespace {

constexpr std::size_t kPiece = 65536;

}  // namespace

bool InputLines::take(std::string& line) {
  const std::size_t end = buffer_.find('\n', searched_);
  if (end == std::string::npos) {
    buffer_.erase(0, begin_);
    begin_ = 0;
    searched_ = buffer_.size();
    return false;
  }
  line.assign(buffer_, begin_, end - begin_);
  begin_ = searched_ = end + 1;
  return true;
}

InputLines::Found InputLines::next(std::string& line, int timeout) {
  if (take(line)) return Found::Line;
  if (ended_) {
    line = std::exchange(buffer_, {});
    return line.empty() ? Found::End : Found::Line;
  }
  pollfd waits[] = {{descriptor_, POLLIN, 0}, {Signals::descriptor(), POLLIN, 0}};
  if (poll(waits, 2, timeout) <= 0 || waits[0].revents == 0) return Found::Nothing;
  const std::size_t old = buffer_.size();
  buffer_.resize(old + kPiece);
  const ssize_t count = read(descriptor_, buffer_.data() + old, kPiece);
  buffer_.resize(old + static_cast<std::size_t>(count > 0 ? count : 0));
  if (count < 0 && errno != EINTR && errno != EAGAIN) return Found::Error;
  ended_ = count == 0;
  return take(line) ? Found::Line : Found::Nothing;
}

}  // namespace korvane
