#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "commands/HostCalls.h"
#include "state/Host.h"

namespace korvane {

/// Stands in for the lighting desk: answers what the plug-in asks, and keeps its calls.
class ConsoleHost : public Host {
 public:
  struct Project {
    std::string name;
    std::string baseFilename;
  };
  static constexpr std::size_t kMostCalls = 8'000'000;

  ConsoleHost(Project project, std::int32_t channels)
      : project_(std::move(project)), channels_(channels) {}

  std::int32_t ChannelMAXCHANNELS() override { return channels_; }
  std::string ProjectName() override { return project_.name; }
  std::string ProjectBaseFilename() override { return project_.baseFilename; }
  void UserInteraction() override {
    calls.add(HostCall::userInteraction());
    if (onPass) onPass();
  }
  void SetChannel(std::int32_t channel, std::int32_t value, bool) override {
    calls.add(HostCall::setChannel(channel, value));
  }

  HostCalls calls{kMostCalls};   ///< until someone clears them
  std::function<void()> onPass;  ///< a pass was announced

 private:
  Project project_;
  std::int32_t channels_;
};

}  // namespace korvane
