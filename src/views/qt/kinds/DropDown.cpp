#include "views/qt/kinds/DropDown.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QWheelEvent>

#include "views/qt/kinds/Painting.h"

namespace korvane::qt {
namespace {

constexpr int kArrowSide = 14;
constexpr int kArrowMargin = 8;

}  // namespace

void DropDown::paintEvent(QPaintEvent* event) {
  QComboBox::paintEvent(event);
  QPainter painter(this);
  const QRectF square(width() - kArrowSide - kArrowMargin, (height() - kArrowSide) / 2.0,
                      kArrowSide, kArrowSide);
  const QPalette::ColorGroup group = isEnabled() ? QPalette::Normal : QPalette::Disabled;
  drawIcon(painter, Icon::Down, square, palette().color(group, QPalette::ButtonText));
}

DropDown::DropDown(QWidget* parent) : QComboBox(parent) { view()->installEventFilter(this); }

bool DropDown::type(const QKeyEvent& event) {
  const QString text = event.text();
  const bool letter = !text.isEmpty() && text.front().isPrint() && text.front() != ' ';
  if (!letter || (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != 0) return false;
  const bool goesOn =
      sinceTyped_.isValid() && sinceTyped_.elapsed() < QApplication::keyboardInputInterval();
  typed_ = goesOn ? typed_ + text : text;
  sinceTyped_.start();
  return true;
}

int DropDown::meant() const {
  const int exact = findText(typed_, Qt::MatchFixedString);
  return exact >= 0 ? exact : findText(typed_, Qt::MatchStartsWith);
}

void DropDown::keyPressEvent(QKeyEvent* event) {
  if (!type(*event)) return QComboBox::keyPressEvent(event);
  if (meant() < 0) return;
  setCurrentIndex(meant());
  Q_EMIT activated(currentIndex());
}

// While the list is open, its entries get the keys.
bool DropDown::eventFilter(QObject* watched, QEvent* event) {
  const bool key = watched == view() && event->type() == QEvent::KeyPress;
  if (!key || !type(*static_cast<QKeyEvent*>(event))) return QComboBox::eventFilter(watched, event);
  if (meant() >= 0) view()->setCurrentIndex(model()->index(meant(), modelColumn()));
  return true;
}

void DropDown::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace korvane::qt
