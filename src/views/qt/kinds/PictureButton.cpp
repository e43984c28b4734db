#include <QToolButton>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"
#include "views/qt/kinds/Painting.h"

namespace korvane::qt {
namespace {

constexpr int kSideOfButton = 34;
constexpr int kIconSide = 18;

// It is pressed by the program alone: a click does not toggle it.
class IconButton : public QToolButton {
 public:
  IconButton(Icon icon, QWidget* parent) : QToolButton(parent), icon_(icon) {
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(kSideOfButton, kSideOfButton);
  }

 protected:
  void nextCheckState() override {}

  void paintEvent(QPaintEvent* event) override {
    QToolButton::paintEvent(event);
    QPainter painter(this);
    const QRectF square((width() - kIconSide) / 2.0, (height() - kIconSide) / 2.0, kIconSide,
                        kIconSide);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Normal : QPalette::Disabled;
    drawIcon(
        painter, icon_, square,
        palette().color(group, isChecked() ? QPalette::HighlightedText : QPalette::ButtonText));
  }

 private:
  Icon icon_;
};

}  // namespace

QWidget* makeWidget(PictureButton& button, const Seat& seat) {
  auto* widget = new IconButton(button.icon(), seat.parent);
  clickOnEnter(*widget);
  QObject::connect(widget, &QToolButton::clicked,
                   [&button, seat] { act(seat, button, [&button] { button.click(); }); });
  keepShown(button, *widget, [&button, widget] {
    widget->setChecked(button.pressed());
    widget->setAccessibleName(text(button.look().toolTip));
  });
  return widget;
}

}  // namespace korvane::qt
