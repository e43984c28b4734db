#include <QAction>
#include <QPushButton>

#include "platform/Controls.h"
#include "views/qt/kinds/Binder.h"
#include "views/qt/kinds/Painting.h"

namespace korvane::qt {
namespace {

// It is lit by the program alone: a click does not toggle it.
class MenuItemButton : public QPushButton {
 public:
  explicit MenuItemButton(QWidget* parent) : QPushButton(parent) {
    setObjectName("menuItem");
    setCheckable(true);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  }

 protected:
  void nextCheckState() override {}
};

QString captionOf(const MenuItem& item) { return text(item.look().caption).replace('&', "&&"); }

void showAction(const MenuItem& item, QAction& action) {
  action.setText(captionOf(item));
  const QString tip = text(item.look().toolTip);
  action.setToolTip(item.key().empty() ? tip : QString("%1 (%2)").arg(tip, text(item.key())));
  action.setShortcut(QKeySequence(text(item.key())));
  action.setAutoRepeat(item.repeats);
  action.setEnabled(item.look().enabled);
  action.setVisible(item.look().visible);
  action.setCheckable(item.lit());
  action.setChecked(item.lit());
}

}  // namespace

// The key works in all windows of the program, but a control that has the focus and wants it comes
// first.
QWidget* makeWidget(MenuItem& item, const Seat& seat) {
  auto* widget = new MenuItemButton(seat.parent);
  clickOnEnter(*widget);
  auto* action = new QAction(widget);
  action->setShortcutContext(Qt::ApplicationShortcut);
  widget->addAction(action);
  const auto click = [&item, seat] { act(seat, item, [&item] { item.click(); }); };
  QObject::connect(widget, &QPushButton::clicked, click);
  QObject::connect(action, &QAction::triggered, click);
  keepShown(item, *widget, [&item, widget, action] {
    widget->setText(captionOf(item));
    widget->setChecked(item.lit());
    showAction(item, *action);
    widget->setToolTip(action->toolTip());
  });
  return widget;
}

}  // namespace korvane::qt
