#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/Failure.h"
#include "state/Host.h"

namespace korvane {

/// A desk that writes down what it is asked for, and can be told to refuse.
struct FakeHost : Host {
  /// The failure of a call that the desk refuses.
  static constexpr int kRefused = 1000;

  std::int32_t ChannelMAXCHANNELS() override { return channels; }
  std::string ProjectName() override { return name; }
  std::string ProjectBaseFilename() override { return baseFilename; }
  void UserInteraction() override { record("UserInteraction"); }
  void SetChannel(std::int32_t channel, std::int32_t value, bool flag) override {
    record("SetChannel " + std::to_string(channel) + " " + std::to_string(value) +
           (flag ? "" : " without the flag"));
  }
  /// The calls since the last time; forgets them.
  std::vector<std::string> take() { return std::exchange(calls, {}); }

  std::int32_t channels = 512;
  std::string name = "show";
  std::string baseFilename;
  std::vector<std::string> calls;  ///< "UserInteraction", "SetChannel 1 255", in order
  std::size_t refuseAt = 0;        ///< refuses the call that would be the nth in `calls`; 0: none

 private:
  void record(std::string call) {
    const bool refused = calls.size() + 1 == refuseAt;
    calls.push_back(refused ? call + " refused" : std::move(call));
    if (refused) throw Failure(kRefused, calls.back());
  }
};

}  // namespace korvane
