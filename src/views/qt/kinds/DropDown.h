#pragma once

#include <QComboBox>
#include <QElapsedTimer>

namespace korvane::qt {

/// A closed list with an arrow in the colour of its text. The wheel does nothing on it: it must not
/// change an effect by the way.
///
/// What is typed chooses the entry of that text, else the first that begins with it: "1" is 1, also
/// where 10 and 12 stand in the list.
class DropDown : public QComboBox {
 public:
  explicit DropDown(QWidget* parent = nullptr);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  /// Takes a typed letter; false for another key.
  bool type(const QKeyEvent& event);
  /// The entry that is meant by what was typed; -1 for none.
  int meant() const;

  QString typed_;
  QElapsedTimer sinceTyped_;
};

}  // namespace korvane::qt
