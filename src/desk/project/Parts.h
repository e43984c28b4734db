#pragma once

#include <string>
#include <vector>

#include "desk/output/OutputConfig.h"
#include "desk/project/Member.h"
#include "desk/wall/WallLevels.h"
#include "desk/wall/WiringPlan.h"

namespace korvane {

// The parts of a project's file that the desk and the player have in common: to JSON and back. What
// is wrong in a member is noted, and what stands beside it is taken.

Json toJson(const std::vector<OutputEntry>& outputs);
/// Nothing for a file that says nothing of outputs.
std::vector<OutputEntry> outputsOf(const Member& member);

/// The grand master alone: nobody wants to open a show in a blackout of last night.
Json toJson(const WallLevels& levels);
WallLevels levelsOf(const Member& member);

Json toJson(const WiringPlan& plan);
/// A plan without a fault. One that can't be laid is noted, and the usual one is returned.
WiringPlan wiringOf(const Member& member);

/// How the desk may be worked from elsewhere.
struct RemoteSettings {
  struct Network {
    bool on = false;
    int port = 0;  ///< 1 - 65535
    bool operator==(const Network&) const = default;
  };
  struct Device {
    bool on = false;
    std::string name = {};  ///< empty: any
    bool operator==(const Device&) const = default;
  };

  Network osc{false, 9000};
  Network page{false, 8080};
  Device midi;

  bool operator==(const RemoteSettings&) const = default;
};

Json toJson(const RemoteSettings& remote);
RemoteSettings remoteOf(const Member& member);

}  // namespace korvane
