#include "views/win32/kinds/Binder.h"

#include <array>

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

}  // namespace korvane
