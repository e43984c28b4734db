#pragma once

#include <algorithm>

#include "generators/paint/MxPaintForm.h"
#include "testing/Drawing.h"
#include "testing/TestPlugin.h"

namespace korvane {

/// The paint box over a black Paint effect, on either deck. In a square grid a cell is 10 pixels
/// and the first one begins at 5.
class PaintTest : public TestDecks {
 protected:
  using Mouse = PictureBox::Mouse;

  void openWithGrid(int cols, int rows) {
    ASSERT_TRUE(open());
    resize(cols, rows);
    deck.frame.fill({0, 0, 0});
    ASSERT_TRUE(event([this] { deck.type.setIndex(kPaint); }));  // by no person
    ASSERT_TRUE(click(panel.edit));
    const int side = 10 + 10 * std::max(cols, rows);
    event([&] { form.Bild.resize(side, side); });
    form.PColor.setBackColor(kRed);
    takeCalls();
  }

  void mouse(Mouse what, int x, int y) {
    event([&] { form.Bild.mouse(what, x, y); });
  }
  void clickAt(int x, int y) {
    for (const Mouse what : {Mouse::Down, Mouse::Up, Mouse::Click}) mouse(what, x, y);
  }
  void drag(int x1, int y1, int x2, int y2) {
    mouse(Mouse::Down, x1, y1);
    mouse(Mouse::Move, x2, y2);
    mouse(Mouse::Up, x2, y2);
    mouse(Mouse::Click, x2, y2);
  }
  /// The middle of a cell in a square grid.
  static int mid(int cell) { return 5 + cell * 10 + 5; }
  void clickCell(int col, int row) { clickAt(mid(col), mid(row)); }
  void dragCells(int col1, int row1, int col2, int row2) {
    drag(mid(col1), mid(row1), mid(col2), mid(row2));
  }
  void tool(PictureButton& button) { ASSERT_TRUE(click(button)); }
  void color(Color value) { form.PColor.setBackColor(value); }
  void expectPainted(const Drawing& drawing, const char* file = __builtin_FILE(),
                     int line = __builtin_LINE()) {
    expectPicture(deck.effect().paintPixels, drawing, {}, file, line);
    expectPicture(deck.frame, drawing, {}, file, line);
  }

  MxPaintForm& form = plugin.window<MxPaintForm>();
};
}  // namespace korvane
