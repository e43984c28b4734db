#pragma once

#include <memory>

#include "platform/Platform.h"

namespace korvane::win32 {

class FailureBox;

/// The machine of a person at a screen. [window thread]
class WinPlatform : public Platform {
 public:
  WinPlatform();
  ~WinPlatform() override;

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

 private:
  std::unique_ptr<FailureBox> failureBox_;
};

}  // namespace korvane::win32
