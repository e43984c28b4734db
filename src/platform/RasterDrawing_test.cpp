#include <gtest/gtest.h>

#include <random>

#include "platform/PictureBox.h"
#include "platform/Raster.h"
#include "testing/Drawing.h"

namespace korvane {
namespace {

Raster ellipse(int width, int height, bool filled) {
  Raster raster(width, height);
  raster.drawEllipse(0, 0, width - 1, height - 1, kWhite, filled);
  return raster;
}

TEST(RasterEllipse, FillsItsBox) {
  expectPicture(ellipse(1, 1, true), {"W"});
  expectPicture(ellipse(2, 2, true), {"WW", "WW"});
  expectPicture(ellipse(4, 4, true), {".WW.",  //
                                      "WWWW",  //
                                      "WWWW",  //
                                      ".WW."});
  expectPicture(ellipse(7, 5, true), {".WWWWW.",  //
                                      "WWWWWWW",  //
                                      "WWWWWWW",  //
                                      "WWWWWWW",  //
                                      ".WWWWW."});
}

TEST(RasterEllipse, TheOutlineIsOnePixelWide) {
  expectPicture(ellipse(8, 8, false), {"..WWWW..",  //
                                       ".W....W.",  //
                                       "W......W",  //
                                       "W......W",  //
                                       "W......W",  //
                                       "W......W",  //
                                       ".W....W.",  //
                                       "..WWWW.."});
  expectPicture(ellipse(1, 4, false), {"W", "W", "W", "W"});
}

TEST(RasterEllipse, HoldsThePixelsWhoseCentresLieInside) {
  for (int width = 1; width <= 24; ++width) {
    for (int height = 1; height <= 24; ++height) {
      const Raster raster = ellipse(width, height, true);
      for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
          const long dx = (2L * x + 1 - width) * height;
          const long dy = (2L * y + 1 - height) * width;
          const long edge = static_cast<long>(width) * height;
          ASSERT_EQ(raster.pixel(x, y) == kWhite, dx * dx + dy * dy <= edge * edge)
              << width << " x " << height << " at " << x << ", " << y;
        }
      }
    }
  }
}

TEST(RasterEllipse, TakesCornersInAnyOrderAndIsClipped) {
  Raster raster(3, 3);
  raster.drawEllipse(2, 2, -1, -1, kWhite, true);
  expectPicture(raster, {"WWW",  //
                         "WWW",  //
                         "WW."});
  raster.drawEllipse(-30000, -30000, 32000, 32000, rgb(255, 0, 0), true);
  expectPicture(raster, {"RRR", "RRR", "RRR"});
}

TEST(RasterStretch, KeepsOrDropsPixelsAndNeverBlends) {
  Raster source(4, 1);
  for (int x = 0; x < 4; ++x) source.setPixel(x, 0, x % 2 == 0 ? rgb(255, 0, 0) : rgb(0, 0, 255));
  Raster narrow(2, 2);
  narrow.stretch(source);
  expectPicture(narrow, {"RR", "RR"});
  Raster wide(6, 1);
  wide.stretch(source);
  expectPicture(wide, {"RRBRRB"});
}

TEST(RasterStretch, AnEmptySourceChangesNothing) {
  Raster raster(2, 1, kWhite);
  raster.stretch(Raster());
  expectPicture(raster, {"WW"});
}

TEST(RasterCopy, CopiesPixelByPixelWhateverOverlaps) {
  std::mt19937 random(7);
  const auto between = [&](int low, int high) {
    return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
  };
  for (int i = 0; i < 4000; ++i) {
    Raster raster(between(1, 9), between(1, 9));
    for (int y = 0; y < raster.height(); ++y) {
      for (int x = 0; x < raster.width(); ++x) raster.setPixel(x, y, between(1, 0xFFFFFF));
    }
    const Raster before = raster;
    const bool onItself = i % 2 == 0;
    Raster target = onItself ? raster : Raster(between(1, 9), between(1, 9), 5);
    Raster expected = target;
    const int x = between(-12, 12), y = between(-12, 12), width = between(-3, 14),
              height = between(-3, 14), fromX = between(-12, 12), fromY = between(-12, 12);
    for (int dy = 0; dy < height; ++dy) {
      for (int dx = 0; dx < width; ++dx) {
        const Color pixel = before.pixel(fromX + dx, fromY + dy);
        if (pixel != -1) expected.setPixel(x + dx, y + dy, pixel);
      }
    }
    target.copy(x, y, width, height, onItself ? target : raster, fromX, fromY);
    ASSERT_EQ(target, expected) << "copy number " << i;
  }
}

TEST(PictureBoxOverlay, LiesOverThePixelsAndTellsTheViewWhatChanged) {
  PictureBox box("box", {20, 20});
  const Raster before = box.raster();
  std::vector<std::vector<int>> changed;
  box.onPixels = [&](int x1, int y1, int x2, int y2) { changed.push_back({x1, y1, x2, y2}); };
  box.setOverlay({{9, 2, 3, 4, kWhite}});
  EXPECT_EQ(changed, (std::vector<std::vector<int>>{{3, 2, 9, 4}}));
  EXPECT_EQ(box.overlay().size(), 1U);
  box.setOverlay({{9, 2, 3, 4, kWhite}});
  EXPECT_EQ(changed.size(), 1U) << "the same lines again change nothing";
  box.setOverlay({});
  EXPECT_EQ(changed.size(), 2U);
  EXPECT_EQ(box.raster(), before);
}

}  // namespace
}  // namespace korvane
