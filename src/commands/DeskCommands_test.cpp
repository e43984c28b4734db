#include "commands/ConsolePlatform.h"
#include "commands/Operations.h"
#include "commands/TestConsole.h"
#include "platform/Failure.h"

namespace korvane {
namespace {

TEST_F(TestConsole, OpenShowsTheToolWindowAgain) {
  expect({{"close Demo", kOk, {"Demo close", "Surface activate"}},
          {"open", kOk, {"Demo activate"}},
          {"open", kOk}});
}

TEST_F(TestConsole, OpenTellsOfALoadThatFailsAndCanBeRepeated) {
  Form broken("Broken", "");
  bool works = false;
  broken.onLoad = [&] {
    if (!works) throw Failure(kFileNotFound, "x");
  };
  engine.desktop.add(broken);
  engine.mainWindow = &broken;
  expect({{"open", R"({"ok":false,"failure":{"number":53,"text":"File not found: x"}})"}});
  works = true;
  expect({{"open", kOk}});
  EXPECT_TRUE(broken.visible());
}

TEST_F(TestConsole, AdvanceFiresTimersInTheOrderOfTheirDueTimes) {
  Timer slow(engine.timers, "slow"), quick(engine.timers, "quick"), same(engine.timers, "same");
  const auto tick = [this](const char* name) {
    return [this, name] { log.push_back(name + (" " + std::to_string(engine.timers.now()))); };
  };
  slow.onTimer = tick("slow");
  quick.onTimer = tick("quick");
  same.onTimer = tick("same");
  slow.setInterval(30);
  quick.setInterval(10);
  same.setInterval(10);
  same.enable();
  quick.enable();
  slow.enable();
  expect(
      {{"advance 9", R"({"ok":true,"now":9})"},
       {"advance 11", R"({"ok":true,"now":20})", {"same 10", "quick 10", "same 20", "quick 20"}},
       {"now", R"({"ok":true,"now":20})"},
       {"advance 0", R"({"ok":true,"now":20})"},
       {"advance 10", R"({"ok":true,"now":30})", {"same 30", "quick 30", "slow 30"}},
       {"timers", R"({"ok":true,"timers":{"timerA1":{"enabled":false,"interval":1000},)"
                  R"("timerA2":{"enabled":false,"interval":1000},)"
                  R"("timerB1":{"enabled":false,"interval":1000},)"
                  R"("timerB2":{"enabled":false,"interval":1000},)"
                  R"("timerM":{"enabled":false,"interval":1000},)"
                  R"("timerM2":{"enabled":false,"interval":1000},)"
                  R"("slow":{"enabled":true,"interval":30},"quick":{"enabled":true,"interval":10},)"
                  R"("same":{"enabled":true,"interval":10}}})"}});
}

TEST_F(TestConsole, AdvanceCollectsTheFailuresOfTicksAndGoesOn) {
  Timer timer(engine.timers, "timer");
  timer.setInterval(10);
  timer.onTimer = [this] {
    log.emplace_back("tick");
    throw Failure(kSubscript, std::to_string(engine.timers.now()));
  };
  timer.enable();
  expect({{"advance 25",
           R"({"ok":true,"now":25,"failures":[)"
           R"({"number":9,"text":"Subscript out of range: 10"},)"
           R"({"number":9,"text":"Subscript out of range: 20"}]})",
           {"tick", "tick"}},
          {"advance 1", R"({"ok":true,"now":26})"},
          {"advance -1", R"({"ok":false,"error":"MS must be 0 to 2147483647, not -1."})"},
          {"advance 1e3", R"({"ok":false,"error":"MS must be a whole number, not '1e3'."})"},
          {"advance 99999999999999999999",
           R"({"ok":false,"error":"MS must be a whole number, not '99999999999999999999'."})"}});
}

TEST_F(TestConsole, CommandsCheckTheirNumberOfArguments) {
  expect({{"advance", R"({"ok":false,"error":"'advance' takes MS."})"},
          {"advance 1 2", R"({"ok":false,"error":"'advance' takes MS."})"},
          {"now then", R"({"ok":false,"error":"'now' takes no argument."})"},
          {"pick Demo.table", R"({"ok":false,"error":"'pick' takes NAME ROW [COL]."})"},
          {"pick Demo.table 0 0 0", R"({"ok":false,"error":"'pick' takes NAME ROW [COL]."})"},
          {"call", R"({"ok":false,"error":"'call' takes OPERATION [ARG...]."})"},
          {"message", R"({"ok":false,"error":"'message' takes MSG [ARG1 ARG2]."})"}});
}

TEST_F(TestConsole, UnknownCommandsAreErrors) {
  expect({{"jump", R"({"ok":false,"error":"There is no command 'jump'."})"},
          {"CLICK Demo.go", R"({"ok":false,"error":"There is no command 'CLICK'."})"},
          {"\"\"", R"({"ok":false,"error":"There is no command ''."})"},
          {"\"click", R"({"ok":false,"error":"The text '\"click' has no closing quote."})"}});
  EXPECT_FALSE(interpreter.allOk());
}

TEST_F(TestConsole, LinesWithoutACommandHaveNoReply) {
  for (const char* line : {"", "  ", "# click Demo.go"})
    EXPECT_EQ(interpreter.answer(line), std::nullopt) << line;
  EXPECT_TRUE(interpreter.allOk());
}

TEST_F(TestConsole, QuitEnds) {
  EXPECT_FALSE(interpreter.ended());
  expect({{"quit", kOk}});
  EXPECT_TRUE(interpreter.ended());
  EXPECT_TRUE(interpreter.allOk());
}

TEST_F(TestConsole, PutStoresAColorAndNothingMore) {
  engine.v.frameA.redim(2, 1);
  engine.v.frameB.redim(2, 1);
  expect({{"put A 1 0 12abEF", kOk},
          {"frame A", R"({"ok":true,"cols":2,"rows":1,"cells":[["000000","12ABEF"]]})"},
          {"frame B", R"({"ok":true,"cols":2,"rows":1,"cells":[["000000","000000"]]})"},
          {"put B 0 0 0000FF", kOk},
          {"frame B", R"({"ok":true,"cols":2,"rows":1,"cells":[["0000FF","000000"]]})"},
          {"put M 0 0 000000", R"({"ok":false,"error":"The deck must be A or B, not 'M'."})"},
          {"put A 2 0 000000", R"({"ok":false,"error":"COL must be 0 to 1, not 2."})"},
          {"put A 0 1 000000", R"({"ok":false,"error":"ROW must be 0 to 0, not 1."})"},
          {"put A 0 0 red",
           R"({"ok":false,"error":"COLOR must be six hex digits RRGGBB, not 'red'."})"},
          {"put A 0 0 -12345",
           R"({"ok":false,"error":"COLOR must be six hex digits RRGGBB, not '-12345'."})"}});
  EXPECT_TRUE(host.calls.all().empty());
}

TEST_F(TestConsole, PutNeedsAFrame) {
  expect({{"put A 0 0 000000", R"({"ok":false,"error":"There is no COL to choose from."})"}});
}

/// The operations of a real plug-in.
class Operations : public testing::Test {
 protected:
  Operations() { plugin.plugIn.ITharnPlugin_Init("", "", host); }
  std::string reply(const char* line) { return interpreter.answer(line).value_or("none"); }

