// Every tool of the paint box against a model that knows no sampling loop: it asks of each cell
// whether a stroke sets it, in whole numbers alone.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <sstream>

#include "generators/paint/MxPaintForm.h"
#include "testing/TestPlugin.h"

namespace korvane {
namespace {

using Mouse = PictureBox::Mouse;

// a / b to the nearest whole number, ties to even; b is above 0.
long nearest(long a, long b) {
  const long floor = a >= 0 ? a / b : -((-a + b - 1) / b);
  const long twice = 2 * (a - floor * b);
  if (twice != b) return twice > b ? floor + 1 : floor;
  return floor % 2 == 0 ? floor : floor + 1;
}

struct Stroke {
  int tool, x1, y1, x2, y2;
};

class SlowStrokes {
 public:
  SlowStrokes(int cols, int rows, int width, int height) : cols_(cols), rows_(rows) {
    if (cols > rows) {
      size_ = nearest(width - 10, cols);
      left_ = 5;
      top_ = nearest(height - rows * size_, 2);
    } else {
      size_ = nearest(height - 10, rows);
      top_ = 5;
      left_ = nearest(width - cols * size_, 2);
    }
  }

  bool sets(const Stroke& s, int col, int row) const {
    switch (s.tool) {
      case kPoint:
        return holds(col, left_, s.x2) && holds(row, top_, s.y2);
      case kLine:
        return onLine(s, col, row);
      default:
        return inShape(s, col, row);
    }
  }
  // The cell at a pixel, whether or not it exists.
  long colOf(long x) const { return cellOf(x - left_); }
  long rowOf(long y) const { return cellOf(y - top_); }
  bool isCell(long col, long row) const {
    return col >= 0 && row >= 0 && col < cols_ && row < rows_;
  }

 private:
  bool holds(long cell, long from, long pixel) const {
    return pixel >= from + cell * size_ && pixel < from + (cell + 1) * size_;
  }

  long cellOf(long distance) const {
    long cell = 0;
    while (distance < cell * size_) --cell;
    while (distance >= (cell + 1) * size_) ++cell;
    return cell;
  }

  bool onLine(const Stroke& s, int col, int row) const {
    const bool flat = std::abs(s.x2 - s.x1) > std::abs(s.y2 - s.y1);
    return flat ? crosses(s.x1, s.y1, s.x2, s.y2, col, left_, row, top_)
                : crosses(s.y1, s.x1, s.y2, s.x2, row, top_, col, left_);
  }

  // Whether the stroke, where it crosses the centre line of `cell` on its long axis, is in `other`
  // on the other axis.
  bool crosses(long a1, long b1, long a2, long b2, long cell, long from, long other,
               long otherFrom) const {
    const long a = nearest((2 * cell + 1) * size_ + 2 * from, 2);
    if (a < std::min(a1, a2) || a > std::max(a1, a2) || a1 == a2) return false;
    const long lowB = a1 < a2 ? b1 : b2;
    const long highB = a1 < a2 ? b2 : b1;
    const long lowA = std::min(a1, a2);
    const long length = std::abs(a2 - a1);
    return holds(other, otherFrom, nearest(lowB * length + (highB - lowB) * (a - lowA), length));
  }

  bool inShape(const Stroke& s, int col, int row) const {
    const long left = std::min(colOf(s.x1), colOf(s.x2));
    const long right = std::max(colOf(s.x1), colOf(s.x2));
    const long top = std::min(rowOf(s.y1), rowOf(s.y2));
    const long bottom = std::max(rowOf(s.y1), rowOf(s.y2));
    if (col < left || col > right || row < top || row > bottom) return false;
    const bool edge = col == left || col == right || row == top || row == bottom;
    if (s.tool == kFilledRectangle) return true;
    if (s.tool == kRectangle) return edge;
    const long w = right - left + 1;
    const long h = bottom - top + 1;
    const auto inside = [&](long x, long y) {
      const long dx = (2 * (x - left) + 1 - w) * h;
      const long dy = (2 * (y - top) + 1 - h) * w;
      return dx * dx + dy * dy <= w * w * h * h;
    };
    if (!inside(col, row)) return false;
    return s.tool == kFilledCircle || !inside(col - 1, row) || !inside(col + 1, row) ||
           !inside(col, row - 1) || !inside(col, row + 1);
  }

  long cols_, rows_, size_ = 0, left_ = 0, top_ = 0;
};

class PaintStrokes : public TestDecks {
 protected:
  void SetUp() override { ASSERT_TRUE(open()); }

  void openWithGrid(int cols, int rows, int width, int height) {
    resize(cols, rows);
    ASSERT_TRUE(choose(deck.type, kColor));
    ASSERT_TRUE(choose(deck.type, kPaint));
    ASSERT_TRUE(click(panel.edit));
    event([&] { form.Bild.resize(width, height); });
  }

