#pragma once

#include <gmock/gmock.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>

#include "platform/Text.h"

namespace korvane {

struct Result {
  int status;
  std::vector<std::string> replies;
  std::string complaint;  // what it wrote to standard error
};

inline std::string bytesOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// Runs the program, each test in a folder of its own.
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

}  // namespace korvane
