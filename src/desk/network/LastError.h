#pragma once

#include <chrono>
#include <string>

namespace korvane {

/// The last error of a stream, kept until sending has gone well for a while: a receiver that
/// refuses packets is told of about once a second only, and the text shall not flicker.
class LastError {
 public:
  using TimePoint = std::chrono::steady_clock::time_point;
  static constexpr std::chrono::seconds kKept{3};

  /// Notes how a packet fared; an empty error: well.
  void note(TimePoint now, const std::string& error) {
    if (!error.empty()) {
      text_ = error;
      at_ = now;
    } else if (now - at_ >= kKept) {
      text_.clear();
    }
  }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
  TimePoint at_{};
};

}  // namespace korvane
