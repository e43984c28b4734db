#include "desk/wall/WallPicture.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <map>
#include <utility>

#include "platform/Failure.h"

namespace korvane {
namespace {

constexpr std::uint32_t kComponents = 3;

// Runs over the lamps in the order in which the plug-in sends them.
template <class Work>
void forEachLamp(const Grid<ChannelMap::Codes>& codes, Work work) {
  for (int col = 0; col < codes.cols(); ++col) {
    for (int row = 0; row < codes.rows(); ++row) work(LampAt{col, row}, codes.at(col, row));
  }
}

bool beyondTheWall(const ChannelMap::Codes& codes) {
  return std::any_of(codes.begin(), codes.end(),
                     [](std::int32_t code) { return code > kLastWallCode; });
}

// The lowest channel, also one beyond the last universe; 0 for a lamp without any.
std::int32_t lowestChannel(const ChannelMap::Codes& codes) {
  std::int32_t lowest = 0;
  for (const std::int32_t code : codes) {
    if (code > 0 && (lowest == 0 || code < lowest)) lowest = code;
  }
  return lowest;
}

// Ordered dithering after Bayer: neighbours go up to the next byte as far apart as can be. Steps of
// 4 of 256, from 2 on, so that whole bytes stay and the pattern's mean is a half.
std::uint8_t threshold(const LampAt& lamp) {
  unsigned place = 0;  // 0 - 63
  for (unsigned bit = 0; bit < 3; ++bit) {
    const unsigned x = static_cast<unsigned>(lamp.col) >> bit & 1U;
    const unsigned y = static_cast<unsigned>(lamp.row) >> bit & 1U;
    place = place * 4 + (x ^ y) * 2 + y;
  }
  return static_cast<std::uint8_t>(place * 4 + 2);
}

}  // namespace

std::optional<WallChannel> wallChannel(std::int32_t code) {
  if (code < 1 || code > kLastWallCode) return std::nullopt;
  return WallChannel{(code - 1) / kUniverseChannels + 1, (code - 1) % kUniverseChannels + 1};
}

std::int32_t codeOf(const WallChannel& channel) {
  return (channel.universe - 1) * kUniverseChannels + channel.channel;
}

Patch::Patch(const ChannelMap& map) : codes_(map.codes()) {
  connect();
  layWire();
  findShared();
  describe();
  forEachLamp(codes_, [this](const LampAt& lamp, const Codes& codes) {
    if (beyondTheWall(codes)) beyond_.push_back(lamp);
    if (lowestChannel(codes) == 0) withoutChannels_.push_back(lamp);
  });
}

bool Patch::madeFrom(const ChannelMap& map) const {
  const Grid<Codes>& codes = map.codes();
  return codes.cols() == codes_.cols() && codes.rows() == codes_.rows() &&
         std::equal(codes_.data(), codes_.data() + codes_.span(), codes.data());
}

WallPicture Patch::take(const Frame& frame) const {
  if (frame.cols() != codes_.cols() || frame.rows() != codes_.rows()) throw Failure(kSubscript);
  WallPicture picture;
  picture.layout = layout_;
  if (transfers_.empty() && wireFrom_.empty()) return picture;
  const std::uint8_t* from = frame.data()->data();
  std::uint8_t* to = picture.bytes();
  for (const Transfer& transfer : transfers_) to[transfer.to] = from[transfer.from];
  picture.lamps.resize(wireFrom_.size());
  for (std::size_t i = 0; i < wireFrom_.size(); ++i) picture.lamps[i] = frame.data()[wireFrom_[i]];
  return picture;
}

std::optional<Patch::Feed> Patch::feed(const WallChannel& channel) const {
  const auto to = static_cast<std::uint32_t>(codeOf(channel) - 1);
  const auto found =
      std::lower_bound(transfers_.begin(), transfers_.end(), to,
                       [](const Transfer& transfer, std::uint32_t at) { return transfer.to < at; });
  if (found == transfers_.end() || found->to != to) return std::nullopt;
  return Feed{lampOf(found->from), static_cast<int>(found->from % kComponents)};
}

LampAt Patch::lampOf(std::uint32_t byte) const {
  const auto column = static_cast<std::uint32_t>(codes_.rows() + 1);
  const std::uint32_t cell = byte / kComponents;
  return {static_cast<int>(cell / column), static_cast<int>(cell % column)};
}

void Patch::connect() {
  constexpr std::uint32_t kNone = ~std::uint32_t{0};
  std::vector<std::uint32_t> feeds(kLastWallCode, kNone);
  const Codes* cells = codes_.data();
  forEachLamp(codes_, [&](const LampAt&, const Codes& codes) {
    const auto cell = static_cast<std::uint32_t>(&codes - cells);
    for (std::uint32_t component = 0; component < kComponents; ++component) {
      const std::int32_t code = codes[component];
      if (code < 1 || code > kLastWallCode) continue;
      feeds[static_cast<std::size_t>(code) - 1] = cell * kComponents + component;
    }
  });
  for (std::uint32_t to = 0; to < feeds.size(); ++to) {
    if (feeds[to] != kNone) transfers_.push_back({feeds[to], to});
  }
  if (!transfers_.empty())
    lastUniverse_ = static_cast<int>(transfers_.back().to) / kUniverseChannels + 1;
}

void Patch::layWire() {
  std::map<std::int32_t, LampAt> byChannel;
  forEachLamp(codes_, [&](const LampAt& lamp, const Codes& codes) {
    const std::int32_t lowest = lowestChannel(codes);
    if (lowest != 0) byChannel[lowest] = lamp;
  });
  for (const auto& [channel, lamp] : byChannel) {
    wire_.push_back(lamp);
    wireFrom_.push_back(static_cast<std::uint32_t>(&codes_.at(lamp.col, lamp.row) - codes_.data()));
  }
}

void Patch::describe() {
  WallLayout layout;
  for (const Transfer& transfer : transfers_) {
    layout.channels.push_back({static_cast<std::uint16_t>(transfer.to),
                               static_cast<std::uint8_t>(transfer.from % kComponents),
                               threshold(lampOf(transfer.from))});
  }
  for (const LampAt& lamp : wire_) layout.lampThresholds.push_back(threshold(lamp));
  layout_ = std::make_shared<const WallLayout>(std::move(layout));
}

void Patch::findShared() {
  std::vector<std::vector<LampAt>> owners(kLastWallCode);
  forEachLamp(codes_, [&](const LampAt& lamp, const Codes& codes) {
    for (const std::int32_t code : codes) {
      if (code < 1 || code > kLastWallCode) continue;
      std::vector<LampAt>& lamps = owners[static_cast<std::size_t>(code) - 1];
      if (lamps.empty() || lamps.back() != lamp) lamps.push_back(lamp);
    }
  });
  for (std::size_t at = 0; at < owners.size(); ++at) {
    if (owners[at].size() < 2) continue;
    sharedChannels_.push_back(*wallChannel(static_cast<std::int32_t>(at) + 1));
    sharing_.insert(sharing_.end(), owners[at].begin(), owners[at].end());
  }
  std::sort(sharing_.begin(), sharing_.end());
  sharing_.erase(std::unique(sharing_.begin(), sharing_.end()), sharing_.end());
}

}  // namespace korvane
