#include "platform/PictureBox.h"

#include <QBackingStore>
#include <QPaintEvent>
#include <functional>
#include <random>

#include "views/qt/testing/ShownForm.h"

namespace korvane::qt {
namespace {

using Mouse = PictureBox::Mouse;

// Writes down what is painted of a widget.
class PaintLog : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    painted += static_cast<QPaintEvent*>(event)->region();
    ++times;
    return false;
  }
  QRegion painted;
  int times = 0;
};

class PictureBoxes : public ShownForm {
 protected:
  PictureBoxes() {
    for (PictureBox* box : {&square, &grown, &fixed}) {
      const auto note = [this](const char* what) {
        return [this, what](int x, int y) {
          events.push_back(std::string(what) + " " + std::to_string(x) + " " + std::to_string(y));
        };
      };
      box->onMouseDown = note("down");
      box->onMouseMove = note("move");
      box->onMouseUp = note("up");
      box->onClick = [this] { events.emplace_back("click"); };
      box->onDblClick = [this] { events.emplace_back("dblclick"); };
    }
    show({&square, &grown, &fixed});
    view->window(*form).resize(420, 700);
    EXPECT_TRUE(QTest::qWaitFor([this] { return followsItsWidget(grown); }, 2000));
  }
  bool followsItsWidget(PictureBox& box) {
    return box.width() == screen(on<>(box).width()) && box.width() > 100;
  }
  double scale() { return on<>(square).devicePixelRatioF(); }
  int screen(int length) { return static_cast<int>(length * scale()); }

  // What the window holds for the screen at the place of a box.
  QImage seen(PictureBox& box) {
    QWidget& window = view->window(*form);
    const QPoint corner = on<>(box).mapTo(&window, QPoint(0, 0));
    const auto& all = dynamic_cast<const QImage&>(*window.backingStore()->paintDevice());
    return all.copy({corner * scale(), on<>(box).size() * scale()})
        .convertToFormat(QImage::Format_RGB32);
  }
  // The pixels of a box that fills its place, as the screen should have them.
  static QImage wanted(const PictureBox& box) {
    const auto* bytes = reinterpret_cast<const uchar*>(box.raster().data());
    return QImage(bytes, box.width(), box.height(), QImage::Format_RGBX8888)
        .convertToFormat(QImage::Format_RGB32);
  }
  bool standsOnTheScreen(PictureBox& box) {
    return QTest::qWaitFor([&] { return seen(box) == wanted(box); }, 2000);
  }
  // As a step of an effect does it: cell after cell, each a little other than before.
  static void paintCells(PictureBox& box, int color) {
    for (int y = 0; y + 9 < box.height(); y += 10) {
      for (int x = 0; x + 9 < box.width(); x += 10)
        box.fillRect(x, y, x + 8, y + 8, rgb(color, x % 256, y % 256));
    }
  }

  // Lets another box change until that has been painted.
  bool paintsWhatIsWaiting() {
    PaintLog log;
    on<>(fixed).installEventFilter(&log);
    fixed.setPixel(1, 1, ~fixed.raster().pixel(1, 1) & 0xFFFFFF);
    return QTest::qWaitFor([&log] { return log.times > 0; }, 2000);
  }
  // All lamps of a grid, as a frame is drawn.
  static Squares lamps(int pitch, int color) {
    Squares squares{pitch - 2, pitch - 2, {}};
    for (int i = 0; i < 100; ++i)
      squares.list.push_back({i / 10 * pitch, i % 10 * pitch, rgb(color, 2 * i, 255 - i)});
    return squares;
  }

  PictureBox square{"square", {50, 50}};
  PictureBox grown{"grown", {50, 50, PictureBox::Sizing::Grow}};
  PictureBox fixed{"fixed", {28, 32, PictureBox::Sizing::Fixed}};
  std::vector<std::string> events;
};

TEST_F(PictureBoxes, GrowToTheWidgetsSizeInScreenPixels) {
  const QSize size = on<>(grown).size();
  EXPECT_EQ(grown.width(), screen(size.width()));
  EXPECT_EQ(grown.height(), screen(size.height()));
}

