#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Controls.h"
#include "platform/Desktop.h"

namespace korvane {

/// A question with up to three answers; the last one is also that of Escape and of the window's
/// frame.
class DeskQuestion : public Form {
 public:
  explicit DeskQuestion(Desktop& desktop);

  /// Asks; `then` gets the index of the answer once the window is closed.
  void ask(const std::string& question, const std::vector<std::string>& answers,
           std::function<void(std::size_t)> then);

  Label text;
  Button first, second, third;

 private:
  void answer(std::size_t index);

  Desktop& desktop_;
  std::size_t answer_ = 0;
  std::size_t answers_ = 0;
};

}  // namespace korvane
