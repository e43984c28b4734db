// Every direction of travel against a slow model that knows no blits: it says for each cell which
// pixel of the image it shows.

#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "generators/image/ImageCode.h"
#include "testing/EngineTest.h"

namespace korvane {
namespace {

constexpr int kOutside = -1;

struct Journey {
  int imageWidth, imageHeight, cols, rows, direction, amount;
};

std::ostream& operator<<(std::ostream& out, const Journey& c) {
  return out << "image " << c.imageWidth << " x " << c.imageHeight << ", matrix " << c.cols << " x "
             << c.rows << ", direction " << c.direction << ", amount " << c.amount;
}

// The window's corner and its travel, told per direction.
class SlowTravel {
 public:
  explicit SlowTravel(const Journey& c) : c_(c) {
    const int product = (W() - w()) * c.amount;
    offset_ = product / 100 - (product % 100 < 0 ? 1 : 0);
    limit_ = H() - h() > W() - w() ? W() : H();
    start();
  }

  void step() {
    const int d = c_.direction;
    if (d == 1) {
      y_ = y_ + 1 >= H() ? 0 : y_ + 1;
    } else if (d == 2) {
      ++x_, ++y_;
      if (x_ >= limit_) start();
    } else if (d == 3) {
      x_ = x_ + 1 >= W() ? 0 : x_ + 1;
    } else if (d == 4) {
      ++x_, --y_;
      if (x_ >= limit_) start();
    } else if (d == 5) {
      y_ = y_ - 1 <= 0 ? H() - 1 : y_ - 1;
    } else if (d == 6) {
      --x_, --y_;
      if (x_ + w() < 0 || y_ + h() < 0) start();
    } else if (d == 7) {
      x_ = x_ - 1 < 0 ? W() - 1 : x_ - 1;
    } else if (d == 8) {
      --x_, ++y_;
      if (y_ >= limit_) start();
    }
    moved_ = true;
  }

  int x() const { return x_; }
  int y() const { return y_; }

  // The pixel of the image in a cell, by its place in the image, or kOutside for black.
  std::pair<int, int> source(int col, int row) const {
    if (!moved_) return inside(x_ + col, y_ + row);
    const int firstX = beforeSeam(x_, w(), W());
    const int firstY = beforeSeam(y_, h(), H());
    if (col < firstX && row < firstY) return inside(x_ + col, y_ + row);
    const bool upright = c_.direction == 1 || c_.direction == 5;
    const bool level = c_.direction == 3 || c_.direction == 7;
    if (upright && col < firstX && row >= firstY) return inside(x_ + col, row - firstY);
    if (level && row < firstY && col >= firstX) return inside(col - firstX, y_ + row);
    return {kOutside, kOutside};
  }

 private:
  int W() const { return c_.imageWidth; }
  int H() const { return c_.imageHeight; }
  int w() const { return c_.cols; }
  int h() const { return c_.rows; }

  void start() {
    const int p = offset_;
    const int starts[9][2] = {{p, 0},
                              {p, 0},
                              {1 - w() + p, 1 - h()},
                              {0, p},
                              {1 - w() + p, H() - 1},
                              {p, H() - h() - 1},
                              {W() - 1 - p, H() - 1},
                              {W() - w() - 1, p},
                              {W() - 1 - p, 1 - h()}};
    x_ = starts[c_.direction][0];
    y_ = starts[c_.direction][1];
  }

  static int beforeSeam(int at, int window, int image) {
    return at + window > image ? image - at - 1 : window;
  }

  std::pair<int, int> inside(int x, int y) const {
    if (x < 0 || y < 0 || x >= W() || y >= H()) return {kOutside, kOutside};
    return {x, y};
  }

