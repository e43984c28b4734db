#include "platform/ReplaceFile.h"

#include <gtest/gtest.h>

#include <iterator>

#include "platform/Failure.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

class ReplaceFile : public testing::Test {
 protected:
  void SetUp() override { fs::create_directories(folder); }
  void TearDown() override { fs::remove_all(folder); }

  void replace(const std::string& line) const {
    replaceTextFile(path, [&](TextWriter& file) { file.writeLine(line); });
  }
  int failureOf(const std::string& target) const {
    try {
      replaceTextFile(target, [](TextWriter& file) { file.writeLine("new"); });
    } catch (const Failure& failure) {
      return failure.number;
    }
    return 0;
  }
  static std::string read(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }
  std::size_t files() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
  }

  std::string folder = testing::TempDir() + "korvane-ReplaceFile-" +
                       testing::UnitTest::GetInstance()->current_test_info()->name();
  std::string path = folder + "/show";
};

TEST_F(ReplaceFile, ANewFileHasNoBackup) {
  replace("one");
  EXPECT_EQ(read(path), "one\r\n");
  EXPECT_EQ(files(), 1U);
}

TEST_F(ReplaceFile, KeepsTheReplacedFileAndOnlyThatOne) {
  replace("one");
  replace("two");
  replace("three");
  EXPECT_EQ(read(path), "three\r\n");
  EXPECT_EQ(read(path + ".bak"), "two\r\n");
  EXPECT_EQ(files(), 2U);
}

TEST_F(ReplaceFile, TheOldFileIsWholeWhileTheNewOneIsWritten) {
  replace("one");
  replaceTextFile(path, [&](TextWriter& file) {
    file.writeLine(std::string(100000, 'x'));
    EXPECT_EQ(read(path), "one\r\n");
  });
}

TEST_F(ReplaceFile, WhatAFailedSaveWroteStaysAndTheOldFileIsKept) {
  replace("one");
  const auto save = [&] {
    replaceTextFile(path, [](TextWriter& file) {
      file.writeLine("half");
      throw Failure(kSubscript);
    });
  };
  EXPECT_THROW(save(), Failure);
  EXPECT_EQ(read(path), "half\r\n");
  EXPECT_EQ(read(path + ".bak"), "one\r\n");
}

TEST_F(ReplaceFile, WhatACrashLeftBehindIsNoObstacle) {
  replace("one");
  std::ofstream(path + ".saving") << "rubbish";
  std::ofstream(path + ".bak.saving") << "rubbish";
  replace("two");
  EXPECT_EQ(read(path), "two\r\n");
  EXPECT_EQ(read(path + ".bak"), "one\r\n");
  EXPECT_EQ(files(), 2U);
}

TEST_F(ReplaceFile, RefusesAFolderAndAPlaceThatIsNotThere) {
  EXPECT_EQ(failureOf(folder), kPathAccess);
  EXPECT_EQ(failureOf(folder + "/none/show"), kPathAccess);
}

TEST_F(ReplaceFile, LeavesTheOldFileAloneIfItCanNotBeKept) {
  replace("one");
  fs::create_directory(path + ".bak");
  EXPECT_EQ(failureOf(path), kPathAccess);
  EXPECT_EQ(read(path), "one\r\n");
  EXPECT_EQ(read(path + ".saving"), "new\r\n");
}

#ifndef _WIN32  // which lets few people make links, and has other permissions
TEST_F(ReplaceFile, KeepsPermissionsAndLinks) {
  replace("one");
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink(path, folder + "/link");
  EXPECT_EQ(failureOf(folder + "/link"), 0);
  EXPECT_TRUE(fs::is_symlink(folder + "/link"));
  EXPECT_EQ(read(path), "new\r\n");
  EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}
#endif

}  // namespace
}  // namespace korvane
