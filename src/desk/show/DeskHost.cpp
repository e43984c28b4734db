#include "desk/show/DeskHost.h"

#include <filesystem>

#include "platform/TextFile.h"

namespace korvane {

// Without a working folder a path stays as it is.
void DeskHost::setProject(const std::string& stem) {
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::absolute(systemPath(stem), error);
  stem_ = error ? stem : whole.lexically_normal().string();
  name_ = fileTitle(stem_);
}

void DeskHost::SetChannel(std::int32_t channel, std::int32_t value, bool) {
  if (onCall) onCall(channel, value);
  if (channel < 1 || channel > kChannels) return;
  levels_[static_cast<std::size_t>(channel)] = static_cast<std::uint8_t>(value);
}

}  // namespace korvane
