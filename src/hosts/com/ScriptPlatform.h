#pragma once

#include "hosts/com/Turn.h"
#include "platform/HeadlessPlatform.h"

namespace korvane {

/// The machine as the plug-in sees it. While a script has the turn, message boxes are kept for it
/// and file dialogs take its answers; otherwise a person sees and answers them.
class ScriptPlatform : public HeadlessPlatform {
 public:
  ScriptPlatform(Platform& machine, Turn& turn) : machine_(machine), turn_(turn) {}

  void messageBox(const std::string& text) override;
  std::optional<std::string> askFile(const FileQuestion& question) override;
  Raster loadPicture(const std::string& path) override { return machine_.loadPicture(path); }
  std::int64_t timeOfDay() override { return machine_.timeOfDay(); }
  NumberFormat numberFormat() override { return machine_.numberFormat(); }
  void openPage(const std::string& address) override { machine_.openPage(address); }
  void failed(const Failure& failure) override;

 private:
  Platform& machine_;
  Turn& turn_;
};

}  // namespace korvane
