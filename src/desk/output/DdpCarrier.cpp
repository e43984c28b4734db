#include "desk/output/DdpCarrier.h"

#include <algorithm>

#include "desk/network/DdpPacket.h"

namespace korvane {
namespace {

// With more packets a picture, some receivers take a number that comes again for a late packet.
constexpr std::size_t kMostNumbered = 10;
constexpr std::uint8_t kLastSequence = 15;

}  // namespace

void DdpCarrier::write(const OutputPicture& picture, bool, std::vector<Datagram>& out) {
  static_assert(sizeof(Rgb) == 3);
  if (picture.lamps.empty()) return;
  const std::span<const std::uint8_t> values(picture.lamps.front().data(),
                                             picture.lamps.size() * sizeof(Rgb));
  const bool numbered = values.size() <= kMostNumbered * kDdpMostData;
  for (std::size_t at = 0; at < values.size(); at += kDdpMostData) {
    const std::size_t size = std::min(kDdpMostData, values.size() - at);
    if (numbered) sequence_ = static_cast<std::uint8_t>(sequence_ % kLastSequence + 1);
    const bool last = at + size == values.size();
    out.push_back({place(0), ddpPacket(numbered ? sequence_ : 0, static_cast<std::uint32_t>(at),
                                       last, values.subspan(at, size))});
  }
}

}  // namespace korvane