TEST_F(PictureBoxes, TakeTheLargestSquareThatThereIs) {
  const QSize size = on<>(square).size();
  EXPECT_EQ(square.width(), screen(std::min(size.width(), size.height())));
  EXPECT_EQ(square.height(), square.width());
  EXPECT_NE(size.width(), size.height()) << "the window leaves more room on one side";
}

TEST_F(PictureBoxes, AFixedOneIsEnlargedByWholePixels) {
  fixed.fillRect(0, 0, 0, 0, rgb(255, 0, 0));
  QWidget& widget = on<>(fixed);
  const QImage image = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
  int red = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) red += image.pixel(x, y) == qRgb(255, 0, 0) ? 1 : 0;
  }
  const int factor = std::min(image.width() / 28, image.height() / 32);
  EXPECT_GE(factor, 2);
  EXPECT_EQ(red, factor * factor);
  EXPECT_EQ(fixed.width(), 28) << "it keeps its own size";
}

TEST_F(PictureBoxes, ShowThePixelsAsTheyAre) {
  grown.fillRect(0, 0, grown.width() - 1, grown.height() - 1, rgb(1, 2, 3));
  grown.setPixel(5, 7, rgb(250, 120, 30));
  const QImage image = on<>(grown).grab().toImage().convertToFormat(QImage::Format_RGB32);
  ASSERT_EQ(image.size(), QSize(grown.width(), grown.height()));
  EXPECT_EQ(image.pixel(5, 7), qRgb(250, 120, 30));
  EXPECT_EQ(image.pixel(6, 7), qRgb(1, 2, 3));
}

TEST_F(PictureBoxes, DrawTheOverlayOverThePixelsAndTakeItAway) {
  grown.fillRect(0, 0, grown.width() - 1, grown.height() - 1, rgb(1, 2, 3));
  grown.setOverlay({{10, 4, 20, 4, rgb(250, 120, 30)}, {30, 25, 30, 9, rgb(0, 200, 0)}});
  const QImage image = on<>(grown).grab().toImage().convertToFormat(QImage::Format_RGB32);
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 40; ++x) {
      const bool level = y == 4 && x >= 10 && x <= 20;
      const bool upright = x == 30 && y >= 9 && y <= 25;
      const QRgb wanted = level ? qRgb(250, 120, 30) : upright ? qRgb(0, 200, 0) : qRgb(1, 2, 3);
      ASSERT_EQ(image.pixel(x, y), wanted) << x << ", " << y;
    }
  }
  EXPECT_EQ(grown.raster().pixel(10, 4), rgb(1, 2, 3));
  grown.setOverlay({});
  EXPECT_EQ(on<>(grown).grab().toImage().pixel(10, 4), qRgb(1, 2, 3));
}

TEST_F(PictureBoxes, RepaintOnlyWhatHasChanged) {
  QWidget& widget = on<>(grown);
  ASSERT_TRUE(standsOnTheScreen(grown));
  ASSERT_TRUE(paintsWhatIsWaiting());
  PaintLog log;
  widget.installEventFilter(&log);
  grown.fillRect(20, 10, 29, 19, rgb(9, 9, 9));
  ASSERT_TRUE(QTest::qWaitFor([&log] { return log.times > 0; }, 2000));
  QCoreApplication::processEvents();
  widget.removeEventFilter(&log);
  const QRect cell(0, 0, 100, 100);
  EXPECT_LE(log.painted.boundingRect().width(), 10 / scale() + 2);
  EXPECT_TRUE(cell.contains(log.painted.boundingRect()));
}

TEST_F(PictureBoxes, PaintThousandsOfChangedCellsAtOnce) {
  ASSERT_TRUE(standsOnTheScreen(grown));
  ASSERT_TRUE(paintsWhatIsWaiting());
  PaintLog log;
  on<>(grown).installEventFilter(&log);
  paintCells(grown, 1);
  paintCells(grown, 2);
  EXPECT_EQ(log.times, 0) << "not within the event";
  EXPECT_TRUE(standsOnTheScreen(grown));
  EXPECT_EQ(log.times, 1);
  EXPECT_EQ(log.painted.rectCount(), 1);
}

