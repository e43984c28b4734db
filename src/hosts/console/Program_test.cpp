// Runs the real program: its options, its exit statuses and its clocks.

#include <gmock/gmock.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "commands/Json.h"
#include "platform/Text.h"

namespace korvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

struct Result {
  int status;
  std::vector<std::string> replies;
  std::string complaint;  // what it wrote to standard error
};

std::string bytesOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

class Program : public testing::Test {
 protected:
  Program() { std::filesystem::create_directories(folder); }
  ~Program() override { std::filesystem::remove_all(folder); }

  std::string write(const std::string& name, const std::string& bytes) {
    std::ofstream(folder + "/" + name, std::ios::binary) << bytes;
    return folder + "/" + name;
  }

  /// Runs the program in the test's folder; `before` stands in front of its name in the shell.
  Result run(const std::string& options, const std::string& input, const std::string& before = {}) {
    const std::string in = write("in", input);
    const std::string command =
        "cd " + folder + " && " + before + " " KORVANE_CONSOLE " " + options + " <in >out 2>err";
    const int status = std::system(command.c_str());
    std::vector<std::string> replies = split(bytesOf(folder + "/out"), '\n');
    EXPECT_EQ(replies.back(), "") << "every line has its end";
    replies.pop_back();
    return {WEXITSTATUS(status), replies, bytesOf(folder + "/err")};
  }

  std::string folder = testing::TempDir() + "korvane-console-" +
                       testing::UnitTest::GetInstance()->current_test_info()->name();
};

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
  for (const std::string& line : split(bytesOf(KORVANE_SOURCE_DIR "/docs/console.md"), '\n')) {
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

/// A receiver on this machine.
class Receiver {
 public:
  Receiver() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    EXPECT_EQ(bind(socket_, reinterpret_cast<sockaddr*>(&address), size), 0);
    EXPECT_EQ(getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size), 0);
    port = ntohs(address.sin_port);
  }
  ~Receiver() { close(socket_); }

  /// The target for the program.
  std::string target() const { return "sacn:1@127.0.0.1:" + std::to_string(port); }
  /// The last packet that has arrived; empty if none has.
  std::string last() {
    std::string packet;
    std::array<char, 2048> bytes{};
    for (ssize_t size = 0; (size = recv(socket_, bytes.data(), bytes.size(), MSG_DONTWAIT)) > 0;)
      packet.assign(bytes.data(), static_cast<std::size_t>(size));
    return packet;
  }

  int port = 0;

 private:
  int socket_ = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
};

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

TEST_F(Program, OutputSendsTheLampsTheirValues) {
  Receiver receiver;
  const Result result =
      run("--output artnet:0@127.0.0.1:" + std::to_string(receiver.port) + ",end=hold",
          "click MatrixForm.fadeB\nclick MatrixForm.active\nput B 0 0 0A0B0C\n"
          "click MatrixForm.fadeA\nclick MatrixForm.fadeB\nframe Sent\n");
  EXPECT_EQ(result.status, 0);
  const std::string packet = receiver.last();
  ASSERT_EQ(packet.substr(0, 8), std::string("Art-Net\0", 8));
  EXPECT_EQ(packet.substr(18, 6), std::string("\x0A\x0B\x0C\0\0\xFF", 6)) << "two lamps";
}

/// The program with a pipe to it and one back.
class Running {
 public:
  explicit Running(std::vector<const char*> words) {
    std::array<int, 2> in{}, out{};
    if (pipe(in.data()) != 0 || pipe(out.data()) != 0) return;
    words.insert(words.begin(), KORVANE_CONSOLE);
    words.push_back(nullptr);
    child_ = fork();
    if (child_ == 0) {
      dup2(in[0], STDIN_FILENO);
      dup2(out[1], STDOUT_FILENO);
      for (const int end : {in[0], in[1], out[0], out[1]}) close(end);
      execv(KORVANE_CONSOLE, const_cast<char**>(words.data()));
      _exit(127);
    }
    close(in[0]);
    close(out[1]);
    to_ = fdopen(in[1], "w");
    from_ = fdopen(out[0], "r");
  }
  ~Running() {
    std::fclose(to_);
    std::fclose(from_);
    if (child_ > 0) waitpid(child_, nullptr, 0);
  }

  /// The exit status after this signal.
  int endBy(int signal) {
    int status = 0;
    kill(child_, signal);
    waitpid(std::exchange(child_, -1), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  void give(const std::string& command) {
    std::fputs((command + "\n").c_str(), to_);
    std::fflush(to_);
  }
  Json ask(const std::string& command) {
    give(command);
    std::string reply;
    for (int c = 0; (c = std::fgetc(from_)) != EOF && c != '\n';) reply += static_cast<char>(c);
    return Json::parse(reply, nullptr, false);
  }

 private:
  pid_t child_ = -1;
  FILE* to_ = nullptr;
  FILE* from_ = nullptr;
};

TEST(RunningProgram, SignalsEndTheStreamAsItsProtocolSays) {
  constexpr std::size_t kOptions = 112;
  for (const char* clock : {"real", "virtual"}) {
    for (const int signal : {SIGHUP, SIGINT, SIGTERM}) {
      SCOPED_TRACE(testing::Message() << clock << " " << signal);
      Receiver receiver;
      const std::string target = receiver.target();
      Running program({"--clock", clock, "--output", target.c_str()});
      EXPECT_EQ(program.ask("now")["ok"], true);
      EXPECT_EQ(program.endBy(signal), 128 + signal);
      const std::string packet = receiver.last();
      ASSERT_EQ(packet.size(), 638U);
      EXPECT_EQ(packet[kOptions], 0x40) << "terminated";
    }
  }
}

TEST(RunningProgram, ASignalEndsALongAdvanceToo) {
  Receiver receiver;
  const std::string target = receiver.target();
  for (const char* clock : {"real", "virtual"}) {
    Running program({"--clock", clock, "--output", target.c_str()});
    program.ask("click MatrixForm.AutoFadeB");
    program.give("advance 2000000000");
    EXPECT_EQ(program.endBy(SIGTERM), 128 + SIGTERM);
  }
}

TEST_F(Program, NetworkErrorsAreToldOnceOnStandardError) {
  const Result result =
      run("--clock real --output sacn:4713%nosuchif", "advance 700\nadvance 700\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(
      result.complaint,
      "korvane-console: sACN universe 4713 to 239.255.18.105:5568 by nosuchif: No such device\n");
}

TEST(RunningProgram, AnswersEachCommandBeforeTheNextIsGiven) {
  Running program({"--seed", "1"});
  EXPECT_EQ(program.ask("now")["now"], 0);
  EXPECT_EQ(program.ask("advance 250")["now"], 250);
}

TEST(RunningProgram, RealTimeRunsWhileItWaitsForACommand) {
  Running program({"--clock", "real"});
  program.ask("click MatrixForm.AutoFadeB");
  int step = 0;
  while (step < 3 && program.ask("now")["now"] < 20000)
    step = program.ask("value fadeStep")["value"];
  EXPECT_GE(step, 3);
  EXPECT_TRUE(program.ask("value fadeRunning")["value"].get<bool>());
}

TEST(RunningProgram, AdvanceInRealTimeWaits) {
  Running program({"--clock", "real"});
  const std::int64_t before = program.ask("now")["now"];
  const std::int64_t after = program.ask("advance 120")["now"];
  EXPECT_GE(after - before, 120);
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

TEST_F(Program, WithoutTheDeskItsWindowsAreNotThere) {
  const Result result = run("", "get Desk\n");
  EXPECT_EQ(result.status, 1);
}

}  // namespace
}  // namespace korvane
