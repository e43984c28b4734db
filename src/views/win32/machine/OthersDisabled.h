#pragma once

#include <windows.h>

#include <vector>

namespace korvane::win32 {

/// While it exists, the windows of this thread's forms can't be acted on: a message box or a file
/// dialog waits for its answer.
class OthersDisabled {
 public:
  OthersDisabled();
  ~OthersDisabled();
  OthersDisabled(const OthersDisabled&) = delete;
  OthersDisabled& operator=(const OthersDisabled&) = delete;

  /// The window above which the box or dialog stays.
  HWND owner() const { return owner_; }

 private:
  HWND owner_;
  std::vector<HWND> disabled_;
};

}  // namespace korvane::win32
