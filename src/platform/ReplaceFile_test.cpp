#include "platform/ReplaceFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "platform/Failure.h"
#include "platform/HeadlessPlatform.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

class ReplaceFile : public testing::Test {
 protected:
  void SetUp() override { fs::create_directories(folder); }
  void TearDown() override { fs::remove_all(folder); }

  void replace(const std::string& line) const {
    replaceTextFile(
        path, [&](TextWriter& file) { file.writeLine(line); }, isHalf);
  }
  int failureOf(const std::string& target) const {
    try {
      replaceTextFile(
          target, [](TextWriter& file) { file.writeLine("new"); }, isHalf);
    } catch (const Failure& failure) {
      return failure.number;
    }
    return 0;
  }
  // The save that is broken off.
  void replaceByHalf() const {
    const auto write = [](TextWriter& file) {
      file.writeLine("half");
      throw Failure(kSubscript);
    };
    EXPECT_THROW(replaceTextFile(path, write, isHalf), Failure);
  }
  static bool isHalf(const std::string& file) { return read(file) == "half\r\n"; }
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
  const auto write = [&](TextWriter& file) {
    file.writeLine(std::string(100000, 'x'));
    EXPECT_EQ(read(path), "one\r\n");
  };
  replaceTextFile(path, write, isHalf);
}

TEST_F(ReplaceFile, WhatAFailedSaveWroteStaysAndTheOldFileIsKept) {
  replace("one");
  replaceByHalf();
  EXPECT_EQ(read(path), "half\r\n");
  EXPECT_EQ(read(path + ".bak"), "one\r\n");
}

TEST_F(ReplaceFile, WhatAFailedSaveWroteIsNotKeptAsABackup) {
  replace("one");
  replaceByHalf();
  replaceByHalf();
  EXPECT_EQ(read(path + ".bak"), "one\r\n");
  replace("two");
  EXPECT_EQ(read(path), "two\r\n");
  EXPECT_EQ(read(path + ".bak"), "one\r\n");
  EXPECT_EQ(files(), 2U);
}

TEST_F(ReplaceFile, AFailedSaveIsToldWithTheLastWholeVersion) {
  HeadlessPlatform platform;
  const auto whole = [&] {
    tellOfFailedSave(platform, path, "why", isHalf);
    return platform.failedSaves.back().whole;
  };
  EXPECT_EQ(whole(), "");
  replace("one");
  EXPECT_EQ(whole(), path);
  replaceByHalf();
  EXPECT_EQ(whole(), path + ".bak");
  tellOfFailedSave(platform, "", "nobody chose a file", isHalf);
  EXPECT_EQ(platform.failedSaves.size(), 3U);
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
  EXPECT_EQ(files(), 2U) << "nothing is left beside them";
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
