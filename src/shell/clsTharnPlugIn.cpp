#include "shell/clsTharnPlugIn.h"

#include "generators/kit/BeatCode.h"

namespace korvane {

ModuleInfo clsTharnPlugIn::ITharnModule_ModuleInfo() {
  ModuleInfo info;
  info.identity = "{70014daa-4c46-11da-9507-00e17161165f}";
  info.name = "Matrix";
  info.description = "Matrix, Version 2.9.2";
  info.author = "The Korvane developers";
  info.toolName = tool_.name();
  info.tool = &tool_;
  info.messages = {kMessageBeat, kMessageBlackout, kMessageFreeze, kMessageViewChange};
  return info;
}

bool clsTharnPlugIn::ITharnPlugin_Init(const std::string&, const std::string&,
                                       Host& TharnPluginHelper) {
  engine_.v.host = &TharnPluginHelper;
  engine_.v.maxChannels = TharnPluginHelper.ChannelMAXCHANNELS();
  engine_.v.beatControlSeen = false;
  engine_.v.beatOnA = false;
  engine_.v.beatOnB = false;
  return true;
}

bool clsTharnPlugIn::ITharnPlugin_Configure() {
  engine_.desktop.show(conf_);
  return true;
}

// Blackout and freeze are answered with a message box alone: the mixing and the timers go on behind
// it (docs/kept.md, blackout-words).
std::int32_t clsTharnPlugIn::ITharnPlugin_MessageHandle(std::int32_t Msg, std::int32_t arg1,
                                                        std::int32_t) {
  switch (Msg) {
    case kMessageBeat:
      beat();
      break;
    case kMessageBlackout:
      engine_.platform.messageBox("Blackout");
      break;
    case kMessageFreeze:
      engine_.platform.messageBox("Freeze");
      break;
    case kMessageViewChange:
      tool_.showNarrow(arg1 == 1);
      break;
    default:
      break;
  }
  return 0;
}

void clsTharnPlugIn::beat() {
  for (Deck* deck : {&engine_.v.A, &engine_.v.B}) {
    if (deck->beatOn) beatStep(engine_, *deck);
  }
}

}  // namespace korvane
