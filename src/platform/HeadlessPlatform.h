#pragma once

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "platform/Platform.h"

namespace korvane {

/// A machine without a person: message boxes are answered with OK and kept, file dialogs take the
/// next queued answer, time of day is set by whoever drives it.
class HeadlessPlatform : public Platform {
 public:
  void messageBox(const std::string& text) override { boxes.push_back(text); }
  std::optional<std::string> askFile(const FileQuestion& question) override;
  Raster loadPicture(const std::string& path) override;
  std::int64_t timeOfDay() override { return time; }
  NumberFormat numberFormat() override { return format; }
  Disk& disk() override { return *files; }
  void openPage(const std::string& address) override { pages.push_back(address); }
  void failed(const Failure& failure) override { failures.push_back(failure); }
  void saveFailed(const FailedSave& failed) override { failedSaves.push_back(failed); }

  /// Stands in for the contents of picture files, by path; a file without an entry can't be read.
  std::map<std::string, Raster> pictures;
  std::vector<std::string> boxes;
  std::deque<std::optional<std::string>> answers;
  std::vector<FileQuestion> questions;
  std::vector<std::string> pages;
  std::vector<Failure> failures;
  std::vector<FailedSave> failedSaves;
  std::int64_t time = 0;
  NumberFormat format;
  Disk* files = &machineDisk();
};

}  // namespace korvane
