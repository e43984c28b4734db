#pragma once

#include <map>
#include <string>

#include "commands/OperatorConsole.h"
#include "commands/ShowContents.h"
#include "persistence/MatrixDefinition.h"
#include "persistence/ProjectFile.h"
#include "testing/SimulatedDisk.h"

namespace korvane {

/// Watches the shows on a disk while a test plays. Whatever happens, the last whole version of each
/// stands whole in its file or in its backup; what was saved can be loaded and holds the same.
class ShowsWatch {
 public:
  explicit ShowsWatch(SimulatedDisk& disk) : disk_(disk), before_(disk.files()) {}

  /// After each thing that was done. ShowLost if a show is not there any more.
  void check() {
    for (const auto& [path, bytes] : before_) {
      if (!path.ends_with(kEnding) || disk_.bytesOf(path) == bytes) continue;
      const std::string whole = wholeOf(path, bytes);
      if (!whole.empty() && whole != disk_.bytesOf(path) && whole != disk_.bytesOf(path + ".bak"))
        throw ShowLost("no whole version of " + path + " is left");
    }
    before_ = disk_.files();
  }

  /// What was saved can be loaded by another plug-in with the same grid, and holds the same.
  void checkLoads(const Engine& engine, const std::string& path) const {
    SimulatedDisk disk = disk_;
    disk.capacity = SimulatedDisk::kUnlimited;
    disk.restorePower();
    std::string grid;
    TextWriter writer(&grid);
    writeDefinition(engine, "again", writer);
    disk.makeFolders("/again");
    disk.create("/again/show.korvaneconf", grid);
    OperatorConsole other(disk, "/again/show", 1);
    other.answer("answer " + path);
    const Json loaded = other.answer("click MatrixForm.load");
    // What an effect fails with as it starts, a Gradient over one column, say, or a strip that is
    // too long, names no file: all was read by then.
    const bool wrong = loaded["ok"] != true && loaded.dump().find(path) != std::string::npos;
    if (wrong) throw ShowLost(path + " can't be loaded: " + loaded.dump());
    const Json kept = ShowContents::of(engine), found = ShowContents::of(other.engine());
    if (kept != found)
      throw ShowLost(path + " holds something else: " + Json::diff(kept, found).dump());
  }

 private:
  static constexpr const char* kEnding = ".Korvane";

  /// The last whole version that there was of a file with these bytes; empty if there was none.
  std::string wholeOf(const std::string& path, const std::string& bytes) const {
    if (isWhole(bytes)) return bytes;
    const auto backup = before_.find(path + ".bak");
    return backup != before_.end() && isWhole(backup->second) ? backup->second : std::string();
  }
  static bool isWhole(const std::string& bytes) {
    SimulatedDisk disk;
    disk.makeFolders("/one");
    disk.create("/one/show", bytes);
    return !projectEndsEarly("/one/show", disk);
  }

  SimulatedDisk& disk_;
  std::map<std::string, std::string> before_;
};

}  // namespace korvane
