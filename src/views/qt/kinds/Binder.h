#pragma once

#include <QKeyEvent>
#include <QWidget>
#include <functional>

#include "platform/Kinds.h"
#include "views/shared/machine/EventGate.h"

namespace korvane::qt {

/// Where a widget is made: the window that it stands in, and the way in for what a person does.
struct Seat {
  QWidget* parent;
  EventGate& gate;
};

/// Makes the widget of a control, of whatever kind, and keeps both in step. The control must
/// outlive the widget.
QWidget* bind(Control& control, const Seat& seat);

// One for each kind; a kind without one does not compile.
QWidget* makeWidget(Button& button, const Seat& seat);
QWidget* makeWidget(PictureButton& button, const Seat& seat);
QWidget* makeWidget(CheckBox& box, const Seat& seat);
QWidget* makeWidget(ListBox& list, const Seat& seat);
QWidget* makeWidget(ListView& list, const Seat& seat);
QWidget* makeWidget(TextBox& box, const Seat& seat);
QWidget* makeWidget(Slider& slider, const Seat& seat);
QWidget* makeWidget(PictureBox& box, const Seat& seat);
QWidget* makeWidget(ColorBox& box, const Seat& seat);
QWidget* makeWidget(Label& label, const Seat& seat);
QWidget* makeWidget(Group& group, const Seat& seat);
/// A button whose one action stands in the menus.
QWidget* makeWidget(MenuItem& item, const Seat& seat);

/// Shows the control on its widget now and whenever it changes: tool tip, enabled and visible for
/// every kind, then `show` for what is the kind's own. `show` must raise no event of the widget.
void keepShown(Control& control, QWidget& widget, std::function<void()> show);

/// Hands what a person did to the control as one event, then shows what the control holds, whatever
/// its handlers made of it.
void act(const Seat& seat, Control& control, const std::function<void()>& event);

/// The code by which the model knows a key; 0 for a key that means nothing to it.
int keyCode(int key);

/// The name by which the model knows a key with what is held, as in "Ctrl+Left"; empty for one that
/// has none.
std::string keyName(const QKeyEvent& event);

/// The text of the model in the toolkit's encoding.
inline QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

}  // namespace korvane::qt
