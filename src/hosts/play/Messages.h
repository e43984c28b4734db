#pragma once

#include <string>
#include <vector>

namespace korvane {

/// What the player has to say, one line each, on standard error. Lines that would run into the
/// picture are kept for later; the newest of them can be shown beside it. It never waits for the
/// reader: a line that nobody takes is lost.
class Messages {
 public:
  /// `pictured`: a picture stands on the terminal now.
  void tell(const std::string& text, bool pictured);
  /// Writes what was kept.
  void flush();
  /// The newest line; empty if there is none.
  const std::string& newest() const { return newest_; }
  void forgetNewest() { newest_.clear(); }

 private:
  std::vector<std::string> kept_;
  std::string newest_;
};

}  // namespace korvane
