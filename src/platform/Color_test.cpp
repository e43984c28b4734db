#include "platform/Color.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

constexpr Color kButtonText = static_cast<Color>(0x80000012);
constexpr Color kButtonFace = static_cast<Color>(0x8000000F);

TEST(Color, RedIsTheLowestByte) {
  EXPECT_EQ(rgb(1, 2, 3), 0x030201);
  EXPECT_EQ(rgb(Rgb{255, 128, 0}), 0x0080FF);
}

TEST(Color, MasksSelectOneComponent) {
  EXPECT_EQ(colorPart(0x030201, kRedMask), 1);
  EXPECT_EQ(colorPart(0x030201, kGreenMask), 2);
  EXPECT_EQ(colorPart(0x030201, kBlueMask), 3);
  EXPECT_EQ(colorParts(0xFFFEFD), (Rgb{253, 254, 255}));
}

TEST(Color, AnotherMaskYieldsZero) {
  for (const std::int32_t mask : {0, 1, 254, 256, 65535, 0xFFFFFF, -1})
    EXPECT_EQ(colorPart(0xFFFFFF, mask), 0) << mask;
}

TEST(Color, SystemColoursYieldThePlatformsComponentsNotTheirOwnBytes) {
  EXPECT_EQ(colorParts(kButtonText), colorParts(systemColor(0x12)));
  EXPECT_EQ(colorPart(kButtonText, kRedMask), colorPart(systemColor(0x12), kRedMask));
  EXPECT_NE(colorPart(kButtonText, kRedMask), 0x12);
  EXPECT_NE(colorPart(kButtonFace, kRedMask), 0x0F);
}

TEST(Color, AnyTopByteRefersToASystemColour) {
  EXPECT_EQ(colorParts(0x0100000F), colorParts(kButtonFace));
  EXPECT_EQ(colorParts(0x7F00000F), colorParts(kButtonFace));
}

TEST(Color, AnUnknownSystemColourIsBlack) {
#ifndef _WIN32  // which knows a few more
  EXPECT_EQ(systemColor(25), 0);
#endif
  EXPECT_EQ(systemColor(64), 0);
  EXPECT_EQ(systemColor(0xFFFFFF), 0);
  EXPECT_EQ(colorParts(-1), (Rgb{0, 0, 0}));  // what a pixel outside a picture reads as
}

TEST(Color, EverySystemColourIsAPlainColour) {
  for (std::int32_t number = 0; number < 64; ++number) EXPECT_EQ(systemColor(number) >> 24, 0);
}

}  // namespace
}  // namespace korvane
