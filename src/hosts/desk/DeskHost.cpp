#include "hosts/desk/DeskHost.h"

#include <filesystem>

namespace korvane {

DeskHost::DeskHost(const std::string& stem, NetworkOutput& output) : output_(output) {
  const std::filesystem::path path = std::filesystem::absolute(stem).lexically_normal();
  stem_ = path.string();
  name_ = path.filename().string();
  endOfPass_.setSingleShot(true);
  endOfPass_.setInterval(0);
  QObject::connect(&endOfPass_, &QTimer::timeout, [this] { output_.endOfPass(); });
}

void DeskHost::SetChannel(std::int32_t channel, std::int32_t value, bool) {
  if (channel < 1 || channel > kChannels) return;
  const auto byte = static_cast<std::uint8_t>(value);
  levels_[static_cast<std::size_t>(channel)] = byte;
  output_.setChannel(channel, byte);
  if (onLevel) onLevel(channel);
}

void DeskHost::follow(const DeskHost& before) {
  UserInteraction();
  for (std::int32_t channel = 1; channel <= kChannels; ++channel) {
    if (before.level(channel) != 0) SetChannel(channel, 0, true);
  }
}

std::uint8_t DeskHost::level(std::int32_t channel) const {
  return levels_.at(static_cast<std::size_t>(channel));
}

}  // namespace korvane
