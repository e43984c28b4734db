#pragma once

#include <cstdint>
#include <string>

namespace korvane {

/// What the lighting desk offers; all that the plug-in ever asks of it. An operation that fails
/// raises a Failure. [window thread, after `ITharnPlugin_Init`]
class Host {
 public:
  virtual ~Host() = default;

  /// Number of channels that the desk knows.
  virtual std::int32_t ChannelMAXCHANNELS() = 0;
  /// `Project.Name`, and `Project.BaseFilename`: the project's path without its ending.
  virtual std::string ProjectName() = 0;
  virtual std::string ProjectBaseFilename() = 0;
  /// `MyStream.UserInteraction`: announces an output pass. `MyStream` is fetched for each call.
  virtual void UserInteraction() = 0;
  /// `MyStream.SetChannel`: sets one channel to a value of 0 - 255; `flag` is always true.
  virtual void SetChannel(std::int32_t channel, std::int32_t value, bool flag) = 0;
};

}  // namespace korvane
