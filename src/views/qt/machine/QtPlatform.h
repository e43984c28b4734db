#pragma once

#include <QMessageBox>
#include <QPointer>
#include <QString>

#include "platform/Platform.h"

namespace korvane::qt {

/// The machine of a person at a screen.
class QtPlatform : public Platform {
 public:
  ~QtPlatform() override { delete failureBox_; }

  /// Waits for the person; the timers go on behind it.
  void messageBox(const std::string& text) override;
  std::optional<std::string> askFile(const FileQuestion& question) override;
  Raster loadPicture(const std::string& path) override;
  std::int64_t timeOfDay() override;
  NumberFormat numberFormat() override;
  void openPage(const std::string& address) override;
  /// Waits for nobody: a failure that comes again while its box is open only counts up in it. A
  /// cancelled dialog is the person's own wish and shows nothing.
  void failed(const Failure& failure) override;
  void saveFailed(const FailedSave& failed) override;
  /// Tells the person, and goes on.
  bool startsWithout(const BrokenGrid& grid) override;

 private:
  QPointer<QMessageBox> failureBox_;
  int repeats_ = 0;
};

/// A filter "text|pattern", or several of them in a row, with patterns like "*.bmp;*.jpg", as the
/// toolkit's "text (*.bmp *.jpg);;...".
QString toNameFilter(const std::string& filter);

}  // namespace korvane::qt
