#pragma once

#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QScrollArea>

namespace korvane::qt {

/// The size that a window can have, less the frame that the window system adds.
inline QSize roomOn(const QScreen& screen) { return screen.availableSize() - QSize(10, 40); }

/// What a window shows. A text that is broken into lines makes the height depend on the width; what
/// is asked for is then the least height, as without such a text, so that nothing scrolls too soon.
class Content : public QWidget {
 public:
  int heightForWidth(int width) const override {
    return layout()->totalMinimumHeightForWidth(width);
  }
};

/// Asks for the size of its content, but is content with less than the screen: then it scrolls.
class FittingArea : public QScrollArea {
 public:
  explicit FittingArea(QWidget* content) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(content);
  }

  QSize sizeHint() const override { return widget()->sizeHint(); }
  QSize minimumSizeHint() const override {
    const QLayout* around = window()->layout();
    const QWidget* menus = around == nullptr ? nullptr : around->menuBar();
    const QSize above(0, menus == nullptr ? 0 : menus->sizeHint().height());
    return widget()->minimumSizeHint().boundedTo(roomOn(*screen()) - above);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
    return QScrollArea::eventFilter(watched, event);
  }
};

}  // namespace korvane::qt
