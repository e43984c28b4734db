#include "platform/ReplaceFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>

#include "platform/Failure.h"
#include "platform/HeadlessPlatform.h"
#include "testing/SimulatedDisk.h"

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

/// Two files that belong together, on a disk in memory.
struct TwoFiles {
  explicit TwoFiles(std::uint64_t seed = 1) : disk(seed) {
    disk.makeFolders("/shows");
    save("old", "old");
  }
  void save(const std::string& one, const std::string& two) {
    const auto endsEarly = [](const std::string&) { return false; };
    replaceTextFiles({{"/shows/one", [&](TextWriter& file) { file.writeLine(one); }, endsEarly},
                      {"/shows/two", [&](TextWriter& file) { file.writeLine(two); }, endsEarly}},
                     disk);
  }
  /// What stands in them, and in the first one's backup.
  std::string found() const {
    std::string all;
    for (const char* path : {"/shows/one", "/shows/two", "/shows/one.bak"}) {
      const std::string bytes = disk.bytesOf(path);
      all += (all.empty() ? "" : " ") + bytes.substr(0, bytes.find('\r'));
    }
    return all;
  }

  SimulatedDisk disk;
};

TEST(ReplaceFiles, AreAllReplacedOrNone) {
  const std::string longer(20, 'x');
  for (std::size_t room = 0; room < 100; ++room) {
    TwoFiles files;
    files.disk.capacity = files.disk.used() + room;
    bool saved = true;
    try {
      files.save("new", longer);
    } catch (const Failure& failure) {
      saved = false;
      EXPECT_EQ(failure.number, kPathAccess);
    }
    const std::string found = files.found();
    EXPECT_EQ(saved, room >= 2 * 5 + 5 + 22) << room;
    if (saved) {
      EXPECT_EQ(found, "new " + longer + " old") << room;
    } else {
      EXPECT_TRUE(found == "old old " || found == "old old old") << found;
      EXPECT_LE(files.disk.files().size(), 4U) << "nothing half is left beside them";
    }
  }
}

TEST(ReplaceFiles, ALossOfPowerBetweenThemFindsTheFirstInItsBackup) {
  std::set<std::string> seen;
  for (std::uint64_t seed = 1; seed < 40; ++seed) {
    for (int steps = 1; steps < 12; ++steps) {
      TwoFiles files(seed);
      files.disk.losePowerAfter(steps);
      try {
        files.save("new", "new");
      } catch (const Failure&) {
        EXPECT_TRUE(files.disk.powerLost());
      }
      seen.insert(files.found());
    }
  }
  EXPECT_EQ(seen, (std::set<std::string>{"old old ", "old old old", "new old old", "new new old"}));
}

TEST(ReplaceFiles, StayAsTheyWereIfOneCanNotBeWrittenToItsEnd) {
  TwoFiles files;
  const auto endsEarly = [](const std::string&) { return false; };
  const auto fails = [](TextWriter&) { throw Failure(kSubscript); };
  EXPECT_THROW(
      replaceTextFiles({{"/shows/one", [](TextWriter& file) { file.writeLine("new"); }, endsEarly},
                        {"/shows/two", fails, endsEarly}},
                       files.disk),
      Failure);
  EXPECT_EQ(files.found(), "old old ");
  EXPECT_EQ(files.disk.files().size(), 2U);
}

}  // namespace
}  // namespace korvane