TEST_F(PictureBoxes, PaintSmallChangesWhereTheyAre) {
  ASSERT_TRUE(standsOnTheScreen(grown));
  for (int turn = 0; turn < 20; ++turn) {
    const int x = turn * 37 % (grown.width() - 20);
    const int y = turn * 53 % (grown.height() - 20);
    grown.fillRect(x, y, x + turn % 17, y + turn % 13, rgb(turn * 5, 255 - turn, turn));
    ASSERT_TRUE(standsOnTheScreen(grown)) << "turn " << turn;
  }
}

TEST_F(PictureBoxes, ShowTheLampsOfAGridInWhateverOrderTheyAreDrawnWithTheRest) {
  const std::function<void(int)> drawn[] = {
      [this](int turn) { grown.draw(lamps(10, turn)); },
      [this](int turn) { grown.draw(lamps(7, turn)); },
      [this](int turn) {
        const auto lamp = static_cast<std::size_t>(turn);
        grown.draw(lamp, 8, 8, lamps(10, 2 * turn).list.at(lamp));
      },
      [this](int turn) { grown.fillRect(turn, 5, 2 * turn, 60, rgb(turn, 0, turn)); },
      [this](int) { grown.clear(); },
      [this](int turn) { grown.canvas().setPixel(turn % 50, 3, rgb(9, turn, 9)), grown.touched(); },
      [this](int) { grown.setRaster(Raster(grown.width(), grown.height(), rgb(5, 6, 7))); }};
  std::mt19937 random(7);
  const auto upTo = [&random](std::size_t most) { return random() % (most + 1); };
  for (int turn = 0; turn < 60; ++turn) {
    for (std::size_t more = upTo(3) + 1; more > 0; --more) drawn[upTo(6) * upTo(1)](turn);
    ASSERT_TRUE(standsOnTheScreen(grown)) << "turn " << turn;
  }
}

TEST_F(PictureBoxes, PaintTheLampsOfAGridThatStayAsTheyAreOnce) {
  grown.draw(lamps(10, 1));
  ASSERT_TRUE(standsOnTheScreen(grown));
  ASSERT_TRUE(paintsWhatIsWaiting());
  PaintLog log;
  on<>(grown).installEventFilter(&log);
  grown.draw(lamps(10, 1));
  ASSERT_TRUE(paintsWhatIsWaiting());
  EXPECT_EQ(log.times, 0);
  grown.draw(lamps(10, 2));
  EXPECT_TRUE(standsOnTheScreen(grown));
  EXPECT_EQ(log.times, 1);
}

TEST_F(PictureBoxes, ShowInAWindowThatWasHiddenWhatChangedMeanwhile) {
  QWidget& window = view->window(*form);
  window.hide();
  PaintLog log;
  on<>(grown).installEventFilter(&log);
  paintCells(grown, 3);
  QCoreApplication::processEvents();
  EXPECT_EQ(log.times, 0);
  window.show();
  EXPECT_TRUE(standsOnTheScreen(grown));
  paintCells(grown, 4);
  EXPECT_TRUE(standsOnTheScreen(grown));
}

TEST_F(PictureBoxes, FollowAWindowThatGetsAnotherSize) {
  for (const QSize size : {QSize(520, 760), QSize(431, 733)}) {
    view->window(*form).resize(size);
    ASSERT_TRUE(QTest::qWaitFor([this] { return followsItsWidget(grown); }, 2000));
    paintCells(grown, 5);
    EXPECT_TRUE(standsOnTheScreen(grown));
  }
}

TEST_F(PictureBoxes, RepaintAPartThatTheSystemUncovers) {
  paintCells(grown, 6);
  ASSERT_TRUE(standsOnTheScreen(grown));
  PaintLog log;
  on<>(grown).installEventFilter(&log);
  on<>(grown).repaint(QRegion(3, 5, 20, 7) + QRegion(40, 30, 9, 21));
  EXPECT_EQ(log.times, 1);
  EXPECT_TRUE(standsOnTheScreen(grown));
}