  ConsolePlatform platform;
  ConsoleHost host{{"show", "/shows/show"}, 300};
  Plugin plugin{platform};
  Interpreter interpreter{
      {plugin.engine, platform, host.calls, operationsOf(plugin, host), nullptr}};
};

TEST_F(Operations, OfThePlugInClass) {
  const std::pair<const char*, const char*> cases[] = {
      {"call PluginName", R"({"ok":true,"result":"Matrix"})"},
      {"call ITharnPlugin_PluginName", R"({"ok":true,"result":"Matrix"})"},
      {"call ITharnPlugin_Init desk korvane", R"({"ok":true,"result":true})"},
      {"call ITharnPlugin_Enable", R"({"ok":true,"result":true})"},
      {"call ITharnPlugin_Disable", R"({"ok":true,"result":false})"},
      {"call ITharnPlugin_Term", R"({"ok":true,"result":true})"},
      {"call ITharnPlugin_MessageHandle 1 2 3", R"({"ok":true,"result":0})"},
      {"call ITharnPlugin_Configure", R"({"ok":true,"result":true})"},
      {"value maxChannels", R"({"ok":true,"value":300})"}};
  for (const auto& [line, expected] : cases) EXPECT_EQ(reply(line), expected) << line;
}

TEST_F(Operations, ModuleInformationIsItsFieldsInOrder) {
  EXPECT_EQ(reply("call ITharnModule_ModuleInfo"),
            R"({"ok":true,"result":["{70014daa-4c46-11da-9507-00e17161165f}","Matrix",)"
            R"("Matrix, Version 2.9.2","The Korvane developers",0,true,2,"MatrixForm",)"
            R"("MatrixForm",0,0,true,true,[9,14,35,31]]})");
}

TEST_F(Operations, OfTheToolWindow) {
  const std::pair<const char*, const char*> cases[] = {
      {"call ITharnTool_AskToSaveProjectData", R"({"ok":true,"result":true})"},
      {"call ITharnTool_ClearProjectData", R"({"ok":true,"result":null})"},
      {"call ITharnTool_LoadProjectData", R"({"ok":true,"result":null})"},
      {"call ITharnTool_SaveProjectData", R"({"ok":true,"result":null})"},
      {"call ITharnTool_ViewMode -7", R"({"ok":true,"result":null})"},
      {"value viewMode", R"({"ok":true,"value":-7})"}};
  for (const auto& [line, expected] : cases) EXPECT_EQ(reply(line), expected) << line;
  EXPECT_EQ(platform.questions.size(), 2U) << "load and save asked for a file";
}

TEST_F(Operations, CheckTheirArguments) {
  const std::pair<const char*, const char*> cases[] = {
      {"call Nothing", R"({"ok":false,"error":"There is no operation 'Nothing'."})"},
      {"call ITharnPlugin_Term now",
       R"({"ok":false,"error":"'ITharnPlugin_Term' takes no argument."})"},
      {"call ITharnTool_ViewMode", R"({"ok":false,"error":"'ITharnTool_ViewMode' takes VALUE."})"},
      {"call ITharnTool_ViewMode wide",
       R"({"ok":false,"error":"VALUE must be a whole number, not 'wide'."})"},
      {"call ITharnTool_ViewMode 2147483648",
       R"({"ok":false,"error":"VALUE must be -2147483648 to 2147483647, not 2147483648."})"},
      {"call ITharnPlugin_MessageHandle 9",
       R"({"ok":false,"error":"'ITharnPlugin_MessageHandle' takes MSG ARG1 ARG2."})"},
      {"message nine", R"({"ok":false,"error":"MSG must be a whole number, not 'nine'."})"},
      {"message 9 x 0", R"({"ok":false,"error":"ARG1 must be a whole number, not 'x'."})"}};
  for (const auto& [line, expected] : cases) EXPECT_EQ(reply(line), expected) << line;
}

TEST_F(Operations, MessagesReachThePlugIn) {
  const std::pair<const char*, const char*> cases[] = {
      {"message 14", R"({"ok":true,"result":0})"},
      {"message 35 1 2", R"({"ok":true,"result":0})"},
      {"beat", R"({"ok":true,"result":0})"},
      {"boxes", R"({"ok":true,"boxes":["Blackout","Freeze"]})"},
      {"boxes", R"({"ok":true,"boxes":[]})"},
      {"message 31 1 0", R"({"ok":true,"result":0})"}};
  for (const auto& [line, expected] : cases) EXPECT_EQ(reply(line), expected) << line;
  EXPECT_EQ(plugin.matrixForm.width(), 6000);
}

}  // namespace
}  // namespace korvane
