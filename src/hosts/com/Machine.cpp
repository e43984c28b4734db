#include "hosts/com/Machine.h"

#include "views/win32/View.h"
#include "views/win32/machine/WinPlatform.h"

namespace korvane {
namespace {

class Screen : public Machine {
 public:
  Platform& services() override { return platform_; }
  std::unique_ptr<View> show(Engine& engine) override { return std::make_unique<Shown>(engine); }

 private:
  struct Shown : View {
    explicit Shown(Engine& engine) : view(engine) {}
    win32::WinView view;
  };

  win32::WinPlatform platform_;
};

}  // namespace

std::unique_ptr<Machine> makeMachine() { return std::make_unique<Screen>(); }

}  // namespace korvane
