#include "hosts/play/Messages.h"

#include <poll.h>
#include <unistd.h>

namespace korvane {
namespace {

constexpr std::size_t kMostKept = 100;

void writeLine(const std::string& text) {
  const std::string line = "korvane-play: " + text + "\n";
  pollfd output = {STDERR_FILENO, POLLOUT, 0};
  if (poll(&output, 1, 0) <= 0) return;
  [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, line.data(), line.size());
}

}  // namespace

void Messages::tell(const std::string& text, bool pictured) {
  newest_ = text;
  if (!pictured || isatty(STDERR_FILENO) == 0) return writeLine(text);
  if (kept_.size() == kMostKept) kept_.erase(kept_.begin());
  kept_.push_back(text);
}

void Messages::flush() {
  for (const std::string& text : kept_) writeLine(text);
  kept_.clear();
}

}  // namespace korvane
