#include "desk/wall/LampTest.h"

#include <algorithm>

namespace korvane {
namespace {

using What = LampTest::What;
using Light = LampTest::Light;

constexpr int kColorsInTurn = 4;
constexpr std::array<Light, kColorsInTurn> kInTurn = {Light::Red, Light::Green, Light::Blue,
                                                      Light::White};
constexpr std::array<const char*, 3> kComponentNames = {"red", "green", "blue"};
constexpr std::uint8_t kFullLight = 255;

Light lightOf(const LampTest& test) {
  return test.light == Light::InTurn ? kInTurn.at(static_cast<std::size_t>(test.turn)) : test.light;
}

const char* nameOf(Light light) {
  switch (light) {
    case Light::Red:
      return "red";
    case Light::Green:
      return "green";
    case Light::Blue:
      return "blue";
    default:
      return "white";
  }
}

bool shines(Light light, std::size_t component) {
  return light == Light::White ||
         static_cast<std::size_t>(light) == static_cast<std::size_t>(Light::Red) + component;
}

// Which components of which lamps a test means.
class Beam {
 public:
  Beam(const LampTest& test, const Patch& patch) : test_(test), light_(lightOf(test)) {
    if (test.what != What::Lamp || patch.wire().empty()) return;
    lamp_ = patch.wire().at(static_cast<std::size_t>(test.at));
  }

  bool hits(const LampAt& lamp, std::size_t component, std::int32_t code) const {
    if (test_.what == What::Channel) return code == test_.at + 1;
    return shines(light_, component) && meant(lamp, code);
  }

 private:
  bool meant(const LampAt& lamp, std::int32_t code) const {
    switch (test_.what) {
      case What::Lamp:
        return lamp == lamp_;
      case What::Row:
        return lamp.row == test_.at;
      case What::Column:
        return lamp.col == test_.at;
      case What::Universe: {
        const auto channel = wallChannel(code);
        return channel && channel->universe == test_.at + 1;
      }
      default:
        return true;
    }
  }

