#include "desk/project/ShowPath.h"

#include <string_view>

#include "platform/TextFile.h"

namespace korvane {

bool isShow(const std::string& path) { return path.ends_with(kShowEnding); }

std::string projectOf(const std::string& show) {
  return isShow(show) ? show.substr(0, show.size() - std::string_view(kShowEnding).size()) : show;
}

std::string showName(const std::string& show) { return fileTitle(projectOf(show)); }

std::string folderOf(const std::string& path) {
  return path.substr(0, path.size() - fileTitle(path).size());
}

}  // namespace korvane
