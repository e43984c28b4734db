// Runs the real program while it goes on: what it sends, its clocks, and the signals that end it.

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>

#include "commands/Json.h"
#include "hosts/console/TestProgram.h"
#include "testing/UdpReceiver.h"

namespace korvane {
namespace {

/// A receiver on this machine.
struct Receiver : UdpReceiver {
  /// The target for the program.
  std::string target() const { return "sacn:1" + place(); }
  /// The last packet that has arrived; empty if none has.
  std::string last() const {
    std::string last;
    for (auto next = packet(false); !next.empty(); next = packet(false))
      last.assign(next.begin(), next.end());
    return last;
  }
};

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

TEST_F(Program, ANetworkErrorIsToldEvenIfTheCommandsEndAtOnce) {
  for (const char* more : {"", " --desk"}) {
    const Result result = run(std::string("--output sacn:4714%nosuchif") + more, "now\n");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(
        result.complaint,
        "korvane-console: sACN universe 4714 to 239.255.18.106:5568 by nosuchif: No such device\n")
        << more;
  }
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

}  // namespace
}  // namespace korvane
