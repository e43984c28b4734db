#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QTimer>

#include "desk/network/NetworkOutput.h"
#include "views/qt/kinds/DropDown.h"

namespace korvane {

/// Chooses where the levels go, and tells how the sending fares.
class OutputPanel : public QGroupBox {
 public:
  explicit OutputPanel(NetworkOutput& output, QWidget* parent = nullptr);

  /// Shows a target in the fields and sends to it.
  void use(const OutputTarget& target);
  /// Whether it is on.
  bool sending() const { return !applied_.isEmpty() && complaint_.isEmpty(); }

 private:
  void declareFields();
  void protocolChosen();
  /// Sends to what the fields say, or tells what is wrong with it.
  void apply();
  void showStatus();
  const Protocol* chosen() const;

  NetworkOutput& output_;
  qt::DropDown* protocol_;
  QSpinBox* universe_;
  QLineEdit* address_;
  QLabel* status_;
  QTimer refresh_;
  QString applied_;  // target's text that runs, empty when off
  QString complaint_;
};

}  // namespace korvane
