#include "views/qt/kinds/Binder.h"

#include <array>
#include <utility>

namespace korvane {
namespace {

struct Row {
  Kind kind;
  Binder bind;
};

constexpr std::array kBinders = {
    Row{Kind::Button, bindButton},     Row{Kind::PictureButton, bindPictureButton},
    Row{Kind::CheckBox, bindCheckBox}, Row{Kind::ListBox, bindListBox},
    Row{Kind::ListView, bindListView}, Row{Kind::TextBox, bindTextBox},
    Row{Kind::Slider, bindSlider},     Row{Kind::PictureBox, bindPictureBox},
    Row{Kind::ColorBox, bindColorBox}, Row{Kind::Label, bindLabel},
    Row{Kind::Group, bindGroup},
};

}  // namespace

Binder binderOf(Kind kind) {
  for (const Row& row : kBinders) {
    if (row.kind == kind) return row.bind;
  }
  return nullptr;
}

void keepShown(Control& control, QWidget& widget, std::function<void()> show) {
  control.onShown = [&control, &widget, show = std::move(show)] {
    const Look& look = control.look();
    widget.setToolTip(text(look.toolTip));
    widget.setEnabled(look.enabled);
    widget.setVisible(look.visible);
    show();
  };
  QObject::connect(&widget, &QObject::destroyed, [&control] { control.onShown = nullptr; });
  control.onShown();
}

void act(const Seat& seat, Control& control, const std::function<void()>& event) {
  seat.gate.run(event);
  if (control.onShown) control.onShown();
}

}  // namespace korvane
