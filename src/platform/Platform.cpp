#include "platform/Platform.h"

namespace korvane {

std::string FailedSave::told() const {
  return path + " was not saved: " + reason + ". " +
         (whole.empty() ? "There is no whole version of it."
                        : "The last whole version is " + whole + ".");
}

std::string BrokenGrid::told() const {
  return "The grid file " + path + " can't be read: " + reason +
         ". The show starts on the default grid; the file stays as it is.";
}

std::string chosenFile(Platform& platform, const FileQuestion& question) {
  std::optional<std::string> path = platform.askFile(question);
  if (!path) throw Failure(kCancelled);
  return *path;
}

}  // namespace korvane
