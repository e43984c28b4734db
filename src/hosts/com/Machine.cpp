#include "hosts/com/Machine.h"

#include "platform/HeadlessPlatform.h"

namespace korvane {
namespace {

class Headless : public Machine {
 public:
  Platform& services() override { return platform_; }
  std::unique_ptr<View> show(Engine&) override { return std::make_unique<View>(); }

 private:
  HeadlessPlatform platform_;
};

}  // namespace

std::unique_ptr<Machine> makeMachine() { return std::make_unique<Headless>(); }

}  // namespace korvane
