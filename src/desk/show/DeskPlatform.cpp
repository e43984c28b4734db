#include "desk/show/DeskPlatform.h"

#include <utility>

namespace korvane {

void DeskPlatform::messageBox(const std::string& text) {
  if (!quiet_) machine_.messageBox(text);
}

std::optional<std::string> DeskPlatform::askFile(const FileQuestion& question) {
  FileQuestion named = question;
  if (named.suggestedName.empty() && suggestName) named.suggestedName = suggestName(question);
  // What can be read besides the kinds that the plug-in's dialog names.
  if (named.filter.ends_with("*.ico")) named.filter += ";*.png";
  answered = machine_.askFile(named);
  if (answered && onAnswered) onAnswered(*answered);
  return answered;
}

void DeskPlatform::openPage(const std::string& address) {
  if (onHelp) return onHelp();
  machine_.openPage(address);
}

void DeskPlatform::quietly(const std::function<void()>& something) {
  struct Quiet {
    explicit Quiet(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~Quiet() { flag_ = before_; }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

   private:
    bool& flag_;
    bool before_;
  };
  const Quiet quiet(quiet_);
  something();
}

}  // namespace korvane
