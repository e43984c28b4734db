// Runs the real program: its options, its exit statuses and its clocks.

#include "commands/Json.h"
#include "hosts/console/TestProgram.h"
#include "testing/SourceFolder.h"

namespace korvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST_F(Program, EndsWith0WhenEveryCommandWasOk) {
  const Result result = run("", "now\n# comment\n\nvalue masterValue\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.replies, ElementsAre(R"({"ok":true,"now":0})", R"({"ok":true,"value":0.5})"));
  EXPECT_EQ(result.complaint, "");
}

TEST_F(Program, EndsWith0WithoutCommands) { EXPECT_EQ(run("", "").status, 0); }

TEST_F(Program, EndsWith1WhenACommandWasNotOk) {
  const Result result = run("", "jump\nnow\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.replies, ElementsAre(R"({"ok":false,"error":"There is no command 'jump'."})",
                                          R"({"ok":true,"now":0})"));
}

TEST_F(Program, EndsWith2ForWrongUsage) {
  const std::pair<const char*, const char*> cases[] = {
      {"--fast", "korvane-console: there is no option --fast; --help tells the usage\n"},
      {"-x", "korvane-console: there is no option -x; --help tells the usage\n"},
      {"--seed", "korvane-console: --seed needs a value; --help tells the usage\n"},
      {"--seed x",
       "korvane-console: --seed must be a whole number, 0 to 9223372036854775807, "
       "not 'x'; --help tells the usage\n"},
      {"--seed -1",
       "korvane-console: --seed must be a whole number, 0 to 9223372036854775807, "
       "not '-1'; --help tells the usage\n"},
      {"--channels 70000",
       "korvane-console: --channels must be a whole number, 0 to 65536, "
       "not '70000'; --help tells the usage\n"},
      {"--clock slow",
       "korvane-console: --clock must be real or virtual, not 'slow'; --help tells the usage\n"},
      {"--decimal dot",
       "korvane-console: --decimal must be comma or point, not 'dot'; --help tells the usage\n"},
      {"--base shows/",
       "korvane-console: --base needs a name at its end, not 'shows/'; "
       "--help tells the usage\n"},
      {"--output smoke:1",
       "korvane-console: output 'smoke:1': unknown protocol 'smoke', expected sacn, "
       "artnet, ddp or ola; --help tells the usage\n"},
      {"a b", "korvane-console: there is one script too many: b; --help tells the usage\n"},
  };
  for (const auto& [options, complaint] : cases) {
    const Result result = run(options, "now\n");
    EXPECT_EQ(result.status, 2) << options;
    EXPECT_THAT(result.replies, IsEmpty()) << options;
    EXPECT_EQ(result.complaint, complaint);
  }
}

TEST_F(Program, EndsWith3WhenTheScriptCanNotBeRead) {
  for (const char* script : {"missing.txt", "."}) {
    const Result result = run(script, "now\n");
    EXPECT_EQ(result.status, 3) << script;
    EXPECT_THAT(result.replies, IsEmpty());
    EXPECT_THAT(result.complaint, StartsWith("korvane-console: the "));
  }
}

TEST_F(Program, HelpIsPrinted) {
  const Result result = run("--help", "");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.replies.at(0), "usage: korvane-console [options] [SCRIPT]");
}

TEST_F(Program, ReadsAScriptInPlaceOfStandardInput) {
  write("script.txt", "advance 5\r\nnow");
  EXPECT_THAT(run("script.txt", "jump\n").replies,
              ElementsAre(R"({"ok":true,"now":5})", R"({"ok":true,"now":5})"));
}

