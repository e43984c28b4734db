#include "desk/windows/ColorWords.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace korvane {
namespace {

TEST(ColorWords, SixOrThreeDigitsAreAColourInAnyCaseWithTheirMarkOrWithout) {
  for (const char* text : {"FF8800", "#ff8800", " #Ff8800 ", "f80", "#F80"})
    EXPECT_EQ(parseHex(text), rgb(255, 136, 0)) << text;
}

TEST(ColorWords, AnyOtherTextIsNoColour) {
  for (const char* text :
       {"", "#", "FF88", "FF88000", "GG8800", "-FF880", "0xFF88", "FF 880", "red"})
    EXPECT_EQ(parseHex(text), std::nullopt) << text;
}

TEST(ColorWords, EachColourHasItsDigits) {
  EXPECT_EQ(hexText(rgb(255, 128, 1)), "FF8001");
  EXPECT_EQ(hexText(0), "000000");
}

TEST(ColorWords, HueSaturationAndValueNameTheKnownColours) {
  struct Case {
    Color color;
    Hsv hsv;
  };
  for (const auto& [color, hsv] : {Case{rgb(255, 0, 0), {0, 100, 100}},
                                   {rgb(255, 255, 0), {60, 100, 100}},
                                   {rgb(0, 255, 0), {120, 100, 100}},
                                   {rgb(0, 255, 255), {180, 100, 100}},
                                   {rgb(0, 0, 255), {240, 100, 100}},
                                   {rgb(255, 0, 255), {300, 100, 100}},
                                   {rgb(255, 128, 0), {30, 100, 100}},
                                   {rgb(255, 128, 128), {0, 50, 100}}}) {
    EXPECT_EQ(colorOf(hsv), color) << hexText(color);
    const Hsv found = hsvOf(color, {});
    EXPECT_EQ(found.hue, hsv.hue) << hexText(color);
    EXPECT_EQ(found.saturation, hsv.saturation) << hexText(color);
    EXPECT_EQ(found.value, hsv.value) << hexText(color);
  }
}

TEST(ColorWords, GreyKeepsTheHueAndBlackTheSaturationAsWell) {
  const Hsv grey = hsvOf(rgb(51, 51, 51), {200, 70, 90});
  EXPECT_EQ(grey.hue, 200);
  EXPECT_EQ(grey.saturation, 0);
  EXPECT_EQ(grey.value, 20);
  const Hsv black = hsvOf(0, {200, 70, 90});
  EXPECT_EQ(black.hue, 200);
  EXPECT_EQ(black.saturation, 70);
  EXPECT_EQ(black.value, 0);
}

// A percent is two and a half steps of a component, and a degree up to four.
TEST(ColorWords, EveryColourComesBackNearly) {
  for (int red = 0; red < 256; red += 15) {
    for (int green = 0; green < 256; green += 15) {
      for (int blue = 0; blue < 256; blue += 15) {
        const Rgb back = colorParts(colorOf(hsvOf(rgb(red, green, blue), {})));
        EXPECT_LE(std::abs(back[0] - red), 4);
        EXPECT_LE(std::abs(back[1] - green), 4);
        EXPECT_LE(std::abs(back[2] - blue), 4);
      }
    }
  }
}

}  // namespace
}  // namespace korvane