  const LampTest& test_;
  Light light_;
  LampAt lamp_{-1, -1};
};

// Runs over the components that a test lights.
template <class Work>
void forEachLit(const LampTest& test, const Patch& patch, Work work) {
  const Beam beam(test, patch);
  for (int col = 0; col < patch.cols(); ++col) {
    for (int row = 0; row < patch.rows(); ++row) {
      const ChannelMap::Codes& codes = patch.codes({col, row});
      for (std::size_t component = 0; component < codes.size(); ++component) {
        if (beam.hits({col, row}, component, codes[component]))
          work(LampAt{col, row}, component, codes[component]);
      }
    }
  }
}

std::string count(const LampTest& test, const Patch& patch) {
  return std::to_string(test.at + 1) + " of " + std::to_string(placesOf(test.what, patch));
}

// "universe 1, channels 34 to 36", or one after another if they don't follow each other.
std::string channelsOf(const ChannelMap::Codes& codes) {
  std::array<std::int32_t, 3> sorted = codes;
  std::sort(sorted.begin(), sorted.end());
  if (sorted.back() < 1) return "no channels";
  const auto first = wallChannel(sorted.front());
  const auto last = wallChannel(sorted.back());
  if (first && last && first->universe == last->universe && sorted[2] - sorted[0] == 2 &&
      sorted[1] - sorted[0] == 1) {
    return "universe " + std::to_string(first->universe) + ", channels " +
           std::to_string(first->channel) + " to " + std::to_string(last->channel);
  }
  std::string all;
  for (std::size_t component = 0; component < codes.size(); ++component) {
    const auto channel = wallChannel(codes[component]);
    all += std::string(all.empty() ? "" : ", ") + kComponentNames[component] + " ";
    if (channel) {
      all += std::to_string(channel->universe) + "." + std::to_string(channel->channel);
    } else {
      all += codes[component] < 1 ? "nowhere" : "beyond universe 16";
    }
  }
  return all;
}

std::string cellOf(const LampAt& lamp) {
  return "column " + std::to_string(lamp.col + 1) + ", row " + std::to_string(lamp.row + 1);
}

std::string describeChannel(const LampTest& test, const Patch& patch) {
  const WallChannel channel = *wallChannel(test.at + 1);
  const std::string name = "Channel " + std::to_string(channel.channel) + " of universe " +
                           std::to_string(channel.universe) + ": ";
  const auto feed = patch.feed(channel);
  if (!feed) return name + "no lamp has it";
  return name + kComponentNames[static_cast<std::size_t>(feed->component)] + " of " +
         describe(feed->lamp, patch);
}

}  // namespace

int placesOf(What what, const Patch& patch) {
  switch (what) {
    case What::Channel:
      return std::max(1, patch.lastUniverse()) * kUniverseChannels;
    case What::Lamp:
      return std::max(1, static_cast<int>(patch.wire().size()));
    case What::Row:
      return std::max(1, patch.rows());
    case What::Column:
      return std::max(1, patch.cols());
    case What::Universe:
      return std::max(1, patch.lastUniverse());
    default:
      return 1;
  }
}

LampTest stepped(LampTest test, const Patch& patch, bool back) {
  const bool turns = test.light == Light::InTurn && test.what != What::Channel;
  const int colors = turns ? kColorsInTurn : 1;
  const int all = placesOf(test.what, patch) * colors;
  const int now = test.at * colors + (turns ? test.turn : 0);
  const int next = (now + (back ? all - 1 : 1)) % all;
  test.at = next / colors;
  if (turns) test.turn = next % colors;
  return test;
}

std::vector<LampAt> litLamps(const LampTest& test, const Patch& patch) {
  std::vector<LampAt> lamps;
  forEachLit(test, patch, [&](const LampAt& lamp, std::size_t, std::int32_t) {
    if (lamps.empty() || lamps.back() != lamp) lamps.push_back(lamp);
  });
  return lamps;
}

Rgb litColor(const LampTest& test, const Patch& patch) {
  Rgb color{};
  if (test.what == What::Channel) {
    const auto feed = patch.feed(*wallChannel(test.at + 1));
    if (!feed) return {kFullLight, kFullLight, kFullLight};
    color[static_cast<std::size_t>(feed->component)] = kFullLight;
    return color;
  }
  for (std::size_t component = 0; component < color.size(); ++component)
    color[component] = shines(lightOf(test), component) ? kFullLight : 0;
  return color;
}

WallPicture testPicture(const LampTest& test, const Patch& patch) {
  Frame lit;
  lit.redim(std::max(0, patch.cols()), std::max(0, patch.rows()));
  WallPicture picture;
  forEachLit(test, patch, [&](const LampAt& lamp, std::size_t component, std::int32_t code) {
    lit.at(lamp.col, lamp.row)[component] = kFullLight;
    // Straight to the channel: a dark lamp that shares it must not hide it.
    if (wallChannel(code)) picture.bytes()[code - 1] = kFullLight;
  });
  if (test.what == What::Channel) picture.bytes()[test.at] = kFullLight;
  for (const LampAt& lamp : patch.wire()) picture.lamps.push_back(lit.at(lamp.col, lamp.row));
  return picture;
}

std::string describe(const LampAt& lamp, const Patch& patch) {
  const auto& wire = patch.wire();
  const auto found = std::find(wire.begin(), wire.end(), lamp);
  const std::string name =
      found == wire.end() ? "lamp" : "lamp " + std::to_string(found - wire.begin() + 1);
  return name + ": " + cellOf(lamp) + ", " + channelsOf(patch.codes(lamp));
}

std::string describe(const LampTest& test, const Patch& patch) {
  const std::string in = std::string(", ") + nameOf(lightOf(test));
  switch (test.what) {
    case What::Channel:
      return describeChannel(test, patch);
    case What::Lamp: {
      if (patch.wire().empty()) return "No lamp has a channel";
      const LampAt& lamp = patch.wire().at(static_cast<std::size_t>(test.at));
      return "Lamp " + count(test, patch) + in + ": " + cellOf(lamp) + ", " +
             channelsOf(patch.codes(lamp));
    }
    case What::Row:
      return "Row " + count(test, patch) + in;
    case What::Column:
      return "Column " + count(test, patch) + in;
    case What::Universe:
      return "Universe " + count(test, patch) + in;
    default:
      return "All lamps" + in;
  }
}

}  // namespace korvane
