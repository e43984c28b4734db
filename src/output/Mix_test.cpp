#include "output/Mix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "output/MatrixCode.h"
#include "platform/Random.h"
#include "testing/Drawing.h"
#include "testing/EngineTest.h"

namespace korvane {
namespace {

// The mix of one lamp by each fade, component by component and with no regard to speed.
struct Lamp {
  Rgb color;
  float map;
  bool operator==(const Lamp&) const = default;
};

std::uint8_t floored(double sum) { return static_cast<std::uint8_t>(std::floor(sum)); }

Lamp crossFaded(const Rgb& a, const Rgb& b, double m) {
  if (m == 0) return {a, 0.0F};
  if (m == 1) return {b, 1.0F};
  Lamp lamp{};
  const double i = 1 - m;
  for (std::size_t c = 0; c < 3; ++c) lamp.color[c] = floored(a[c] * i + b[c] * m);
  lamp.map = m > 0.5 ? 1.0F : 0.0F;
  return lamp;
}

Lamp fadedThrough(const Rgb& a, const Rgb& b, double m, const Rgb& middle) {
  Lamp lamp{};
  if (m > 0.5) {
    const double f = (m - 0.5) * 2;
    for (std::size_t c = 0; c < 3; ++c) lamp.color[c] = floored(f * b[c] + (1 - f) * middle[c]);
    lamp.map = 1.0F;
  } else {
    const double f = m * 2;
    for (std::size_t c = 0; c < 3; ++c) lamp.color[c] = floored(a[c] * (1 - f) + f * middle[c]);
    lamp.map = 0.0F;
  }
  return lamp;
}

Lamp added(const Rgb& a, const Rgb& b, double m) {
  Lamp lamp{};
  for (std::size_t c = 0; c < 3; ++c) {
    const double i = 1 - m;
    const double v = std::floor(m > 0.5 ? a[c] * i + a[c] * i + b[c] : b[c] * m + b[c] * m + a[c]);
    lamp.color[c] = static_cast<std::uint8_t>(v < 256 ? v : 255);
  }
  lamp.map = m > 0.5 ? 1.0F : 0.0F;
  return lamp;
}

Lamp reference(std::int16_t type, const Rgb& a, const Rgb& b, double m, const Rgb& middle,
               float map) {
  switch (type) {
    case 0:
      return crossFaded(a, b, m);
    case 1:
      return fadedThrough(a, b, m, {0, 0, 0});
    case 2:
      return fadedThrough(a, b, m, middle);
    case 10:
      return added(a, b, m);
    default:
      return {map == 1.0F ? b : a, map};
  }
}

// All positions of the fader, the neighbours of the bounds, and some between.
std::vector<double> positions() {
  std::vector<double> all = {0,
                             1,
                             5e-324,
                             1e-308,
                             1e-17,
                             1e-16,
                             1e-9,
                             1.0 / 3,
                             2.0 / 3,
                             0.1,
                             std::nextafter(1.0, 0.0),
                             std::nextafter(0.5, 0.0),
                             std::nextafter(0.5, 1.0),
                             std::numeric_limits<double>::min()};
  for (int fader = -100; fader <= 100; ++fader) all.push_back((fader + 100) / 200.0);
  Random random;
  random.seed(2);
  for (int i = 0; i < 100; ++i) all.push_back(static_cast<double>(random.next()));
  return all;
}

class Mixing : public EngineTest {
 protected:
  void randomShow(int cols, int rows) {
    redim(cols, rows);
    const auto byte = [this] { return static_cast<std::uint8_t>(random.next() * 256); };
    for (int col = 0; col < cols; ++col) {
      for (int row = 0; row < rows; ++row) {
        for (Frame* frame : {&v.frameA, &v.frameB, &v.frameM})
          frame->at(col, row) = {byte(), byte(), byte()};
        v.fadeMap.at(col, row) = std::array{0.0F, 1.0F, 0.99F, -1.0F, 2.0F}[byte() % 5U];
      }
    }
    engine.master.MFadeColor.setBackColor(rgb(byte(), byte(), byte()));
  }
  Lamp shown(int col, int row) { return {v.frameM.at(col, row), v.fadeMap.at(col, row)}; }
  Lamp wanted(double m, int col, int row) {
    return reference(v.fadeTypeNow, v.frameA.at(col, row), v.frameB.at(col, row), m,
                     colorParts(engine.master.MFadeColor.backColor()), v.fadeMap.at(col, row));
  }
  std::vector<Lamp> all(const std::function<Lamp(int, int)>& lamp) const {
    std::vector<Lamp> lamps;
    for (int col = 0; col < v.matrixCols; ++col) {
      for (int row = 0; row < v.matrixRows; ++row) lamps.push_back(lamp(col, row));
    }
    return lamps;
  }
  // One lamp of each deck, mixed.
  Rgb mixed(std::int16_t type, const Rgb& a, const Rgb& b, double m) {
    redim(1, 1);
    v.fadeTypeNow = type;
    v.frameA.at(0, 0) = a;
    v.frameB.at(0, 0) = b;
    mixFrame(engine, m);
    return v.frameM.at(0, 0);
  }