TEST_F(PictureBoxes, ACellOfAFixedOneIsEnlargedWhereItStands) {
  const int factor = std::min(screen(on<>(fixed).width()) / 28, screen(on<>(fixed).height()) / 32);
  const QPoint origin((screen(on<>(fixed).width()) - 28 * factor) / 2,
                      (screen(on<>(fixed).height()) - 32 * factor) / 2);
  ASSERT_TRUE(QTest::qWaitFor([&] { return seen(fixed).pixel(origin) == qRgb(0, 0, 0); }, 2000));
  fixed.fillRect(4, 6, 5, 6, rgb(9, 8, 7));
  const QRect cell(origin + QPoint(4, 6) * factor, QSize(2, 1) * factor);
  ASSERT_TRUE(
      QTest::qWaitFor([&] { return seen(fixed).pixel(cell.topLeft()) == qRgb(9, 8, 7); }, 2000));
  const QImage image = seen(fixed);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x)
      ASSERT_EQ(image.pixel(x, y) == qRgb(9, 8, 7), cell.contains(x, y)) << x << ", " << y;
  }
}

TEST_F(PictureBoxes, HaveNoHolesInAPictureOfTheWindow) {
  const QImage image = view->window(*form).grab().toImage().convertToFormat(QImage::Format_ARGB32);
  const QPoint inside = on<>(grown).mapTo(&view->window(*form), QPoint(5, 5)) * scale();
  EXPECT_EQ(qAlpha(image.pixel(inside)), 255);
}

TEST_F(PictureBoxes, HandOnTheMouseInPixelsOfTheBox) {
  QTest::mouseClick(&on<>(grown), Qt::LeftButton, {}, {20, 30});
  const std::string at = std::to_string(screen(20)) + " " + std::to_string(screen(30));
  EXPECT_EQ(events, (std::vector<std::string>{"down " + at, "up " + at, "click"}));
}

TEST_F(PictureBoxes, ADoubleClickEndsWithoutAThirdClick) {
  QTest::mouseClick(&on<>(grown), Qt::LeftButton, {}, {20, 30});
  QTest::mouseDClick(&on<>(grown), Qt::LeftButton, {}, {20, 30});
  QTest::mouseRelease(&on<>(grown), Qt::LeftButton, {}, {20, 30});
  EXPECT_EQ(std::count(events.begin(), events.end(), "click"), 1);
  EXPECT_EQ(std::count(events.begin(), events.end(), "dblclick"), 1);
  const std::string at = std::to_string(screen(20)) + " " + std::to_string(screen(30));
  EXPECT_EQ(std::count(events.begin(), events.end(), "down " + at),
            std::count(events.begin(), events.end(), "up " + at));
  EXPECT_FALSE(grown.buttonHeld());
}

TEST_F(PictureBoxes, AreToldWhenThePointerLeaves) {
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&on<>(grown), &leave);
  EXPECT_EQ(events, std::vector<std::string>{"move -1 -1"});
}

TEST_F(PictureBoxes, CountFromTheCornerOfACentredSquare) {
  const QSize size = on<>(square).size();
  const int side = std::min(size.width(), size.height());
  QTest::mousePress(&on<>(square), Qt::LeftButton, {},
                    {(size.width() - side) / 2 + 1, (size.height() - side) / 2 + 1});
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events[0], "down " + std::to_string(screen(1)) + " " + std::to_string(screen(1)));
}

TEST_F(PictureBoxes, ALostReleaseIsMadeUpForAtTheNextMove) {
  square.mouse(Mouse::Down, 1, 1);
  QMouseEvent move(QEvent::MouseMove, {5, 5}, on<>(square).mapToGlobal(QPointF(5, 5)), Qt::NoButton,
                   Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(&on<>(square), &move);
  EXPECT_FALSE(square.buttonHeld());
}

}  // namespace
}  // namespace korvane::qt
