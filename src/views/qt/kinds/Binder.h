#pragma once

#include <QWidget>
#include <functional>

#include "platform/Control.h"
#include "views/qt/machine/EventGate.h"

namespace korvane {

/// Where a widget is made: the window that it stands in, and the way in for what a person does.
struct Seat {
  QWidget* parent;
  EventGate& gate;
};

/// Makes the widget of a control and keeps both in step. The control must outlive the widget.
using Binder = QWidget* (*)(Control&, const Seat&);

/// The binder of a kind; nullptr if the view has none.
Binder binderOf(Kind kind);

QWidget* bindButton(Control& control, const Seat& seat);
QWidget* bindPictureButton(Control& control, const Seat& seat);
QWidget* bindCheckBox(Control& control, const Seat& seat);
QWidget* bindListBox(Control& control, const Seat& seat);
QWidget* bindListView(Control& control, const Seat& seat);
QWidget* bindTextBox(Control& control, const Seat& seat);
QWidget* bindSlider(Control& control, const Seat& seat);
QWidget* bindPictureBox(Control& control, const Seat& seat);
QWidget* bindColorBox(Control& control, const Seat& seat);
QWidget* bindLabel(Control& control, const Seat& seat);
QWidget* bindGroup(Control& control, const Seat& seat);

/// Shows the control on its widget now and whenever it changes: tool tip, enabled and visible for
/// every kind, then `show` for what is the kind's own. `show` must raise no event of the widget.
void keepShown(Control& control, QWidget& widget, std::function<void()> show);

/// Hands what a person did to the control as one event, then shows what the control holds, whatever
/// its handlers made of it.
void act(const Seat& seat, Control& control, const std::function<void()>& event);

/// The text of the model in the toolkit's encoding.
inline QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

}  // namespace korvane
