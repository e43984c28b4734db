#pragma once

#include <termios.h>

#include <string>

#include "hosts/play/TerminalPicture.h"

namespace korvane {

/// The terminal that the player was started in: single keys and a screen of its own while the
/// player stands in the foreground, and put back as it was whenever it does not, at the end and
/// after a crash too. In the background nothing is read, written or set. It never makes the player
/// wait: what a terminal that stands still doesn't take is written later.
class Terminal {
 public:
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  /// Follows what became of the terminal: stopped, in the foreground again, another size.
  void attend();
  /// Whether pictures can be shown now.
  bool hasPictures() const { return held_ && screen_ >= 0; }
  TerminalSize size() const { return size_; }
  /// Shows the lines from the top on. Only what differs from the picture before is written, and
  /// nothing while the terminal has not taken that one.
  void show(const std::vector<std::string>& lines);

  /// Waits so many milliseconds at most for a key or a signal; 0 if no key came, 'q' after the end
  /// of the terminal.
  char waitForKey(int milliseconds);

 private:
  bool inForeground() const;
  void hold();
  void letGo();
  void measure();
  void write(const std::string& text);
  void writeRest();

  int keys_;    ///< descriptor of the terminal that keys come from, -1 without one
  int screen_;  ///< descriptor for pictures, which never waits; -1 without a terminal
  bool held_ = false;
  TerminalSize size_;
  std::vector<std::string> shown_;
  std::string rest_;  ///< what the terminal has not taken yet
};

}  // namespace korvane
