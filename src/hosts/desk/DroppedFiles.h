#pragma once

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <functional>
#include <string>
#include <utility>

namespace korvane {

/// Lets files be dropped on a window; the first one of each drop is handed on by its path.
class DroppedFiles : public QObject {
 public:
  DroppedFiles(QWidget& window, std::function<void(const std::string&)> take)
      : take_(std::move(take)) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    const bool enters = event->type() == QEvent::DragEnter;
    if (!enters && event->type() != QEvent::Drop) return QObject::eventFilter(object, event);
    auto* drop = static_cast<QDropEvent*>(event);
    const QString path = firstOf(*drop);
    if (path.isEmpty()) return false;
    drop->acceptProposedAction();
    if (!enters) take_(path.toStdString());
    return true;
  }

 private:
  static QString firstOf(const QDropEvent& drop) {
    const QList<QUrl> urls = drop.mimeData()->urls();
    return urls.isEmpty() ? QString() : urls.first().toLocalFile();
  }

  std::function<void(const std::string&)> take_;
};

}  // namespace korvane