  Random random;
};

// All fade types, and numbers that are none.
class MixingTypes : public Mixing, public testing::WithParamInterface<std::int16_t> {
 protected:
  void SetUp() override { v.fadeTypeNow = GetParam(); }
};

TEST_P(MixingTypes, FramesAreMixedByteForByte) {
  for (const auto& [cols, rows] : {std::pair(1, 1), {7, 5}, {1, 16}, {50, 50}}) {
    randomShow(cols, rows);
    for (const double m : positions()) {
      const auto expected = all([&](int col, int row) { return wanted(m, col, row); });
      mixFrame(engine, m);
      ASSERT_TRUE(all([&](int col, int row) { return shown(col, row); }) == expected)
          << cols << " x " << rows << " at " << m;
    }
  }
}

TEST_P(MixingTypes, CellsAreMixedLikeFramesAndLeaveTheOthersAlone) {
  randomShow(4, 3);
  for (const double m : positions()) {
    for (std::int16_t col = 0; col < 4; ++col) {
      for (std::int16_t row = 0; row < 3; ++row) {
        std::vector<Lamp> expected = all([&](int c, int r) { return shown(c, r); });
        expected[static_cast<std::size_t>(col * 3 + row)] = wanted(m, col, row);
        mixCell(engine, m, col, row);
        ASSERT_TRUE(all([&](int c, int r) { return shown(c, r); }) == expected)
            << col << " " << row << " at " << m;
        v.frameM.at(col, row)[1] ^= 0x55;  // so that the next pass has something to do
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Fades, MixingTypes,
                         testing::Values(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, -1, 11, 32767),
                         [](const testing::TestParamInfo<std::int16_t>& type) {
                           return type.param >= 0 && type.param < kFadeTypes
                                      ? "Type" + std::to_string(type.param)
                                      : "NoType" + std::to_string(std::abs(type.param));
                         });

// Every pair of bytes at every position of the fader.
class AllPairs : public testing::Test {
 protected:
  AllPairs() {
    for (int a = 0; a < 256; ++a) {
      for (int b = 0; b < 256; ++b) {
        left.push_back({static_cast<std::uint8_t>(a), static_cast<std::uint8_t>(a), 7});
        right.push_back({static_cast<std::uint8_t>(b), static_cast<std::uint8_t>(b), 250});
      }
    }
    out.resize(left.size());
  }
  std::size_t bytes() const { return left.size() * 3; }
  void expectEach(double m, const std::function<Lamp(const Rgb&, const Rgb&)>& lamp) {
    for (std::size_t i = 0; i < out.size(); ++i) {
      ASSERT_EQ(out[i], lamp(left[i], right[i]).color) << "at " << m << " of pair " << i;
    }
  }

  std::vector<Rgb> left, right, out;
};

TEST_F(AllPairs, CrossFade) {
  for (const double m : positions()) {
    if (m == 0 || m == 1) continue;  // frames are copied there
    crossFade(left[0].data(), right[0].data(), out[0].data(), bytes(), m);
    expectEach(m, [&](const Rgb& a, const Rgb& b) { return crossFaded(a, b, m); });
  }
}

TEST_F(AllPairs, FadeThrough) {
  const Rgb middle = {0, 255, 100};
  for (const double m : positions()) {
    fadeThrough(left[0].data(), right[0].data(), out[0].data(), bytes(), m, middle);
    expectEach(m, [&](const Rgb& a, const Rgb& b) { return fadedThrough(a, b, m, middle); });
  }
}

TEST_F(AllPairs, Add) {
  for (const double m : positions()) {
    addFade(left[0].data(), right[0].data(), out[0].data(), bytes(), m);
    expectEach(m, [&](const Rgb& a, const Rgb& b) { return added(a, b, m); });
  }
}

TEST_F(Mixing, CrossFadeIsFlooredNotRounded) {
  EXPECT_EQ(mixed(kCrossFade, {255, 1, 0}, {0, 2, 255}, 0.5), (Rgb{127, 1, 127}));
}

TEST_F(Mixing, CrossFadeOfTwoEqualBytesMayLoseOne) {
  // 253 x 0.7 and 253 x 0.3 fall short of 253 together. That is the formula's.
  EXPECT_EQ(mixed(kCrossFade, {253, 0, 0}, {253, 0, 0}, 0.3)[0], floored(253 * 0.7 + 253 * 0.3));
}

TEST_F(Mixing, CrossFadeAtItsEndsIsOneDeck) {
  EXPECT_EQ(mixed(kCrossFade, {1, 2, 3}, {4, 5, 6}, 0), (Rgb{1, 2, 3}));
  EXPECT_EQ(v.fadeMap.at(0, 0), 0.0F);
  EXPECT_EQ(mixed(kCrossFade, {1, 2, 3}, {4, 5, 6}, 1), (Rgb{4, 5, 6}));
  EXPECT_EQ(v.fadeMap.at(0, 0), 1.0F);
}

TEST_F(Mixing, TheMapBelongsToDeckAUpToTheMiddle) {
  for (const std::int16_t type : {kCrossFade, kBlackFade, kColorFade, kAdd}) {
    mixed(type, {1, 2, 3}, {4, 5, 6}, 0.5);
    EXPECT_EQ(v.fadeMap.at(0, 0), 0.0F) << type;
    mixed(type, {1, 2, 3}, {4, 5, 6}, 0.51);
    EXPECT_EQ(v.fadeMap.at(0, 0), 1.0F) << type;
  }
}

TEST_F(Mixing, BlackFadeIsBlackInTheMiddle) {
  EXPECT_EQ(mixed(kBlackFade, {255, 255, 255}, {255, 255, 255}, 0.5), (Rgb{0, 0, 0}));
  EXPECT_EQ(mixed(kBlackFade, {255, 255, 255}, {9, 9, 9}, 0), (Rgb{255, 255, 255}));
  EXPECT_EQ(mixed(kBlackFade, {9, 9, 9}, {255, 254, 253}, 1), (Rgb{255, 254, 253}));
  EXPECT_EQ(mixed(kBlackFade, {200, 100, 51}, {9, 9, 9}, 0.25), (Rgb{100, 50, 25}));
}

TEST_F(Mixing, ColorFadeHasTheColourOfTheBoxInTheMiddle) {
  engine.master.MFadeColor.setBackColor(rgb(10, 20, 30));
  EXPECT_EQ(mixed(kColorFade, {255, 255, 255}, {255, 255, 255}, 0.5), (Rgb{10, 20, 30}));
  engine.master.MFadeColor.setBackColor(rgb(40, 50, 60));  // taken anew at each mix
  EXPECT_EQ(mixed(kColorFade, {255, 255, 255}, {255, 255, 255}, 0.5), (Rgb{40, 50, 60}));
}

TEST_F(Mixing, ColorFadeResolvesASystemColour) {
  const auto buttonFace = static_cast<Color>(0x8000000F);
  engine.master.MFadeColor.setBackColor(buttonFace);
  EXPECT_EQ(mixed(kColorFade, {0, 0, 0}, {0, 0, 0}, 0.5), colorParts(systemColor(15)));
}

TEST_F(Mixing, AddIsFullInTheMiddleAndClipped) {
  EXPECT_EQ(mixed(kAdd, {100, 200, 0}, {100, 100, 7}, 0.5), (Rgb{200, 255, 7}));
  EXPECT_EQ(mixed(kAdd, {100, 200, 0}, {50, 60, 70}, 0), (Rgb{100, 200, 0}));
  EXPECT_EQ(mixed(kAdd, {100, 200, 0}, {50, 60, 70}, 1), (Rgb{50, 60, 70}));
  EXPECT_EQ(mixed(kAdd, {155, 156, 0}, {100, 100, 0}, 0.5), (Rgb{255, 255, 0}));
}

TEST_F(Mixing, CellWiseFadesTakeEitherDeckWholeWhateverThePositionIs) {
  redim(2, 2);
  v.frameA = frameOf({"RR", "RR"});
  v.frameB = frameOf({"BB", "BB"});
  v.fadeTypeNow = kRandom;
  for (const double m : {0.0, 0.5, 0.9, 1.0}) {
    v.fadeMap.fill(0.0F);
    mixFrame(engine, m);
    expectPicture(v.frameM, {"RR", "RR"});
    v.fadeMap.at(1, 0) = 1.0F;
    mixFrame(engine, m);
    expectPicture(v.frameM, {"RB", "RR"});
  }
}

TEST_F(Mixing, OnlyExactlyOneInTheMapSelectsDeckB) {
  redim(3, 1);
  v.frameA = frameOf({"RRR"});
  v.frameB = frameOf({"BBB"});
  v.fadeTypeNow = kScrollLeft;
  v.fadeMap.at(0, 0) = 0.99F;
  v.fadeMap.at(1, 0) = 1.0F;
  v.fadeMap.at(2, 0) = 2.0F;
  mixFrame(engine, 0.5);
  expectPicture(v.frameM, {"RBR"});
  EXPECT_EQ(v.fadeMap.at(0, 0), 0.99F);  // the mix leaves the map of a cell-wise fade
}

}  // namespace
}  // namespace korvane
