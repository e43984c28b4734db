#include "hosts/com/ScriptPlatform.h"

namespace korvane {

void ScriptPlatform::messageBox(const std::string& text) {
  if (turn_.script) return HeadlessPlatform::messageBox(text);
  const WayOut out(turn_);
  machine_.messageBox(text);
}

std::optional<std::string> ScriptPlatform::askFile(const FileQuestion& question) {
  if (turn_.script) return HeadlessPlatform::askFile(question);
  const WayOut out(turn_);
  return machine_.askFile(question);
}

void ScriptPlatform::failed(const Failure& failure) {
  if (turn_.script) return HeadlessPlatform::failed(failure);
  const WayOut out(turn_);
  machine_.failed(failure);
}

}  // namespace korvane
