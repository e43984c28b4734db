#include "hosts/console/Stand.h"

#include "commands/ConsoleHost.h"
#include "desk/whole/Desk.h"
#include "platform/TextFile.h"

namespace korvane {
namespace {

class PlainStand : public Stand {
 public:
  PlainStand(Platform& platform, NetworkOutput& output, const std::string& base,
             std::int32_t channels)
      : base_(base), output_(output), host_({fileTitle(base), base}, channels), plugin_(platform) {
    host_.onChannel = [this](std::int32_t channel, std::int32_t value) {
      output_.setChannel(channel, static_cast<std::uint8_t>(value));
    };
  }

  Plugin& plugin() override { return plugin_; }
  Host& host() override { return host_; }
  HostCalls& calls() override { return host_.calls; }
  void use(const OutputTarget& target) override { output_.start(target); }
  void settle() override { output_.endOfPass(); }
  void start(bool closed) override {
    plugin_.plugIn.ITharnModule_ModuleInfo();
    plugin_.plugIn.ITharnPlugin_Init("korvane-console", base_, host_);
    if (!closed) plugin_.engine.desktop.show(plugin_.matrixForm);
  }

 private:
  std::string base_;
  NetworkOutput& output_;
  ConsoleHost host_;
  Plugin plugin_;
};

class DeskStand : public Stand {
 public:
  DeskStand(Platform& platform, NetworkOutput& output, const std::string& base)
      : desk_(platform, output, {base}) {
    desk_.session.host.onPass = [this] { calls_.add(HostCall::userInteraction()); };
    desk_.session.host.onCall = [this](std::int32_t channel, std::int32_t value) {
      calls_.add(HostCall::setChannel(channel, value));
    };
  }

  Plugin& plugin() override { return desk_.session.plugin; }
  Host& host() override { return desk_.session.host; }
  HostCalls& calls() override { return calls_; }
  void use(const OutputTarget& target) override { desk_.setup.use(target); }
  void settle() override { desk_.refresh(); }
  void start(bool closed) override {
    desk_.show();
    if (!closed) desk_.session.openTool();
    desk_.refresh();
  }

 private:
  HostCalls calls_{ConsoleHost::kMostCalls};
  Desk desk_;
};

}  // namespace

std::unique_ptr<Stand> makePlainStand(Platform& platform, NetworkOutput& output,
                                      const std::string& base, std::int32_t channels) {
  return std::make_unique<PlainStand>(platform, output, base, channels);
}

std::unique_ptr<Stand> makeDeskStand(Platform& platform, NetworkOutput& output,
                                     const std::string& base) {
  return std::make_unique<DeskStand>(platform, output, base);
}

}  // namespace korvane
