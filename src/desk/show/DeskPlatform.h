#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Platform.h"

namespace korvane {

/// The machine as the plug-in sees it on the desk: file dialogs begin with a name, help stays on
/// the machine, and what the plug-in says to the desk's own messages does not stand in the way.
class DeskPlatform : public Platform {
 public:
  explicit DeskPlatform(Platform& machine) : machine_(machine) {}

  void messageBox(const std::string& text) override;
  std::optional<std::string> askFile(const FileQuestion& question) override;
  Raster loadPicture(const std::string& path) override { return machine_.loadPicture(path); }
  std::int64_t timeOfDay() override { return machine_.timeOfDay(); }
  NumberFormat numberFormat() override { return machine_.numberFormat(); }
  Disk& disk() override { return machine_.disk(); }
  void openPage(const std::string& address) override;
  void failed(const Failure& failure) override { machine_.failed(failure); }
  void saveFailed(const FailedSave& failed) override { machine_.saveFailed(failed); }
  bool startsWithout(const BrokenGrid& grid) override { return machine_.startsWithout(grid); }

  /// Runs something whose message boxes nobody needs to see.
  void quietly(const std::function<void()>& something);

  /// The name that a file dialog begins with.
  std::function<std::string(const FileQuestion&)> suggestName;
  /// A file dialog was answered with a file, of which nothing is done yet.
  std::function<void(const std::string& path)> onAnswered;
  /// Shows the help that is on this machine.
  std::function<void()> onHelp;
  /// The last answer of a file dialog, until someone resets it.
  std::optional<std::string> answered;

 private:
  Platform& machine_;
  bool quiet_ = false;
};

}  // namespace korvane
