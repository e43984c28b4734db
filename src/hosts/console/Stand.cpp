#include "hosts/console/Stand.h"

#include "commands/ConsoleHost.h"
#include "desk/output/LampFeed.h"
#include "desk/whole/Desk.h"
#include "platform/TextFile.h"

namespace korvane {
namespace {

class PlainStand : public Stand {
 public:
  PlainStand(Platform& platform, const std::string& base, std::int32_t channels)
      : base_(base), host_({fileTitle(base), base}, channels), plugin_(platform) {
    host_.onPass = [this] { feed_.announce(); };
  }

  Plugin& plugin() override { return plugin_; }
  Host& host() override { return host_; }
  HostCalls& calls() override { return host_.calls; }
  void send(const OutputConfig& output) override { feed_.outputs.add(output).switchOn(); }
  bool sending() override { return !feed_.outputs.empty(); }
  std::vector<std::string> news() override { return feed_.news(); }
  void end() override { feed_.outputs.switchAllOff(); }
  void settle() override { feed_.endOfPass(plugin_.engine.v); }
  void start(bool closed) override {
    plugin_.plugIn.ITharnModule_ModuleInfo();
    plugin_.plugIn.ITharnPlugin_Init("korvane-console", base_, host_);
    if (!closed) plugin_.engine.desktop.show(plugin_.matrixForm);
  }

 private:
  std::string base_;
  ConsoleHost host_;
  LampFeed feed_{"korvane-console"};
  Plugin plugin_;
};

class DeskStand : public Stand {
 public:
  DeskStand(Platform& platform, const std::string& base) : desk_(platform, feed_, {base}) {
    desk_.session.host.onPass = [this, own = desk_.session.host.onPass] {
      calls_.add(HostCall::userInteraction());
      own();
    };
    desk_.session.host.onCall = [this](std::int32_t channel, std::int32_t value) {
      calls_.add(HostCall::setChannel(channel, value));
    };
  }

  Plugin& plugin() override { return desk_.session.plugin; }
  Host& host() override { return desk_.session.host; }
  HostCalls& calls() override { return calls_; }
  bool sending() override { return desk_.setup.sending(); }
  std::vector<std::string> news() override { return feed_.news(); }
  void end() override { feed_.outputs.switchAllOff(); }
  void settle() override { desk_.settle(); }
  void refresh() override { desk_.refresh(); }
  void send(const OutputConfig& output) override { desk_.setup.use(output); }
  void start(bool closed) override {
    desk_.show();
    if (!closed) desk_.session.openTool();
    desk_.refresh();
  }

 private:
  HostCalls calls_{ConsoleHost::kMostCalls};
  LampFeed feed_{"korvane-console"};
  Desk desk_;
};

}  // namespace

std::unique_ptr<Stand> makePlainStand(Platform& platform, const std::string& base,
                                      std::int32_t channels) {
  return std::make_unique<PlainStand>(platform, base, channels);
}

std::unique_ptr<Stand> makeDeskStand(Platform& platform, const std::string& base) {
  return std::make_unique<DeskStand>(platform, base);
}

}  // namespace korvane
