#pragma once

#include <memory>

#include "platform/Kinds.h"
#include "views/win32/kinds/Widget.h"

namespace korvane::win32 {

/// Makes the window of a control, of whatever kind.
std::unique_ptr<Widget> bind(Control& control, const Seat& seat);

// One for each kind; a kind without one does not compile.
std::unique_ptr<Widget> makeWidget(Button& button, const Seat& seat);
std::unique_ptr<Widget> makeWidget(PictureButton& button, const Seat& seat);
std::unique_ptr<Widget> makeWidget(CheckBox& box, const Seat& seat);
std::unique_ptr<Widget> makeWidget(ListBox& list, const Seat& seat);
std::unique_ptr<Widget> makeWidget(ListView& list, const Seat& seat);
std::unique_ptr<Widget> makeWidget(TextBox& box, const Seat& seat);
std::unique_ptr<Widget> makeWidget(Slider& slider, const Seat& seat);
std::unique_ptr<Widget> makeWidget(PictureBox& box, const Seat& seat);
std::unique_ptr<Widget> makeWidget(ColorBox& box, const Seat& seat);
std::unique_ptr<Widget> makeWidget(Label& label, const Seat& seat);
std::unique_ptr<Widget> makeWidget(Group& group, const Seat& seat);
std::unique_ptr<Widget> makeWidget(MenuItem& item, const Seat& seat);

}  // namespace korvane::win32