  void draw(const Stroke& s) {
    PictureButton* const buttons[] = {&form.PPoint, &form.PLine,    &form.PRect, &form.PCircle,
                                      &form.PRect2, &form.PCircle2, &form.PFill};
    click(*buttons[s.tool - 1]);
    event([&] { form.Bild.mouse(Mouse::Down, s.x1, s.y1); });
    event([&] { form.Bild.mouse(Mouse::Move, (s.x1 + s.x2) / 2, (s.y1 + s.y2) / 2); });
    event([&] { form.Bild.mouse(Mouse::Up, s.x2, s.y2); });
    event([&] { form.Bild.mouse(Mouse::Click, s.x2, s.y2); });
  }

  // What the picture must be after a stroke.
  Grid<Color> expected(const SlowStrokes& model, const Stroke& s, const Grid<Color>& before) {
    Grid<Color> after = before;
    const long col = model.colOf(s.x2);
    const long row = model.rowOf(s.y2);
    const bool onScreen =
        s.x2 >= 0 && s.y2 >= 0 && s.x2 < form.Bild.width() && s.y2 < form.Bild.height();
    const bool onCell = onScreen && model.isCell(col, row);
    for (int c = 0; c < v.matrixCols; ++c) {
      for (int r = 0; r < v.matrixRows; ++r) {
        const bool replaced =
            s.tool == kReplace && onCell &&
            before.at(c, r) == before.at(static_cast<int>(col), static_cast<int>(row));
        if (replaced || (s.tool != kReplace && model.sets(s, c, r)))
          after.at(c, r) = form.PColor.backColor();
      }
    }
    return after;
  }

  static bool same(const Grid<Color>& a, const Grid<Color>& b) {
    for (int c = 0; c <= a.cols(); ++c) {
      for (int r = 0; r <= a.rows(); ++r) {
        if (a.at(c, r) != b.at(c, r)) return false;
      }
    }
    return true;
  }

  // What is on the screen: every cell a full square of its colour, all else background.
  void expectScreen(const SlowStrokes& model) {
    const Raster& screen = form.Bild.raster();
    for (int y = 0; y < screen.height(); y += 3) {
      for (int x = 0; x < screen.width(); x += 3) {
        const long col = model.colOf(x);
        const long row = model.rowOf(y);
        const Color wanted =
            model.isCell(col, row)
                ? deck.effect().paintPixels.at(static_cast<int>(col), static_cast<int>(row))
                : form.Bild.backColor();
        ASSERT_EQ(screen.pixel(x, y), wanted) << "pixel " << x << ", " << y;
      }
    }
  }

  MxPaintForm& form = plugin.window<MxPaintForm>();
};
KORVANE_BOTH_DECKS(PaintStrokes);

TEST_P(PaintStrokes, AreAsTheModelSaysInTheMatrixInTheMarginAndOutside) {
  std::mt19937 random(GetParam() == Side::A ? 11 : 12);
  const auto between = [&](int low, int high) {
    return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
  };
  const Color colors[] = {rgb(255, 0, 0), rgb(0, 255, 0), rgb(0, 0, 255), 0};
  for (int grid = 0; grid < 24; ++grid) {
    const int cols = between(1, 18), rows = between(1, 18);
    const int width = between(60, 300), height = between(60, 300);
    ASSERT_NO_FATAL_FAILURE(openWithGrid(cols, rows, width, height));
    const SlowStrokes model(cols, rows, width, height);
    for (int i = 0; i < 80; ++i) {
      Stroke s{between(1, 7), between(-40, width + 40), between(-40, height + 40), 0, 0};
      const bool isShort = between(0, 3) == 0;
      s.x2 = isShort ? s.x1 + between(-4, 4) : between(-40, width + 40);
      s.y2 = isShort ? s.y1 + between(-4, 4) : between(-40, height + 40);
      form.PColor.setBackColor(colors[between(0, 3)]);
      const Grid<Color> before = deck.effect().paintPixels;
      const Grid<Color> after = expected(model, s, before);
      draw(s);
      ASSERT_TRUE(same(deck.effect().paintPixels, after))
          << "tool " << s.tool << " from " << s.x1 << ", " << s.y1 << " to " << s.x2 << ", " << s.y2
          << " in " << width << " x " << height << " pixels over " << cols << " x " << rows;
      ASSERT_TRUE(same(v.paintUndo, before));
    }
    ASSERT_NO_FATAL_FAILURE(expectScreen(model));
    for (int c = 0; c < cols; ++c) {
      for (int r = 0; r < rows; ++r)
        ASSERT_EQ(rgb(deck.frame.at(c, r)), deck.effect().paintPixels.at(c, r));
    }
    ASSERT_TRUE(click(form.OK));
  }
  EXPECT_EQ(takeFailure(), 0);
}

}  // namespace
}  // namespace korvane
