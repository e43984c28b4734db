#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "commands/HostCalls.h"
#include "desk/network/NetworkOutput.h"
#include "platform/Platform.h"
#include "shell/Plugin.h"

namespace korvane {

/// What the console stands in for around its plug-in: a lighting desk that keeps its calls, or the
/// whole stand-alone desk with its windows.
class Stand {
 public:
  virtual ~Stand() = default;

  virtual Plugin& plugin() = 0;
  virtual Host& host() = 0;
  virtual HostCalls& calls() = 0;
  /// Announces the plug-in to its desk, and opens the tool window unless `closed`.
  virtual void start(bool closed) = 0;
  /// Sends the levels there from now on.
  virtual void use(const OutputTarget& target) = 0;
  /// After each command, and after each pass over the timers: hands the levels over to be sent.
  virtual void settle() = 0;
};

/// `base` is the project's path without its ending.
std::unique_ptr<Stand> makePlainStand(Platform& platform, NetworkOutput& output,
                                      const std::string& base, std::int32_t channels);
std::unique_ptr<Stand> makeDeskStand(Platform& platform, NetworkOutput& output,
                                     const std::string& base);

}  // namespace korvane
