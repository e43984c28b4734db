#include "desk/show/RecentShows.h"

#include <filesystem>
#include <fstream>

#include "platform/TextFile.h"

namespace korvane {

RecentShows::RecentShows(std::string file) : file_(std::move(file)) {
  std::ifstream in(systemPath(file_));
  for (std::string path; paths_.size() < kMost && std::getline(in, path);) {
    if (!path.empty()) paths_.push_back(path);
  }
}

void RecentShows::add(const std::string& path) {
  std::erase(paths_, path);
  paths_.insert(paths_.begin(), path);
  if (paths_.size() > kMost) paths_.pop_back();
  if (file_.empty()) return;
  std::error_code error;
  std::filesystem::create_directories(systemPath(file_).parent_path(), error);
  std::ofstream out(systemPath(file_));
  for (const std::string& kept : paths_) out << kept << "\n";
}

}  // namespace korvane
