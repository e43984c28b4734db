#pragma once

#include <string>
#include <vector>

#include "platform/Disk.h"

namespace korvane {

/// The shows that were opened or saved lately, the newest first; they are kept in a file.
class RecentShows {
 public:
  static constexpr std::size_t kMost = 8;

  /// `file` keeps the paths, one a line; its folder is made when it is needed. Empty: they are
  /// forgotten with the program.
  explicit RecentShows(std::string file, Disk& disk = machineDisk());

  const std::vector<std::string>& paths() const { return paths_; }
  /// Puts a show in front. A list that can't be kept is no reason to disturb anybody.
  void add(const std::string& path);

 private:
  std::string file_;
  Disk& disk_;
  std::vector<std::string> paths_;
};

}  // namespace korvane
