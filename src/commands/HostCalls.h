#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvane {

/// A call that the plug-in made to the desk: `SetChannel`, or `UserInteraction`.
struct HostCall {
  static constexpr std::int32_t kUserInteraction = -1;

  std::int32_t channel;  ///< kUserInteraction for that call
  std::int32_t value;
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
