#include "platform/HeadlessPlatform.h"

#include "platform/TextFile.h"

namespace korvane {

std::optional<std::string> HeadlessPlatform::askFile(const FileQuestion& question) {
  questions.push_back(question);
  if (answers.empty()) return std::nullopt;
  std::optional<std::string> answer = answers.front();
  answers.pop_front();
  return answer;
}

Raster HeadlessPlatform::loadPicture(const std::string& path) {
  if (!fileExists(path, disk())) throw Failure(kFileNotFound, path);
  if (const auto found = pictures.find(path); found != pictures.end()) return found->second;
  throw Failure(kInvalidPicture, path);
}

}  // namespace korvane
