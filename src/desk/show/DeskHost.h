#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "state/ChannelMap.h"
#include "state/Host.h"

namespace korvane {

/// The levels of the desk's channels, 1 - 512, by their number; 0 stands for a lamp without one.
using Levels = std::array<std::uint8_t, kUniverseChannels + 1>;

/// The stand-alone desk as the plug-in sees it: names the project and keeps the levels.
class DeskHost : public Host {
 public:
  static constexpr std::int32_t kChannels = kUniverseChannels;

  /// `stem` is the project's path without its ending; the project is named after its last part.
  explicit DeskHost(const std::string& stem) { setProject(stem); }

  void setProject(const std::string& stem);

  std::int32_t ChannelMAXCHANNELS() override { return kChannels; }
  std::string ProjectName() override { return name_; }
  std::string ProjectBaseFilename() override { return stem_; }
  void UserInteraction() override {
    if (onPass) onPass();
  }
  /// Channels outside 1 - 512 name no lamp and are passed over; 0 stands for a lamp without one.
  void SetChannel(std::int32_t channel, std::int32_t value, bool flag) override;

  const Levels& levels() const { return levels_; }
  void clearLevels() { levels_.fill(0); }

  /// For the console, which tells of each call.
  std::function<void()> onPass;
  std::function<void(std::int32_t channel, std::int32_t value)> onCall;

 private:
  std::string stem_;
  std::string name_;
  Levels levels_{};
};

}  // namespace korvane
