#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "state/Engine.h"
#include "state/Host.h"
#include "windows/MatrixForm.h"

namespace korvane {

/// What the desk learns of the plug-in: the fourteen fields in the desk's order. The meaning of the
/// plain numbers and flags is the desk's.
struct ModuleInfo {
  std::string identity;  ///< GUID as text
  std::string name;
  std::string description;  ///< with the version
  std::string author;
  std::int32_t number5 = 0;
  Boolean flag6 = true;
  std::int32_t number7 = 2;
  std::string toolName;        ///< of the tool window
  MatrixForm* tool = nullptr;  ///< the tool object itself
  std::int32_t number10 = 0;
  std::int32_t number11 = 0;
  Boolean flag12 = true;
  Boolean flag13 = true;
  std::vector<std::int32_t> messages;  ///< numbers of the messages that the plug-in wants
};

/// Messages of the desk that the plug-in answers.
inline constexpr std::int32_t kMessageBeat = 9;
inline constexpr std::int32_t kMessageBlackout = 14;
inline constexpr std::int32_t kMessageViewChange = 31;
inline constexpr std::int32_t kMessageFreeze = 35;

/// The class that the desk creates. It keeps no state: what the calls deliver goes to the shared
/// state. Order of calls: ModuleInfo, Init, then the desk opens the tool window.
/// [window thread, between timer ticks]
class clsTharnPlugIn {
 public:
  clsTharnPlugIn(Engine& engine, MatrixForm& tool, MatrixConf& conf)
      : engine_(engine), tool_(tool), conf_(conf) {}

  std::string PluginName() const { return "Matrix"; }

  /// A new one at each call.
  ModuleInfo ITharnModule_ModuleInfo();
  /// Keeps the desk's helper object, which must stay until another one is given; true.
  bool ITharnPlugin_Init(const std::string& CallingAppTitle, const std::string& MyFilename,
                         Host& TharnPluginHelper);
  /// Shows the window that defines the grid, without waiting for it; true.
  bool ITharnPlugin_Configure();
  bool ITharnPlugin_Enable() { return true; }
  bool ITharnPlugin_Disable() { return false; }
  /// The windows are not closed here; true.
  bool ITharnPlugin_Term() { return true; }
  std::string ITharnPlugin_PluginName() const { return PluginName(); }
  /// Always 0; messages that the plug-in doesn't know are ignored, arg2 is not read.
  std::int32_t ITharnPlugin_MessageHandle(std::int32_t Msg, std::int32_t arg1, std::int32_t arg2);

 private:
  void beat();

  Engine& engine_;
  MatrixForm& tool_;
  MatrixConf& conf_;
};

}  // namespace korvane
