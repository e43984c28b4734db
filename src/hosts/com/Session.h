#pragma once

#include <ole2.h>
#include <wrl/client.h>

#include <memory>
#include <string>

#include "commands/Interpreter.h"
#include "hosts/com/ComHost.h"
#include "hosts/com/Component.h"
#include "hosts/com/Machine.h"
#include "hosts/com/ScriptPlatform.h"
#include "hosts/com/Turn.h"
#include "shell/Plugin.h"

namespace korvane {

class ToolObject;

/// The plug-in with the desk and the machine around it. All objects of one thread share one, which
/// goes with the last of them: the windows exist once, whichever object the desk asks.
class Session {
 public:
  static std::shared_ptr<Session> ofThisThread();

  ITypeLib& types() { return *types_.Get(); }
  Plugin& plugin() { return plugin_; }
  ComHost& host() { return host_; }
  /// Carries out a console command; its reply, empty for a line that is passed over.
  std::string run(const std::string& command);

  ToolObject* tool = nullptr;  ///< the object that stands for the main window, if there is one

 private:
  Session();
  ~Session() = default;
  Console console();

  static void end(Session* session);
  static void CALLBACK endLater(HWND, UINT, UINT_PTR timer, DWORD);

  const ComponentLock lock_;
  const Microsoft::WRL::ComPtr<ITypeLib> types_;
  Turn turn_;
  const std::unique_ptr<Machine> machine_ = makeMachine();
  ScriptPlatform platform_{machine_->services(), turn_};
  ComHost host_{turn_};
  Plugin plugin_{platform_};
  Interpreter interpreter_{console()};
  const std::unique_ptr<Machine::View> view_ = machine_->show(plugin_.engine);
};

}  // namespace korvane
