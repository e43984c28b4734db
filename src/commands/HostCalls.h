#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvane {

/// A call that the plug-in made to the desk. Any number may be a channel's.
struct HostCall {
  enum class Kind : std::uint8_t { UserInteraction, SetChannel };

  static HostCall userInteraction() { return {0, 0, Kind::UserInteraction}; }
  static HostCall setChannel(std::int32_t channel, std::int32_t value) {
    return {channel, static_cast<std::int16_t>(value), Kind::SetChannel};
  }

  std::int32_t channel;
  std::int16_t value;  ///< 0 - 255; millions of calls are kept
  Kind kind;
};

/// The calls that a desk got, in order. Of more than so many the older half goes, so that a program
/// can run for days.
class HostCalls {
 public:
  explicit HostCalls(std::size_t most) : most_(most) {}

  void add(const HostCall& call) {
    if (all_.size() == most_)
      all_.erase(all_.begin(), all_.begin() + static_cast<std::ptrdiff_t>(most_ / 2));
    all_.push_back(call);
  }
  void clear() { all_.clear(); }
  const std::vector<HostCall>& all() const { return all_; }

 private:
  std::size_t most_;
  std::vector<HostCall> all_;
};

}  // namespace korvane
