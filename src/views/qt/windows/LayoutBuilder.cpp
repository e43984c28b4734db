#include "views/qt/windows/LayoutBuilder.h"

#include <QEvent>
#include <QLabel>
#include <algorithm>
#include <vector>

namespace korvane::qt {
namespace {

constexpr int kGap = 8;

// The text before a control: there when the control is.
class LeadingLabel : public QLabel {
 public:
  LeadingLabel(QWidget& control, const QString& caption, QWidget* parent)
      : QLabel(caption, parent) {
    setTextFormat(Qt::PlainText);
    setVisible(!control.isHidden());
    control.installEventFilter(this);
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::ShowToParent) show();
    if (event->type() == QEvent::HideToParent) hide();
    return false;
  }
};

// A control that comes and goes has its place kept, so that nothing around it moves; a group or a
// menu item gives its place up.
void keepPlace(QWidget& widget, Kind kind) {
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(kind != Kind::Group && kind != Kind::MenuItem);
  widget.setSizePolicy(policy);
}

}  // namespace

LayoutBuilder::LayoutBuilder(const Form& form, const Seat& seat) : form_(form), seat_(seat) {
  for (Control* control : form.shownControls()) {
    QWidget* widget = bind(*control, seat_);
    keepPlace(*widget, control->kind());
    widgets_[control] = widget;
  }
  setTabOrder();
  keepMenuItemsAway();
}

// An item that stands in the menus alone has no button.
void LayoutBuilder::keepMenuItemsAway() {
  auto* away = new QWidget(seat_.parent);
  away->hide();
  for (const auto& [control, widget] : widgets_) {
    if (control->kind() == Kind::MenuItem && !form_.layout().holds(*control))
      widget->setParent(away);
  }
}

void LayoutBuilder::setTabOrder() {
  QWidget* before = nullptr;
  for (const Control* control : form_.shownControls()) {
    QWidget* widget = widgets_.at(control);
    if (before != nullptr) QWidget::setTabOrder(before, widget);
    before = widget;
  }
}

QLayout* LayoutBuilder::build() { return make(form_.layout()); }

QLayout* LayoutBuilder::make(const Layout& part) {
  switch (part.kind) {
    case Layout::Kind::Item:
      return makeItem(part);
    case Layout::Kind::Row:
    case Layout::Kind::Column:
      return makeLine(part);
    case Layout::Kind::Fields:
      return makeFields(part);
    case Layout::Kind::Grid:
      return makeGrid(part);
    case Layout::Kind::Boxed:
      return makeBoxed(part);
    case Layout::Kind::Space:
      break;
  }
  auto* empty = new QHBoxLayout;
  empty->addStretch();
  return empty;
}

QWidget* LayoutBuilder::labelOf(const Control& control) {
  const std::string& label = control.look().label;
  if (label.empty()) return nullptr;
  return new LeadingLabel(*widgets_.at(&control), text(label), seat_.parent);
}

QLayout* LayoutBuilder::makeItem(const Layout& part) {
  auto* line = new QHBoxLayout;
  line->setSpacing(kGap);
  if (QWidget* label = labelOf(*part.control)) line->addWidget(label);
  line->addWidget(widgets_.at(part.control), 1);
  return line;
}

void LayoutBuilder::place(const Layout& part, QBoxLayout& line) {
  const bool bare = part.kind == Layout::Kind::Item && part.control->look().label.empty();
  if (part.kind == Layout::Kind::Space) {
    line.addStretch(part.stretch);
  } else if (bare) {
    line.addWidget(widgets_.at(part.control), part.stretch);
  } else if (part.kind == Layout::Kind::Boxed) {
    fillBox(part);
    line.addWidget(widgets_.at(part.control), part.stretch);
  } else {
    line.addLayout(make(part), part.stretch);
  }
}

QLayout* LayoutBuilder::makeLine(const Layout& part) {
  auto* line = new QBoxLayout(part.kind == Layout::Kind::Row ? QBoxLayout::LeftToRight
                                                             : QBoxLayout::TopToBottom);
  line->setSpacing(kGap);
  for (const Layout& child : part.children) place(child, *line);
  return line;
}

QLayout* LayoutBuilder::makeFields(const Layout& part) {
  auto* grid = new QGridLayout;
  grid->setSpacing(kGap);
  grid->setColumnStretch(1, 1);
  int row = 0;
  for (const Layout& child : part.children) {
    grid->setRowStretch(row, child.stretch);
    placeField(child, *grid, row++);
  }
  alignCaptions(part);
  return grid;
}

// Sliders below each other begin at the same place, however long their captions.
void LayoutBuilder::alignCaptions(const Layout& part) {
  std::vector<QLabel*> captions;
  int widest = 0;
  for (const Layout& child : part.children) {
    if (child.kind != Layout::Kind::Item) continue;
    auto* caption = widgets_.at(child.control)->findChild<QLabel*>("caption");
    if (caption == nullptr) continue;
    captions.push_back(caption);
    caption->ensurePolished();
    widest = std::max({widest, caption->minimumWidth(), caption->sizeHint().width()});
  }
  for (QLabel* caption : captions) caption->setMinimumWidth(widest);
}

// The label goes to the column of the labels: a control's own, or the one that begins a row.
void LayoutBuilder::placeField(const Layout& part, QGridLayout& grid, int row) {
  auto* line = new QHBoxLayout;
  line->setSpacing(kGap);
  if (part.kind == Layout::Kind::Item) {
    if (QWidget* label = labelOf(*part.control)) grid.addWidget(label, row, 0);
    line->addWidget(widgets_.at(part.control));
  } else if (beginsWithLabel(part)) {
    grid.addWidget(widgets_.at(part.children.front().control), row, 0);
    for (std::size_t i = 1; i < part.children.size(); ++i) place(part.children[i], *line);
  } else {
    place(part, *line);
  }
  grid.addLayout(line, row, 1);
}

QLayout* LayoutBuilder::makeGrid(const Layout& part) {
  auto* grid = new QGridLayout;
  grid->setSpacing(kGap);
  grid->setColumnStretch(part.columns, 1);  // spare room stays on the right
  int next = 0;
  const auto row = [&] { return next / part.columns; };
  const auto column = [&] { return next % part.columns; };
  for (const Layout& child : part.children) {
    if (child.kind != Layout::Kind::Item) {
      grid->addLayout(make(child), row(), column());
    } else {
      if (QWidget* label = labelOf(*child.control)) {
        grid->addWidget(label, row(), column());
        ++next;
      }
      grid->addWidget(widgets_.at(child.control), row(), column());
    }
    ++next;
  }
  return grid;
}

void LayoutBuilder::fillBox(const Layout& part) {
  QLayout* inside = make(part.children.front());
  widgets_.at(part.control)->setLayout(inside);
  if (part.control->look().caption.empty()) inside->setContentsMargins(0, 0, 0, 0);
}

QLayout* LayoutBuilder::makeBoxed(const Layout& part) {
  fillBox(part);
  auto* line = new QHBoxLayout;
  line->addWidget(widgets_.at(part.control));
  return line;
}

}  // namespace korvane::qt
