#include "desk/wall/OutputLook.h"

#include <algorithm>
#include <cmath>

namespace korvane {
namespace {

constexpr double kSteps = 256;  // of a byte, in the table
constexpr std::uint8_t kHalf = 128;

}  // namespace

void OutputLook::bendCurve(double by) {
  gamma = std::clamp(std::round((gamma + by) * 10) / 10, kLeastGamma, kMostGamma);
}

void OutputLook::shiftShare(std::size_t color, int percent) {
  balance[color] = std::clamp(balance[color] + percent, 0, 100);
}

void OutputStage::setLook(const OutputLook& look) {
  if (look == look_) return;
  look_ = look;
  tableMaster_.reset();
}

const OutputStage::Table& OutputStage::tableFor(int master) {
  if (tableMaster_ == master) return table_;
  tableMaster_ = master;
  const double gamma =
      std::min(OutputLook::kMostGamma, std::max(OutputLook::kLeastGamma, look_.gamma));
  for (std::size_t component = 0; component < table_.size(); ++component) {
    const double share = std::clamp(look_.balance[component], 0, 100) / 100.0;
    for (std::size_t value = 0; value < 256; ++value) {
      const double light = std::pow(static_cast<double>(value) * master / 25500.0, gamma) * share;
      table_[component][value] = static_cast<std::uint16_t>(std::lround(255 * kSteps * light));
    }
  }
  return table_;
}

std::uint8_t OutputStage::byteOf(const Table& table, std::size_t component, std::uint8_t value,
                                 std::uint8_t threshold) const {
  const unsigned exact = table[component][value];
  return static_cast<std::uint8_t>((exact + (look_.smooth ? threshold : kHalf)) >> 8);
}

WallPicture OutputStage::pass(const LevelledPicture& levelled) {
  WallPicture sent = levelled.picture;
  const Table& table = tableFor(levelled.master);
  if (!sent.layout) return sent;  // it has no lamps
  std::uint8_t* bytes = sent.bytes();
  for (const WallLayout::Channel& channel : sent.layout->channels)
    bytes[channel.at] = byteOf(table, channel.component, bytes[channel.at], channel.threshold);
  for (std::size_t lamp = 0; lamp < sent.lamps.size(); ++lamp) {
    for (std::size_t component = 0; component < 3; ++component) {
      std::uint8_t& value = sent.lamps[lamp][component];
      value = byteOf(table, component, value, sent.layout->lampThresholds[lamp]);
    }
  }
  return sent;
}

}  // namespace korvane
