#pragma once

#include <QTimer>
#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "desk/network/NetworkOutput.h"
#include "state/Host.h"

namespace korvane {

/// The stand-alone desk as the plug-in sees it: keeps the 512 levels and hands each pass over to
/// the network when the event that made it is done.
class DeskHost : public Host {
 public:
  static constexpr std::int32_t kChannels = 512;

  /// `stem` is the project's path without its ending; the project is named after its last part.
  DeskHost(const std::string& stem, NetworkOutput& output);

  std::int32_t ChannelMAXCHANNELS() override { return kChannels; }
  std::string ProjectName() override { return name_; }
  std::string ProjectBaseFilename() override { return stem_; }
  void UserInteraction() override { endOfPass_.start(); }
  /// Channels outside 1 - 512 name no lamp and are passed over; 0 stands for a lamp without one.
  void SetChannel(std::int32_t channel, std::int32_t value, bool flag) override;

  /// Takes the output over from the host of another project: its channels go to 0.
  void follow(const DeskHost& before);

  /// Level of a channel, 1 - 512.
  std::uint8_t level(std::int32_t channel) const;
  std::function<void(std::int32_t channel)> onLevel;  ///< a channel, 1 - 512, was set

 private:
  std::string stem_;
  std::string name_;
  NetworkOutput& output_;
  std::array<std::uint8_t, kChannels + 1> levels_{};
  QTimer endOfPass_;
};

}  // namespace korvane
