#include <QListWidget>
#include <QMouseEvent>
#include <QSignalBlocker>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"
#include "views/qt/kinds/DropDown.h"

namespace korvane::qt {
namespace {

constexpr int kVisibleEntries = 20;

QStringList textsOf(const ListBox& list) {
  QStringList texts;
  for (const std::string& item : list.items()) texts << text(item);
  return texts;
}

QWidget* bindDropDown(ListBox& list, const Seat& seat) {
  auto* widget = new DropDown(seat.parent);
  widget->setMaxVisibleItems(kVisibleEntries);
  widget->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  QObject::connect(widget, &QComboBox::activated, [&list, seat](int index) {
    act(seat, list, [&list, index] { list.choose(index); });
  });
  keepShown(list, *widget, [&list, widget, items = std::vector<std::string>()]() mutable {
    if (items != list.items()) {
      items = list.items();
      widget->clear();
      widget->addItems(textsOf(list));
    }
    widget->setCurrentIndex(list.index());
  });
  return widget;
}

// A press on the entry that is shown chooses it, too.
class OpenList : public QListWidget {
 public:
  using QListWidget::QListWidget;

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    const int before = currentRow();
    QListWidget::mousePressEvent(event);
    const bool again = before >= 0 && row(itemAt(event->pos())) == before;
    if (event->button() == Qt::LeftButton && again) Q_EMIT currentRowChanged(before);
  }
};

QWidget* bindOpenList(ListBox& list, const Seat& seat) {
  auto* widget = new OpenList(seat.parent);
  QObject::connect(widget, &QListWidget::currentRowChanged, [&list, seat](int index) {
    if (index >= 0) act(seat, list, [&list, index] { list.choose(index); });
  });
  keepShown(list, *widget, [&list, widget, items = std::vector<std::string>()]() mutable {
    const QSignalBlocker quiet(widget);
    if (items != list.items()) {
      items = list.items();
      widget->clear();
      widget->addItems(textsOf(list));
    }
    widget->setCurrentRow(list.index());
  });
  return widget;
}

}  // namespace

QWidget* makeWidget(ListBox& list, const Seat& seat) {
  return list.style() == ListBox::Style::Open ? bindOpenList(list, seat) : bindDropDown(list, seat);
}

}  // namespace korvane::qt
