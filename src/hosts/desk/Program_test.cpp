// Runs the real program: what it says before there is a window.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace korvane {
namespace {

struct Result {
  int status;
  std::string text;
};

// What the program writes when it is started by this line of the shell; $K is the program.
Result run(const std::string& line) {
  const std::string command = "K=" KORVANE_DESK
                              "; unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM; " +
                              std::string("exec 2>&1; ") + line;
  FILE* pipe = popen(command.c_str(), "r");
  Result result{0, {}};
  std::array<char, 512> part{};
  while (fgets(part.data(), part.size(), pipe) != nullptr) result.text += part.data();
  result.status = WEXITSTATUS(pclose(pipe));
  return result;
}

TEST(DeskProgram, HelpAndVersionNeedNoDisplay) {
  const Result help = run("$K --help");
  EXPECT_EQ(help.status, 0);
  EXPECT_TRUE(help.text.starts_with("usage: korvane ")) << help.text;
  const Result version = run("$K --version");
  EXPECT_EQ(version.status, 0);
  EXPECT_TRUE(version.text.starts_with("korvane 2.")) << version.text;
}

TEST(DeskProgram, WithoutADisplayItSaysWhatToDo) {
  for (const char* line : {"$K", "DISPLAY=:987 $K", "QT_QPA_PLATFORM=none $K"}) {
    const Result result = run(line);
    EXPECT_EQ(result.status, 1) << line;
    EXPECT_EQ(result.text,
              "korvane: there is no display to show the desk on. Start it within a graphical "
              "session, or play a show in this terminal with korvane-play SHOW.\n")
        << line;
  }
}

TEST(DeskProgram, AWorkingFolderThatIsGoneIsTold) {
  const Result result = run("D=$(mktemp -d) && cd $D && rmdir $D && $K a.Korvane");
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.text,
            "korvane: the working folder is gone. Go to a folder that exists, or name the show in "
            "full.\n");
}

TEST(DeskProgram, WrongUsageIsTold) {
  const std::pair<const char*, const char*> cases[] = {
      {"$K --nope", "korvane: there is no option --nope; --help tells the usage\n"},
      {"$K --show", "korvane: --show needs a value; --help tells the usage\n"},
      {"$K a.Korvane b.Korvane",
       "korvane: there is one show too many: b.Korvane; --help tells the usage\n"},
  };
  for (const auto& [line, text] : cases) {
    const Result result = run(line);
    EXPECT_EQ(result.status, 2) << line;
    EXPECT_EQ(result.text, text);
  }
}

}  // namespace
}  // namespace korvane
