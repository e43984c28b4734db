#pragma once

#include <memory>

#include "views/win32/kinds/Widget.h"

namespace korvane {

/// Makes the window of a control.
using Binder = std::unique_ptr<Widget> (*)(Control&, const Seat&);

/// The binder of a kind; nullptr if the view has none.
Binder binderOf(Kind kind);

std::unique_ptr<Widget> bindButton(Control& control, const Seat& seat);
std::unique_ptr<Widget> bindPictureButton(Control& control, const Seat& seat);
std::unique_ptr<Widget> bindCheckBox(Control& control, const Seat& seat);
std::unique_ptr<Widget> bindListBox(Control& control, const Seat& seat);
std::unique_ptr<Widget> bindListView(Control& control, const Seat& seat);
std::unique_ptr<Widget> bindTextBox(Control& control, const Seat& seat);
std::unique_ptr<Widget> bindSlider(Control& control, const Seat& seat);
std::unique_ptr<Widget> bindPictureBox(Control& control, const Seat& seat);
std::unique_ptr<Widget> bindColorBox(Control& control, const Seat& seat);
std::unique_ptr<Widget> bindLabel(Control& control, const Seat& seat);
std::unique_ptr<Widget> bindGroup(Control& control, const Seat& seat);

}  // namespace korvane
