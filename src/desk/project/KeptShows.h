#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "desk/network/Claim.h"

namespace korvane {

/// A project that was changed and not saved, as it is kept aside.
struct KeptShow {
  std::string path;                  ///< the show's file; empty for one that was never saved
  std::string name;                  ///< for people
  std::vector<std::string> changes;  ///< since it was saved, for people, the newest first
  std::string show, grid;            ///< what would be in the files, in code page 1252
  std::string project;               ///< the same of the desk's project

  bool operator==(const KeptShow&) const = default;
};

/// Projects that were changed and not saved, kept aside in a folder: a file each, which holds the
/// old or the new version whole, whatever the moment of a crash. A desk holds the key of its
/// project as long as it runs, so that what another one left behind can be told.
class KeptShows {
 public:
  /// What a desk that did not end well has left behind.
  struct Left {
    std::string key;
    KeptShow show;
    std::string time;  ///< at which it was kept, for people
  };

  /// `folder` ends with a slash and is made when it is needed; empty: nothing is kept.
  explicit KeptShows(std::string folder) : folder_(std::move(folder)) {}

  /// Makes the project of this show, or of a new one, the one that is kept from now on, beside what
  /// was left behind of it. Who else has it open, as in "korvane (process 4711)"; empty if nobody.
  std::string hold(const std::string& show);
  /// Keeps it; a Failure if that can't be done.
  void keep(const KeptShow& show) const;
  /// Nothing of the present project is to be offered any more.
  void drop() const { drop(key_); }
  void drop(const std::string& key) const;
  /// The newest one that was left behind, of the present project or another one.
  std::optional<Left> left() const;
  const std::string& key() const { return key_; }

 private:
  std::string file(const std::string& key) const { return folder_ + key + ".kept"; }

  std::string folder_;
  std::string key_;
  std::map<std::string, Claim> claims_;  // by key: of its own, and of what was left behind
};

}  // namespace korvane
