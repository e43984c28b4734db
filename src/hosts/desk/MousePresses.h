#pragma once

#include <QEvent>
#include <QGuiApplication>
#include <QObject>
#include <cstdint>

namespace korvane {

/// Counts how often a mouse button was pressed in any window, so that what is done with one press
/// can be told from what is done with the next.
class MousePresses : public QObject {
 public:
  MousePresses() { qApp->installEventFilter(this); }

  std::int64_t count() const { return count_; }
  static bool held() { return QGuiApplication::mouseButtons() != Qt::NoButton; }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    // The window of the system hears of each press once; its widgets may hear of it again.
    if (event->type() == QEvent::MouseButtonPress && object->isWindowType()) ++count_;
    return QObject::eventFilter(object, event);
  }

 private:
  std::int64_t count_ = 0;
};

}  // namespace korvane
