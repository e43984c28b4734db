#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTimer>
#include <algorithm>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"

namespace korvane::qt {
namespace {

constexpr int kLeastLine = 64;
constexpr int kLeastPage = 120;
constexpr int kPageFrame = 44;  // of a page beyond its text: margins and scroll bar

int widestLine(const QString& page, const QFontMetrics& metrics) {
  int widest = 0;
  for (const QString& line : page.split('\n'))
    widest = std::max(widest, metrics.horizontalAdvance(line));
  return widest;
}

void commit(TextBox& box, const Seat& seat, const QString& typed) {
  act(seat, box, [&box, typed] { box.setText(typed.toStdString()); });
}

class Line : public QLineEdit {
 public:
  Line(TextBox& box, const Seat& seat) : QLineEdit(seat.parent), box_(box), seat_(seat) {}

 protected:
  // By the Tab key this is so anyway; a click would put the cursor somewhere in the text, and a
  // window that opens would put it behind the text.
  void focusInEvent(QFocusEvent* event) override {
    QLineEdit::focusInEvent(event);
    if (event->reason() == Qt::MouseFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
      QTimer::singleShot(0, this, &QLineEdit::selectAll);
  }

  void keyPressEvent(QKeyEvent* event) override {
    QLineEdit::keyPressEvent(event);
    const int key = keyCode(event->key());
    if (!box_.takesKey(key)) return;
    box_.key(key, text().toStdString(),
             [this](const std::function<void()>& each) { act(seat_, box_, each); });
  }

 private:
  TextBox& box_;
  Seat seat_;
};

QWidget* bindLine(TextBox& box, const Seat& seat) {
  auto* widget = new Line(box, seat);
  widget->setReadOnly(box.style().readOnly);
  widget->setMinimumWidth(kLeastLine);
  const auto take = [&box, seat, widget] { commit(box, seat, widget->text()); };
  if (box.live()) {
    QObject::connect(widget, &QLineEdit::textEdited, take);
  } else {
    QObject::connect(widget, &QLineEdit::editingFinished, take);
  }
  keepShown(box, *widget, [&box, widget] {
    if (widget->text() != text(box.text())) widget->setText(text(box.text()));
  });
  return widget;
}

QWidget* bindPage(TextBox& box, const Seat& seat) {
  auto* widget = new QPlainTextEdit(seat.parent);
  widget->setReadOnly(box.style().readOnly);
  widget->setTabChangesFocus(true);
  widget->setMinimumWidth(
      std::max(kLeastPage, widestLine(text(box.text()), widget->fontMetrics()) + kPageFrame));
  const int lineHeight = widget->fontMetrics().lineSpacing();
  widget->setMinimumHeight(box.style().lines * lineHeight + 2 * lineHeight / 3);
  QObject::connect(widget, &QPlainTextEdit::textChanged,
                   [&box, seat, widget] { commit(box, seat, widget->toPlainText()); });
  keepShown(box, *widget, [&box, widget] {
    const QSignalBlocker quiet(widget);
    if (widget->toPlainText() != text(box.text())) widget->setPlainText(text(box.text()));
  });
  return widget;
}

}  // namespace

QWidget* makeWidget(TextBox& box, const Seat& seat) {
  return box.isPage() ? bindPage(box, seat) : bindLine(box, seat);
}

}  // namespace korvane::qt
