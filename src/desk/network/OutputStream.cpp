#include "desk/network/OutputStream.h"

#include <utility>

namespace korvane {
namespace {

using namespace std::chrono_literals;

// At most 44 packets in any second, as many as a DMX line carries frames (E1.31 6.6.1, E1.11). The
// 44th part of a second is rounded up, so that 45 packets always take more than a second.
constexpr auto kShortestGap = 22728us;

// Three packets repeat a frame before the stream slows down (E1.31 6.6.2). They are spaced so that
// a lost packet is mended soon, and yet an effect's steps seldom have to wait for a repeat.
constexpr int kRepeats = 3;
constexpr auto kRepeatGap = 100ms;

// E1.31 6.6.2 asks for 800 to 1000 ms. Art-Net 4 recommends the same, and its older issues at most
// 4 s, so one pace serves both.
constexpr auto kKeepAliveGap = 800ms;

}  // namespace

void OutputStream::show(const Slots& slots) {
  slots_ = slots;
  fresh_ = true;
}

TimePoint OutputStream::due() const {
  if (!sent_) return TimePoint::min();
  if (fresh_ || ending_) return *sent_ + kShortestGap;
  return repeats_ > 0 ? *sent_ + kRepeatGap : *sent_ + kKeepAliveGap;
}

std::vector<std::uint8_t> OutputStream::packet() {
  const bool terminated = ending_ && !fresh_;
  if (terminated) ++goodbyes_;
  if (std::exchange(fresh_, false)) {
    repeats_ = kRepeats;
  } else if (repeats_ > 0) {
    --repeats_;
  }
  const PacketHead head{component_, target_.universe, nextSequence(), terminated};
  return target_.protocol->packet(head, slots_);
}

std::uint8_t OutputStream::nextSequence() {
  const bool startAnew = !sequence_ || *sequence_ == 255;
  sequence_ =
      startAnew ? target_.protocol->firstSequence : static_cast<std::uint8_t>(*sequence_ + 1);
  return *sequence_;
}

}  // namespace korvane
