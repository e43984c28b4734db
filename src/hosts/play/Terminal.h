#pragma once

#include <termios.h>

#include <string>

namespace korvane {

/// The terminal that the player was started in, put back as it was at the end. Without a terminal
/// there are no pictures and no keys.
class Terminal {
 public:
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  bool hasPictures() const { return pictures_; }
  /// Writes all of it at once.
  void write(const std::string& text) const;
  /// Waits so many milliseconds at most for a key; 0 if none came. 'q' after the end of the input's
  /// terminal, or after Ctrl-C.
  char waitForKey(int milliseconds);

 private:
  bool pictures_;
  bool keys_;
  termios before_{};
};

}  // namespace korvane
