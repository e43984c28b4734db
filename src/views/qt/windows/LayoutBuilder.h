#pragma once

#include <QBoxLayout>
#include <QGridLayout>
#include <QWidget>
#include <map>

#include "platform/Form.h"
#include "views/qt/kinds/Binder.h"

namespace korvane::qt {

/// Makes the widgets of a form, in tab order, and arranges them as the form's layout declares.
class LayoutBuilder {
 public:
  LayoutBuilder(const Form& form, const Seat& seat);

  /// The arrangement, for the seat's parent to take.
  QLayout* build();
  const std::map<const Control*, QWidget*>& widgets() const { return widgets_; }

 private:
  QLayout* make(const Layout& part);
  QLayout* makeItem(const Layout& part);
  QLayout* makeLine(const Layout& part);
  QLayout* makeFields(const Layout& part);
  QLayout* makeGrid(const Layout& part);
  void fillBox(const Layout& part);
  QLayout* makeBoxed(const Layout& part);
  /// Puts a part into a line, without a layout of its own where one widget will do.
  void place(const Layout& part, QBoxLayout& line);
  void placeField(const Layout& part, QGridLayout& grid, int row);
  void alignCaptions(const Layout& part);
  QWidget* labelOf(const Control& control);
  void setTabOrder();
  void keepMenuItemsAway();

  const Form& form_;
  Seat seat_;
  std::map<const Control*, QWidget*> widgets_;
};

}  // namespace korvane::qt
