#include "desk/show/RecentShows.h"

#include <istream>
#include <ostream>

#include "platform/TextFile.h"

namespace korvane {

RecentShows::RecentShows(std::string file, Disk& disk) : file_(std::move(file)), disk_(disk) {
  if (!fileExists(file_, disk_)) return;
  const auto in = disk_.read(file_);
  for (std::string path; paths_.size() < kMost && std::getline(*in, path);) {
    if (!path.empty()) paths_.push_back(path);
  }
}

void RecentShows::add(const std::string& path) {
  std::erase(paths_, path);
  paths_.insert(paths_.begin(), path);
  if (paths_.size() > kMost) paths_.pop_back();
  if (file_.empty()) return;
  disk_.makeFolders(utf8Path(systemPath(file_).parent_path()));
  const auto out = disk_.write(file_);
  for (const std::string& kept : paths_) *out << kept << "\n";
}

}  // namespace korvane
