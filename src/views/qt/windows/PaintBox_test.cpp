// The paint box under a real mouse: what it paints is compared cell by cell with the deck.

#include <QTest>

#include "generators/paint/MxPaintForm.h"
#include "testing/Drawing.h"
#include "testing/TestPlugin.h"
#include "views/qt/machine/LoopGate.h"
#include "views/qt/windows/DesktopView.h"

namespace korvane::qt {
namespace {

class PaintWindow : public TestDecks {
 protected:
  PaintWindow() {
    gate.run([this] { engine.desktop.show(plugin.matrixForm); });
    resize(6, 5);
    gate.run([this] {
      deck.frame.fill({0, 0, 0});
      deck.type.setIndex(kPaint);
      panel.edit.click();
    });
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view.window(form)));
  }

  QWidget& on(Control& control) { return *view.window(form).widget(control); }
  void press(Control& control) { QTest::mouseClick(&on(control), Qt::LeftButton); }
  // The middle of a cell, in the widget's own coordinates.
  QPoint cell(int col, int row) {
    const PaintLayout at(6, 5, form.Bild.width(), form.Bild.height());
    const double scale = on(form.Bild).devicePixelRatioF();
    const QSizeF spare =
        QSizeF(on(form.Bild).size()) * scale - QSizeF(form.Bild.width(), form.Bild.height());
    const double x = at.offsetX + (col + 0.5) * at.cellSize + std::max(0.0, spare.width() / 2);
    const double y = at.offsetY + (row + 0.5) * at.cellSize + std::max(0.0, spare.height() / 2);
    return {static_cast<int>(x / scale), static_cast<int>(y / scale)};
  }
  void drag(const QPoint& from, const QPoint& to) {
    QTest::mousePress(&on(form.Bild), Qt::LeftButton, {}, from);
    move((from + to) / 2, Qt::LeftButton);
    move(to, Qt::LeftButton);
    QTest::mouseRelease(&on(form.Bild), Qt::LeftButton, {}, to);
  }
  void move(const QPoint& to, Qt::MouseButtons held) {
    QWidget& widget = on(form.Bild);
    QMouseEvent event(QEvent::MouseMove, QPointF(to), widget.mapToGlobal(QPointF(to)), Qt::NoButton,
                      held, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
  }
  QImage seen() { return on(form.Bild).grab().toImage().convertToFormat(QImage::Format_RGB32); }

  MxPaintForm& form = plugin.window<MxPaintForm>();
  LoopGate gate{platform, engine.timers};
  DesktopView view{engine.desktop, gate, plugin.matrixForm};
};
KORVANE_BOTH_DECKS(PaintWindow);

TEST_P(PaintWindow, EveryToolReachesTheDeck) {
  press(*form.myPalette[2]);
  QTest::mouseClick(&on(form.Bild), Qt::LeftButton, {}, cell(0, 4));
  press(form.PRect);
  press(*form.myPalette[5]);
  drag(cell(1, 1), cell(4, 3));
  press(form.PCircle2);
  press(*form.myPalette[7]);
  drag(cell(4, 3), cell(1, 1));
  press(form.PLine);
  press(*form.myPalette[1]);
  drag(cell(0, 0) - QPoint(4, 0), cell(5, 0) + QPoint(4, 0));  // beyond the outer centre lines
  expectPicture(deck.frame, {"WWWWWW",                         //
                             ".GBBG.",                         //
                             ".BGGB.",                         //
                             ".GBBG.",                         //
                             "R....."});
  press(form.PFill);
  press(*form.myPalette[4]);
  QTest::mouseClick(&on(form.Bild), Qt::LeftButton, {}, cell(2, 2));
  press(form.BDown);
  expectPicture(deck.frame, {"R.....",  //
                             "WWWWWW",  //
                             ".YBBY.",  //
                             ".BYYB.",  //
                             ".YBBY."});
  press(form.PUndo);
  expectPicture(deck.frame, {"WWWWWW",  //
                             ".GBBG.",  //
                             ".BGGB.",  //
                             ".GBBG.",  //
                             "R....."});
}

TEST_P(PaintWindow, TwoQuickClicksPaintTwoCells) {
  press(*form.myPalette[2]);
  QTest::mouseClick(&on(form.Bild), Qt::LeftButton, {}, cell(0, 0));
  QTest::mouseDClick(&on(form.Bild), Qt::LeftButton, {}, cell(1, 0));
  QTest::mouseRelease(&on(form.Bild), Qt::LeftButton, {}, cell(1, 0));
  expectPicture(deck.frame, {"RR....", "......", "......", "......", "......"});
}

TEST_P(PaintWindow, TheCellUnderThePointerIsOutlinedUntilItLeaves) {
  const QImage before = seen();
  move(cell(2, 2), Qt::NoButton);
  const QImage hovered = seen();
  EXPECT_NE(hovered, before);
  const PaintLayout at(6, 5, form.Bild.width(), form.Bild.height());
  const QImage own = hovered.copy((hovered.width() - form.Bild.width()) / 2,
                                  (hovered.height() - form.Bild.height()) / 2, form.Bild.width(),
                                  form.Bild.height());
  const int left = at.offsetX + 2 * at.cellSize;
  const int top = at.offsetY + 2 * at.cellSize;
  EXPECT_EQ(own.pixel(left, top + 3), qRgb(255, 255, 255));
  EXPECT_EQ(own.pixel(left + at.cellSize - 1, top + 3), qRgb(255, 255, 255));
  EXPECT_EQ(own.pixel(left + 2, top + 2), qRgb(0, 0, 0));
  EXPECT_EQ(own.pixel(left - 1, top + 3), qRgb(0, 0, 0));
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&on(form.Bild), &leave);
  EXPECT_EQ(seen(), before);
  expectPicture(deck.frame, {"......", "......", "......", "......", "......"});
}

TEST_P(PaintWindow, TheRubberBandIsSeenWhileTheButtonIsHeld) {
  const QImage before = seen();
  press(form.PRect2);
  QTest::mousePress(&on(form.Bild), Qt::LeftButton, {}, cell(1, 1));
  move(cell(4, 3), Qt::LeftButton);
  EXPECT_NE(seen(), before);
  EXPECT_EQ(form.Bild.overlay().size(), 4U);
  QTest::mouseRelease(&on(form.Bild), Qt::LeftButton, {}, cell(4, 3));
  EXPECT_TRUE(form.Bild.overlay().empty());
}

}  // namespace
}  // namespace korvane::qt
