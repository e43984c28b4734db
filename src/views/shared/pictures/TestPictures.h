#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "testing/SourceFolder.h"

namespace korvane {

// The picture files that the tests read.

inline std::string seedPath(const std::string& name) {
  return sourceFolder() + "/src/views/shared/pictures/testdata/" + name;
}

inline std::string seedBytes(const std::string& name) {
  std::ifstream stream(seedPath(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// The names of all of them, or of those with an ending, as in ".gif".
inline std::vector<std::string> seedNames(const std::string& ending = {}) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(seedPath(""))) {
    if (ending.empty() || entry.path().extension() == ending)
      names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace korvane
