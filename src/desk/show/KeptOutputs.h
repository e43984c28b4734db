#pragma once

#include <string>
#include <vector>

#include "desk/output/OutputConfig.h"
#include "platform/Disk.h"

namespace korvane {

/// The outputs of the desk as they are remembered between two starts, in a file with a line each.
class KeptOutputs {
 public:
  /// Reads the file; one that is not there is an empty list. Empty path: nothing is remembered.
  explicit KeptOutputs(std::string file, Disk& disk = machineDisk());

  const std::vector<OutputEntry>& entries() const { return entries_; }
  /// Number of what the lamps do when DMX goes off, from 0.
  int whenOff() const { return whenOff_; }
  /// What is wrong with the file in words, empty for nothing. The lines that can't be read stay in
  /// the file.
  const std::string& fault() const { return fault_; }
  void keep(const std::vector<OutputEntry>& entries, int whenOff);

 private:
  void read(const std::string& line, int number);

  std::string file_;
  Disk& disk_;
  std::vector<OutputEntry> entries_;
  std::vector<std::string> unread_;
  int whenOff_ = 0;
  std::string fault_;
};

}  // namespace korvane
