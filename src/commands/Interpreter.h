#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "commands/Console.h"

namespace korvane {

/// Carries out commands, one a line, and answers each with one JSON object. It reads and writes
/// nothing but the files that commands name.
class Interpreter {
 public:
  explicit Interpreter(Console console) : console_(std::move(console)) {}

  /// The reply to a line, without a line end; nothing for a line that is passed over.
  std::optional<std::string> answer(std::string_view line);
  /// `quit` was given.
  bool ended() const { return console_.ended; }
  /// Every reply so far was "ok".
  bool allOk() const { return allOk_; }

 private:
  Json perform(const std::vector<std::string>& words);

  Console console_;
  bool allOk_ = true;
};

}  // namespace korvane
