#include "desk/show/Examples.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "desk/project/ShowPath.h"
#include "platform/TextFile.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

// From the folder of the program: PREFIX/bin, or build/PRESET/bin in the tree.
constexpr const char* kFolders[] = {"../share/korvane/examples", "../../../examples"};

// Without the number before it and with blanks for hyphens.
std::string titleOf(const std::string& name) {
  const std::size_t digits = name.find_first_not_of("0123456789");
  const bool numbered = digits != std::string::npos && digits > 0 && name[digits] == '-';
  std::string title = numbered ? name.substr(digits + 1) : name;
  std::replace(title.begin(), title.end(), '-', ' ');
  if (!title.empty())
    title[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(title[0])));
  return title;
}

}  // namespace

std::vector<Example> examplesIn(const std::string& folder) {
  std::vector<Example> examples;
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(systemPath(folder), error)) {
    const std::string path = entry.path().string();
    if (isShow(path) && fileExists(path)) examples.push_back({titleOf(showName(path)), path});
  }
  std::sort(examples.begin(), examples.end(),
            [](const Example& a, const Example& b) { return a.path < b.path; });
  return examples;
}

std::string examplesBeside(const std::string& programFolder) {
  for (const char* folder : kFolders) {
    std::error_code error;
    const fs::path found = fs::canonical(systemPath(programFolder) / folder, error);
    if (!error) return found.string();
  }
  return {};
}

}  // namespace korvane
