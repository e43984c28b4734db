#include "desk/network/NetworkOutput.h"

#include <utility>

#include "desk/network/ComponentId.h"
#include "desk/network/UdpSender.h"

namespace korvane {

using std::chrono::steady_clock;

NetworkOutput::NetworkOutput(std::string_view program) : component_(componentId(program)) {}

void NetworkOutput::start(const OutputTarget& target) {
  stop();
  target_ = target;
  changed_ = false;
  stream_.emplace(target, component_, slots_);
  error_ = {};
  thread_ = std::thread([this] { run(); });
}

void NetworkOutput::stop() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    stream_->end();
  }
  wake_.notify_one();
  thread_.join();
  target_.reset();
}

void NetworkOutput::setChannel(int channel, std::uint8_t value) {
  if (channel < 1 || channel > static_cast<int>(slots_.size())) return;
  std::uint8_t& slot = slots_[static_cast<std::size_t>(channel - 1)];
  changed_ = changed_ || slot != value;
  slot = value;
}

void NetworkOutput::endOfPass() {
  if (!std::exchange(changed_, false) || !target_) return;
  {
    const std::lock_guard lock(mutex_);
    stream_->show(slots_);
  }
  wake_.notify_one();
}

std::string NetworkOutput::status() const {
  if (!target_) return "off";
  const std::string problem = error();
  return describe(*target_) + (problem.empty() ? "" : ": " + problem);
}

std::string NetworkOutput::error() const {
  if (!target_) return {};
  const std::lock_guard lock(mutex_);
  return error_.text();
}

/// The sender thread. The lock is not held while a packet is sent.
void NetworkOutput::run() {
  UdpSender sender(*target_);
  std::unique_lock lock(mutex_);
  while (!stream_->ended()) {
    if (steady_clock::now() < stream_->due()) {
      wake_.wait_until(lock, stream_->due());
      continue;
    }
    const auto packet = stream_->packet();
    lock.unlock();
    const std::string error = sender.send(packet);
    const auto now = steady_clock::now();
    lock.lock();
    stream_->sent(now);
    error_.note(now, error);
  }
}

}  // namespace korvane
