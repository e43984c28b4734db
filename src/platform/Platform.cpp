#include "platform/Platform.h"

namespace korvane {

std::string chosenFile(Platform& platform, const FileQuestion& question) {
  std::optional<std::string> path = platform.askFile(question);
  if (!path) throw Failure(kCancelled);
  return *path;
}

}  // namespace korvane