  Journey c_;
  int x_ = 0, y_ = 0, offset_ = 0, limit_ = 0;
  bool moved_ = false;  // the resting window knows no seam
};

class ImageTravel : public EngineTest, public testing::WithParamInterface<int> {
 protected:
  void prepare(Deck& deck, const Journey& c) {
    redim(c.cols, c.rows);
    deck.efx.resize(1);
    Effect& effect = deck.effect();
    effect.type = kImage;
    effect.imageCount = 1;
    effect.direction = static_cast<std::int16_t>(c.direction);
    effect.amount = static_cast<std::int16_t>(c.amount);
    effect.speed = 50;
    deck.mini.setRaster(Raster(c.cols, c.rows));
    deck.image.setRaster(numbered(c.imageWidth, c.imageHeight));
    placeImage(engine, deck);
    prepareImage(engine, deck);
  }

  // Every pixel tells its place.
  static Raster numbered(int width, int height) {
    Raster raster(width, height);
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) raster.setPixel(x, y, colorAt(x, y));
    }
    return raster;
  }
  static Color colorAt(int x, int y) { return x == kOutside ? 0 : rgb(x + 1, y + 1, 200); }

  // The first cell that differs, as text; empty if the frame is as the model says.
  static std::string differs(const Deck& deck, const SlowTravel& model, const Journey& c) {
    std::ostringstream text;
    if (deck.imagePosX != model.x() || deck.imagePosY != model.y()) {
      text << "window at " << deck.imagePosX << ", " << deck.imagePosY << ", should be "
           << model.x() << ", " << model.y();
      return text.str();
    }
    for (int col = 0; col < c.cols; ++col) {
      for (int row = 0; row < c.rows; ++row) {
        const auto [x, y] = model.source(col, row);
        if (rgb(deck.frame.at(col, row)) == colorAt(x, y)) continue;
        const Rgb& cell = deck.frame.at(col, row);
        text << "cell " << col << ", " << row << " shows pixel " << cell[0] - 1 << ", "
             << cell[1] - 1 << ", should show " << x << ", " << y;
        return text.str();
      }
    }
    return {};
  }

  void travel(Deck& deck, const Journey& c) {
    prepare(deck, c);
    SlowTravel model(c);
    const int fullRound = 2 * (c.imageWidth + c.imageHeight + c.cols + c.rows) + 5;
    ASSERT_EQ(differs(deck, model, c), "") << c << ", at the start";
    for (int tick = 1; tick <= fullRound; ++tick) {
      moveImage(engine, deck);
      model.step();
      ASSERT_EQ(differs(deck, model, c), "") << c << ", tick " << tick;
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Direction, ImageTravel, testing::Range(0, 9));

TEST_P(ImageTravel, FollowsTheModelOverAFullRoundOnBothDecks) {
  std::mt19937 random(static_cast<unsigned>(GetParam()) + 1);
  const auto upTo = [&](int most) {
    return static_cast<int>(random() % static_cast<unsigned>(most));
  };
  for (int i = 0; i < 60; ++i) {
    const Journey c{1 + upTo(30), 1 + upTo(30), 1 + upTo(16), 1 + upTo(16), GetParam(), upTo(101)};
    for (Deck* deck : {&v.A, &v.B}) ASSERT_NO_FATAL_FAILURE(travel(*deck, c));
  }
}

TEST_P(ImageTravel, FollowsTheModelWhereSizesMeet) {
  for (const int imageWidth : {4, 5, 6}) {
    for (const int imageHeight : {3, 4, 12}) {
      for (const int amount : {0, 1, 50, 100}) {
        const Journey c{imageWidth, imageHeight, 5, 4, GetParam(), amount};
        for (Deck* deck : {&v.A, &v.B}) ASSERT_NO_FATAL_FAILURE(travel(*deck, c));
      }
    }
  }
}

TEST_P(ImageTravel, ReachesAndLeavesALargeMatrix) {
  const Journey c{70, 90, 50, 50, GetParam(), 37};
  for (Deck* deck : {&v.A, &v.B}) ASSERT_NO_FATAL_FAILURE(travel(*deck, c));
}

}  // namespace
}  // namespace korvane