TEST_F(Program, QuitEndsBeforeTheInputDoes) {
  const Result result = run("", "quit\njump\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.replies, ElementsAre(R"({"ok":true})"));
}

TEST_F(Program, OpensTheToolWindowUnlessClosed) {
  const auto visible = [](const Result& result) {
    return Json::parse(result.replies.at(0))["visible"].get<bool>();
  };
  EXPECT_TRUE(visible(run("", "get MatrixForm\n")));
  EXPECT_FALSE(visible(run("--closed", "get MatrixForm\n")));
  EXPECT_THAT(run("--closed", "click MatrixForm.addA\nopen\nclick MatrixForm.addA\n").replies,
              ElementsAre(R"({"ok":false,"error":"The window MatrixForm is hidden."})",
                          R"({"ok":true})", R"({"ok":true})"));
}

TEST_F(Program, BaseIsTheProject) {
  const char* const looks =
      "value projectBaseFilename\nvalue projectName\nvalue projectDirectory\n";
  EXPECT_THAT(run("--base shows/night", looks).replies,
              ElementsAre(R"({"ok":true,"value":"shows/night"})", R"({"ok":true,"value":"night"})",
                          R"({"ok":true,"value":"shows/"})"));
  const std::string here = std::filesystem::canonical(folder).string();
  EXPECT_THAT(run("", looks).replies,
              ElementsAre(R"({"ok":true,"value":")" + here + R"(/untitled"})",
                          R"({"ok":true,"value":"untitled"})",
                          R"({"ok":true,"value":")" + here + R"(/"})"));
}

TEST_F(Program, ABrokenDefinitionIsToldAndTheDeskGoesOn) {
  write("untitled.korvaneconf", "broken\r\n");
  const Result result = run("", "now\nopen\n");
  EXPECT_THAT(result.complaint, StartsWith("korvane-console: Input past end of file"));
  EXPECT_EQ(result.replies.at(0), R"({"ok":true,"now":0})");
  EXPECT_THAT(result.replies.at(1), StartsWith(R"({"ok":false,"failure":{"number":62,)"));
}

TEST_F(Program, ChannelsAreTheDesks) {
  EXPECT_THAT(run("", "value maxChannels\n").replies, ElementsAre(R"({"ok":true,"value":512})"));
  EXPECT_THAT(run("--channels 24", "value maxChannels\n").replies,
              ElementsAre(R"({"ok":true,"value":24})"));
}

TEST_F(Program, DecimalIsTheLocales) {
  const auto time = [](const Result& result) {
    return Json::parse(result.replies.at(0))["text"].get<std::string>();
  };
  const char* const look = "get MatrixForm.fadeTimeText\n";
  EXPECT_EQ(time(run("--decimal comma", look)), "3,00");
  EXPECT_EQ(time(run("--decimal point", look)), "3.00");
  EXPECT_EQ(time(run("", look, "LC_ALL=C")), "3.00");
}

TEST_F(Program, DecimalOfAGermanEnvironmentIsAComma) {
  const std::string make = "localedef -i de_DE -f UTF-8 " + folder + "/de_DE.UTF-8 2>/dev/null";
  if (std::system(make.c_str()) != 0) GTEST_SKIP() << "localedef can't make a German locale here";
  const Result result = run("", "get MatrixForm.fadeTimeText\n",
                            "env -u LC_ALL LOCPATH=" + folder + " LC_NUMERIC=de_DE.UTF-8");
  EXPECT_EQ(Json::parse(result.replies.at(0))["text"], "3,00");
}

TEST_F(Program, ASeedMakesARunRepeatExactly) {
  const std::string script =
      "set MatrixForm.typeA 6\nset MatrixForm.fadeType 3\nadvance 3000\n"
      "click MatrixForm.AutoFadeB\nadvance 1500\nframe A\nfademap\n";
  const Result first = run("--seed 7", script);
  EXPECT_EQ(first.status, 0);
  EXPECT_EQ(first.replies, run("--seed 7", script).replies);
  EXPECT_NE(first.replies, run("--seed 8", script).replies);
}

TEST_F(Program, TheExampleOfItsPageIsTrue) {
  std::string commands;
  std::vector<std::string> expected;
  for (const std::string& line : split(bytesOf(sourceFolder() + "/docs/console.md"), '\n')) {
    if (line.starts_with("    > ")) {
      commands += line.substr(6) + "\n";
      expected.emplace_back();
    } else if (!expected.empty() && expected.back().empty()) {
      expected.back() = line.substr(4);
    }
  }
  ASSERT_GT(expected.size(), 10U);
  EXPECT_EQ(run("--seed 1", commands).replies, expected);
  EXPECT_TRUE(std::filesystem::exists(folder + "/mix.png"));
}

TEST_F(Program, TakesGarbageAndVeryLongLines) {
  std::string garbage;
  for (int i = 0; i < 256; ++i) garbage += static_cast<char>(i);
  const Result result =
      run("", garbage + "\n" + std::string(1 << 20, 'x') + "\nset " +
                  std::string("MatrixForm.fadeName ") + std::string(1 << 20, 'y') + "\nnow");
  EXPECT_EQ(result.status, 1);
  ASSERT_EQ(result.replies.size(), 5U) << "the garbage holds one line end";
  EXPECT_EQ(result.replies[0], R"({"ok":false,"error":"The command holds a zero character."})");
  EXPECT_EQ(result.replies[1], R"({"ok":false,"error":"The command is not valid UTF-8."})");
  EXPECT_THAT(result.replies[2], HasSubstr("There is no command 'xxx"));
  EXPECT_EQ(result.replies[3], R"({"ok":true})");
  EXPECT_EQ(result.replies[4], R"({"ok":true,"now":0})");
}

TEST_F(Program, LoadsTheProjectThatItSaved) {
  const Result result =
      run("--decimal point",
          "set MatrixForm.typeA 1\nclick MatrixForm.editA\nset MxGradientForm.myName ramp\n"
          "click MxGradientForm.OK\npick MatrixForm.efxAList 0\npick MatrixForm.efxBList 0\n"
          "pick MatrixForm.efxXList 0\nanswer show.Korvane\n"
          "click MatrixForm.save\nset MatrixForm.typeA 0\nanswer show.Korvane\n"
          "click MatrixForm.load\nboxes\nget MatrixForm.typeA\n");
  EXPECT_EQ(result.status, 0) << result.complaint;
  ASSERT_EQ(result.replies.size(), 14U);
  EXPECT_EQ(result.replies[12],
            R"({"ok":true,"boxes":["Matrix Project saved","Matrix Project loaded"]})");
  EXPECT_THAT(result.replies[13], HasSubstr(R"("text":"Gradient")"));
}

TEST_F(Program, TheChoiceOfTheEntryThatAListShowsCounts) {
  const std::vector<std::string> replies =
      run("--seed 1",
          "put A 0 0 00FF00\nput B 0 0 00FF00\n"
          "set MatrixForm.typeA 0\nset MatrixForm.typeB 0\n"
          "frame A\nframe B\n"
          "set MatrixForm.fps 5\nclick MatrixForm.AutoFadeB\ntimers\n"
          "set MatrixForm.fps 5\ntimers\n"
          "value fadeRunning\nset MatrixForm.fadeType 0\nvalue fadeRunning\n")
          .replies;
  ASSERT_EQ(replies.size(), 14U);
  const auto firstCell = [&](std::size_t reply) {
    return Json::parse(replies[reply])["cells"][0][0].get<std::string>();
  };
  const auto refresh = [&](std::size_t reply) {
    return Json::parse(replies[reply])["timers"]["timerM2"]["interval"].get<int>();
  };
  EXPECT_EQ(firstCell(4), "FF0000") << "typeA renders its colour again";
  EXPECT_EQ(firstCell(5), "0000FF") << "so does typeB";
  EXPECT_EQ(refresh(8), 50) << "a fade begins with 20 frames a second";
  EXPECT_EQ(refresh(10), 33) << "until fps is chosen again";
  EXPECT_THAT(replies[11], HasSubstr("true"));
  EXPECT_THAT(replies[13], HasSubstr("false")) << "fadeType breaks a fade off";
}

TEST_F(Program, TellsOfAFailedSaveOnStandardError) {
  const std::string path = folder + "/none/p.Korvane";
  const Result result = run("", "answer " + path + "\nclick MatrixForm.save\nboxes\n");
  EXPECT_THAT(result.replies,
              ElementsAre(R"({"ok":true})", R"({"ok":true})", R"({"ok":true,"boxes":[]})"));
  EXPECT_EQ(result.complaint, "korvane-console: " + path + " was not saved: Path/File access " +
                                  "error: " + path + ": No such file or directory. There is no " +
                                  "whole version of it.\n");
}

TEST_F(Program, TheDesksWindowsAreHeldToo) {
  const Result result = run("--desk",
                            "get Desk\nclick Desk.blackout\nget Desk.blackout\nclick Desk.output\n"
                            "get MatrixForm.active\nboxes\ncalls\n");
  ASSERT_EQ(result.replies.size(), 7U) << result.complaint;
  EXPECT_THAT(result.replies[0], HasSubstr(R"("caption":"untitled - Korvane")"));
  EXPECT_THAT(result.replies[2], HasSubstr(R"("key":"F10")"));
  EXPECT_THAT(result.replies[2], HasSubstr(R"("lit":true)"));
  EXPECT_THAT(result.replies[4], HasSubstr(R"("kind":"CheckBox")"));
  EXPECT_THAT(result.replies[5], HasSubstr(R"("boxes":[])"));
  EXPECT_EQ(result.status, 0);
}

TEST_F(Program, CuesAreRecordedRunAndWatchedByName) {
  const Result result = run("--desk --clock virtual",
                            "click Desk.cues\n"
                            "click Cues.record\nset Cues.cueName Opening\n"
                            "set Cues.cueEnd 1\nset Cues.cueAfter 5\n"
                            "click Cues.addCue\nset Cues.cueName Second\nset Cues.cueMove 4\n"
                            "get Cues.then\n"
                            "click Cues.go\nget Cues.now\n"
                            "advance 2000\nget Cues.now\nget Cues.cueList\n"
                            "advance 3000\nget Cues.now\nget MatrixForm.faderM\n"
                            "dblclick Cues.cueList 0\nget Cues.now\nget Cues.then\n"
                            "click Desk.cuePause\nadvance 60000\nget Cues.now\n"
                            "click Desk.cueBack\nclick Desk.cueStop\nget Cues.now\nboxes\n");
  EXPECT_EQ(result.status, 0) << result.complaint;
  ASSERT_EQ(result.replies.size(), 27U);
  const auto caption = [](const std::string& text) { return "\"caption\":\"" + text + "\""; };
  EXPECT_THAT(result.replies[8], HasSubstr(caption("Next: 1  Opening")));
  EXPECT_THAT(result.replies[10], HasSubstr(caption("On: 1  Opening, 5.0 s")));
  EXPECT_THAT(result.replies[12], HasSubstr(caption("On: 1  Opening, 3.0 s")));
  EXPECT_THAT(result.replies[13], HasSubstr(R"("sub":["1  Opening","new effect","new effect",)"));
  EXPECT_THAT(result.replies[13], HasSubstr(R"("3.0 s"],"color":"00963C","selected":false})"));
  EXPECT_THAT(result.replies[13],
              HasSubstr(R"({"text":"next","sub":["2  Second","","","cut right","by hand"])"));
  EXPECT_THAT(result.replies[15], HasSubstr(caption("On: 2  Second")));
  EXPECT_THAT(result.replies[16], HasSubstr(R"("value":100)"));
  EXPECT_THAT(result.replies[18], HasSubstr(caption("On: 1  Opening, 5.0 s")));
  EXPECT_THAT(result.replies[19], HasSubstr(caption("Next: 2  Second")));
  EXPECT_THAT(result.replies[22], HasSubstr(caption("On: 1  Opening, paused, 5.0 s")));
  EXPECT_THAT(result.replies[25], HasSubstr(caption("No cue is on.")));
  EXPECT_EQ(result.replies.back(), R"({"ok":true,"boxes":[]})");
}

// A Color Change leaves a transition in the mode that was chosen last on its deck.
TEST_F(Program, WhatPlaysAtTheDeskMakesNoStepOfItsOwn) {
  const std::string addColor = "click MxColorChange.addColor\nclick MxColorMixer.Bok\n";
  const std::string change = "set MatrixForm.typeA 4\nclick MatrixForm.editA\n";
  const Result result = run("--desk --clock virtual",
                            change + addColor + addColor +
                                "set MxColorChange.slFade 100\nset MxColorChange.cbFadeMode 1\n"
                                "click MxColorChange.OK\n"
                                "click MatrixForm.addA\npick MatrixForm.efxAList 1\n" +
                                change +
                                "set MxColorChange.cbFadeMode 5\nclick MxColorChange.OK\n"
                                "pick MatrixForm.efxAList 0\nefx A 0\nget Desk.undo\n"
                                "advance 20000\nefx A 0\nget Desk.undo\n");
  EXPECT_EQ(result.status, 0) << result.complaint;
  ASSERT_EQ(result.replies.size(), 21U);
  EXPECT_THAT(result.replies[16], HasSubstr(R"("fadeMode":1)"));
  EXPECT_THAT(result.replies[19], HasSubstr(R"("fadeMode":5)"));
  EXPECT_EQ(result.replies[20], result.replies[17]);
}

TEST_F(Program, WithoutTheDeskItsWindowsAreNotThere) {
  const Result result = run("", "get Desk\n");
  EXPECT_EQ(result.status, 1);
}

}  // namespace
}  // namespace korvane
