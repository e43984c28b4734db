#pragma once

#include <chrono>
#include <optional>

#include "desk/network/OutputTarget.h"

namespace korvane {

using TimePoint = std::chrono::steady_clock::time_point;

/// One universe's stream of packets: what is sent and when. It knows no clock and no socket.
///
/// A new frame goes out at once, or as soon as the rate allows; of several frames that came
/// meanwhile only the latest is sent. After a frame come three repeats, then keep-alives.
///
///     frames   A         B C D
///     packets  A  a  a   B   D  d  d  d        d        d
class OutputStream {
 public:
  OutputStream(const OutputTarget& target, const Uuid& component, const Slots& slots)
      : target_(target), component_(component), slots_(slots) {}

  /// A new frame: it replaces one that still waits.
  void show(const Slots& slots);
  /// Begins the clean end: the frame that waits goes out, then the protocol's goodbyes.
  void end() { ending_ = true; }
  /// True when the last packet of the clean end has been made.
  bool ended() const { return ending_ && !fresh_ && goodbyes_ == target_.protocol->goodbyes; }

  /// When the next packet is due; the first one is due since ever.
  TimePoint due() const;
  /// The packet to send now. Call it when one is due and the stream has not ended.
  std::vector<std::uint8_t> packet();
  /// Tells when that packet has left: the next one counts its wait from there, so a delay on the
  /// way out never brings two packets too close.
  void sent(TimePoint now) { sent_ = now; }

 private:
  std::uint8_t nextSequence();

  OutputTarget target_;
  Uuid component_;
  Slots slots_;
  bool fresh_ = true;  ///< The frame has not been sent yet.
  bool ending_ = false;
  int repeats_ = 0;                       ///< Repeats still to come before the keep-alives.
  int goodbyes_ = 0;                      ///< Goodbyes made so far.
  std::optional<std::uint8_t> sequence_;  ///< Of the last packet.
  std::optional<TimePoint> sent_;         ///< Time of the last packet.
};

}  // namespace korvane
