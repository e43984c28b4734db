#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "commands/HostCalls.h"
#include "desk/output/OutputConfig.h"
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
  /// Sends the lamps their values from now on.
  virtual void send(const OutputConfig& output) = 0;
  /// Announces the plug-in to its desk, and opens the tool window unless `closed`.
  virtual void start(bool closed) = 0;
  /// After each pass over the timers: hands on what the lamps are to show.
  virtual void settle() = 0;
  /// After each command: as after an event of a person.
  virtual void refresh() { settle(); }
  /// Whether it has outputs.
  virtual bool sending() = 0;
  /// What is to be told of the outputs now.
  virtual std::vector<std::string> news() = 0;
  /// Ends the outputs as each is set, and waits for that.
  virtual void end() = 0;
};

/// `base` is the project's path without its ending.
std::unique_ptr<Stand> makePlainStand(Platform& platform, const std::string& base,
                                      std::int32_t channels);
std::unique_ptr<Stand> makeDeskStand(Platform& platform, const std::string& base);

}  // namespace korvane
