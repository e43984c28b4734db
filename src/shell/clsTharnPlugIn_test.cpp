#include "shell/clsTharnPlugIn.h"

#include "testing/TestPlugin.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

class PlugInClass : public TestPlugin {
 protected:
  std::int32_t message(std::int32_t number, std::int32_t arg1 = 0) {
    std::int32_t answer = -1;
    event([&] { answer = plugin.plugIn.ITharnPlugin_MessageHandle(number, arg1, 0); });
    return answer;
  }
  bool framesVisible() {
    MatrixForm& form = plugin.matrixForm;
    int visible = 0;
    for (const Group* frame :
         {&form.panelA.frame, &form.panelB.frame, &form.FrameX, &form.FrameXX, &form.FrameG}) {
      visible += frame->look().visible ? 1 : 0;
    }
    EXPECT_TRUE(visible == 0 || visible == 5);
    return visible == 5;
  }
};

TEST_F(PlugInClass, ModuleInfoHoldsItsFieldsInOrder) {
  const ModuleInfo info = plugin.plugIn.ITharnModule_ModuleInfo();
  EXPECT_EQ(info.identity, "{70014daa-4c46-11da-9507-00e17161165f}");
  EXPECT_EQ(info.name, "Matrix");
  EXPECT_EQ(info.description, "Matrix, Version 2.9.2");
  EXPECT_FALSE(info.author.empty());
  EXPECT_EQ(info.number5, 0);
  EXPECT_EQ(info.flag6.raw(), -1);
  EXPECT_EQ(info.number7, 2);
  EXPECT_EQ(info.toolName, "MatrixForm");
  EXPECT_EQ(info.tool, &plugin.matrixForm);
  EXPECT_EQ(info.number10, 0);
  EXPECT_EQ(info.number11, 0);
  EXPECT_EQ(info.flag12.raw(), -1);
  EXPECT_EQ(info.flag13.raw(), -1);
  EXPECT_EQ(info.messages, (std::vector<std::int32_t>{9, 14, 35, 31}));
}

TEST_F(PlugInClass, InitKeepsTheHostReadsItsChannelsAndClearsTheBeats) {
  v.beatOnA = v.beatOnB = v.beatControlSeen = true;
  host.channels = 1024;
  EXPECT_TRUE(plugin.plugIn.ITharnPlugin_Init("", "", host));
  EXPECT_EQ(v.host, &host);
  EXPECT_EQ(v.maxChannels, 1024);
  EXPECT_FALSE(v.beatOnA);
  EXPECT_FALSE(v.beatOnB);
  EXPECT_FALSE(v.beatControlSeen);
  EXPECT_FALSE(plugin.matrixForm.loaded());
}

TEST_F(PlugInClass, DisableAnswersFalseAndTheOthersTrue) {
  EXPECT_FALSE(plugin.plugIn.ITharnPlugin_Disable());
  EXPECT_TRUE(plugin.plugIn.ITharnPlugin_Enable());
  EXPECT_TRUE(plugin.plugIn.ITharnPlugin_Term());
  EXPECT_TRUE(plugin.plugIn.ITharnPlugin_Configure());
  EXPECT_EQ(plugin.plugIn.ITharnPlugin_PluginName(), "Matrix");
}

TEST_F(PlugInClass, ConfigureShowsTheGridWithoutWaiting) {
  plugin.plugIn.ITharnPlugin_Configure();
  EXPECT_TRUE(plugin.matrixConf.visible());
  EXPECT_EQ(engine.desktop.modal(), nullptr);
}

TEST_F(PlugInClass, ABeatWhileNoDeckIsInBeatModeDoesNothing) {
  ASSERT_TRUE(open());
  plugin.matrixForm.active.setValue(1);
  takeCalls();
  EXPECT_EQ(message(kMessageBeat), 0);
  EXPECT_EQ(takeCalls(), Texts{});
}

TEST_F(PlugInClass, BlackoutAndFreezeAreAnsweredInWordsAlone) {
  ASSERT_TRUE(open());
  plugin.matrixForm.active.setValue(1);
  takeCalls();
  EXPECT_EQ(message(kMessageBlackout), 0);
  EXPECT_EQ(message(kMessageFreeze), 0);
  EXPECT_EQ(takeBoxes(), (Texts{"Blackout", "Freeze"}));
  EXPECT_EQ(takeCalls(), Texts{});
}

TEST_F(PlugInClass, OnlyAViewChangeToOneHidesTheFiveFrames) {
  ASSERT_TRUE(open());
  EXPECT_EQ(message(kMessageViewChange, 1), 0);
  EXPECT_FALSE(framesVisible());
  EXPECT_EQ(plugin.matrixForm.width(), 6000);
  for (const std::int32_t other : {0, 2}) {
    message(kMessageViewChange, 1);
    message(kMessageViewChange, other);
    EXPECT_TRUE(framesVisible());
    EXPECT_EQ(plugin.matrixForm.width(), 8200);
  }
}

TEST_F(PlugInClass, UnknownMessagesAreIgnored) { EXPECT_EQ(message(77), 0); }

TEST_F(PlugInClass, LoadProjectDataAsksOnlyIfNoDefinitionExists) {
  writeFile(folder + "/other.korvaneconf", "x\r\n1,1,False\r\n1,2,3\r\n");
  ASSERT_TRUE(open());
  event([&] { plugin.matrixForm.ITharnTool_LoadProjectData(); });
  EXPECT_TRUE(platform.questions.empty());
  v.matrixConfigured = false;
  platform.answers.emplace_back(folder + "/other.korvaneconf");
  event([&] { plugin.matrixForm.ITharnTool_LoadProjectData(); });
  EXPECT_EQ(v.matrixCols, 1);
}

TEST_F(PlugInClass, SaveProjectDataAsksEveryTime) {
  ASSERT_TRUE(open());
  event([&] { plugin.matrixForm.ITharnTool_SaveProjectData(); });
  event([&] { plugin.matrixForm.ITharnTool_SaveProjectData(); });
  EXPECT_EQ(platform.questions.size(), 2U);
}

TEST_F(PlugInClass, OpeningTheToolBeforeInitIsAFailureThatIsReported) {
  HeadlessPlatform machine;
  Plugin fresh{machine};
  EXPECT_FALSE(runEvent(machine, [&] { fresh.engine.desktop.show(fresh.matrixForm); }));
  EXPECT_EQ(machine.failures.at(0).number, kObjectNotSet);
}

TEST_F(PlugInClass, TwoPluginsLiveSideBySide) {
  ASSERT_TRUE(open());
  HeadlessPlatform machine;
  FakeHost otherHost;
  otherHost.baseFilename = folder + "/second";
  Plugin second{machine};
  second.plugIn.ITharnPlugin_Init("", "", otherHost);
  runEvent(machine, [&] { second.engine.desktop.show(second.matrixForm); });
  move(second.engine.master.faderM, 100);
  EXPECT_EQ(v.masterValue, 0.5);
  EXPECT_EQ(second.engine.v.masterValue, 1);
}

}  // namespace
}  // namespace korvane
