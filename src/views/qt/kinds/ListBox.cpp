#include <QListWidget>
#include <QSignalBlocker>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"
#include "views/qt/kinds/DropDown.h"

namespace korvane {
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
    act(seat, list, [&list, index] { list.setIndex(index); });
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

QWidget* bindOpenList(ListBox& list, const Seat& seat) {
  auto* widget = new QListWidget(seat.parent);
  QObject::connect(widget, &QListWidget::currentRowChanged, [&list, seat](int index) {
    act(seat, list, [&list, index] { list.setIndex(index); });
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

QWidget* bindListBox(Control& control, const Seat& seat) {
  auto& list = static_cast<ListBox&>(control);
  return list.style() == ListBox::Style::Open ? bindOpenList(list, seat) : bindDropDown(list, seat);
}

}  // namespace korvane
