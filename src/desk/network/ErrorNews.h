#pragma once

#include <optional>
#include <string>

namespace korvane {

/// Turns the error that a stream has now into what a person is told: each error once, and once that
/// it works again.
class ErrorNews {
 public:
  /// `what` names the stream, as in "sACN universe 1 to 239.255.0.1:5568".
  explicit ErrorNews(std::string what) : what_(std::move(what)) {}

  /// Takes the error of now, empty for none; a line to tell, if there is one.
  std::optional<std::string> of(const std::string& error) {
    if (error == told_) return std::nullopt;
    told_ = error;
    return what_ + ": " + (error.empty() ? "works again" : error);
  }

 private:
  std::string what_;
  std::string told_;
};

}  // namespace korvane
