#pragma once

#include <map>
#include <string>

#include "platform/Disk.h"

namespace korvane {

/// What a person has chosen for the program, whatever the show: words by name, kept in a file, a
/// line "NAME WORDS" each. A choice that can't be kept is no reason to disturb anybody.
class KeptChoices {
 public:
  /// The file's folder is made when it is needed. Empty: they are forgotten with the program.
  explicit KeptChoices(std::string file, Disk& disk = machineDisk());

  /// Empty for what was never chosen.
  std::string get(const std::string& name) const;
  void set(const std::string& name, const std::string& words);

 private:
  std::string file_;
  Disk& disk_;
  std::map<std::string, std::string> words_;
};

}  // namespace korvane
