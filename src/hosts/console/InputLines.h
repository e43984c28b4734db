#pragma once

#include <string>

namespace korvane {

/// Lines from a file descriptor, whole however they arrive; the last one may lack its line end.
class InputLines {
 public:
  enum class Found { Line, Nothing, End, Error };

  explicit InputLines(int descriptor) : descriptor_(descriptor) {}

  /// The next line. If none is complete, waits at most so many milliseconds (-1: for ever) for more
  /// of it; nothing if that is still no whole line.
  Found next(std::string& line, int timeout);

 private:
  bool take(std::string& line);

  int descriptor_;
  std::string buffer_;
  std::size_t begin_ = 0;     // of the next line in the buffer
  std::size_t searched_ = 0;  // no line end stands before here
  bool ended_ = false;
};

}  // namespace korvane
