#pragma once

#include <QComboBox>

namespace korvane::qt {

/// A closed list with an arrow in the colour of its text. The wheel does nothing on it: it must not
/// change an effect by the way.
class DropDown : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace korvane::qt
