// Links, pipes, devices, and folders that may not be written. Where permissions count, a process of
// another user saves: to the superuser they mean nothing.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <iterator>

#include "platform/Failure.h"
#include "platform/HeadlessPlatform.h"
#include "platform/ReplaceFile.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

class ReplaceFilePosix : public testing::Test {
 protected:
  void SetUp() override {
    fs::remove_all(folder);
    fs::create_directories(folder);
  }
  void TearDown() override {
    fs::permissions(folder, fs::perms::owner_all);
    fs::remove_all(folder);
  }

  static int save(const std::string& target, const std::string& line, bool fails = false) {
    try {
      replaceTextFile(
          target,
          [&](TextWriter& file) {
            file.writeLine(line);
            if (fails) throw Failure(kSubscript);
          },
          [](const std::string&) { return false; });
    } catch (const Failure& failure) {
      return failure.number;
    }
    return 0;
  }
  /// Why it could not be saved, in words.
  static std::string refusal(const std::string& target) {
    try {
      replaceTextFile(
          target, [](TextWriter&) {}, [](const std::string&) { return false; });
    } catch (const Failure& failure) {
      return failure.what();
    }
    return {};
  }
  static std::string read(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }
  std::ptrdiff_t files() const {
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
  }

  /// Runs in a process of its own that is not the superuser's; what the action returned.
  template <class Action>
  static int asSomebody(Action action) {
    const pid_t child = ::fork();
    if (child == 0) {
      const passwd* nobody = ::getuid() == 0 ? ::getpwnam("nobody") : nullptr;
      if (nobody != nullptr && (::setgid(nobody->pw_gid) != 0 || ::setuid(nobody->pw_uid) != 0))
        ::_exit(120);
      ::_exit(action());
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return WEXITSTATUS(status);
  }
  /// A file that everybody may write in a folder that nobody may.
  void lockFolder() {
    std::ofstream(path) << "old and longer than the new one\n";
    ::chmod(path.c_str(), 0666);
    ::chmod(folder.c_str(), 0555);
  }

  std::string folder = fs::path(testing::TempDir()) /
                       (std::string("korvane-ReplaceFilePosix-") +
                        testing::UnitTest::GetInstance()->current_test_info()->name());
  std::string path = folder + "/show";
};

TEST_F(ReplaceFilePosix, ADanglingLinkIsSavedThrough) {
  fs::create_directory(folder + "/shows");
  fs::create_symlink("shows/real", folder + "/first");
  fs::create_symlink("first", path);
  EXPECT_EQ(save(path, "new"), 0);
  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_TRUE(fs::is_symlink(folder + "/first"));
  EXPECT_EQ(read(folder + "/shows/real"), "new\r\n");
  EXPECT_EQ(save(path, "newer"), 0);
  EXPECT_EQ(read(folder + "/shows/real"), "newer\r\n");
  EXPECT_EQ(read(folder + "/shows/real.bak"), "new\r\n");
}

TEST_F(ReplaceFilePosix, ACircleOfLinksIsRefused) {
  fs::create_symlink("other", path);
  fs::create_symlink("show", folder + "/other");
  EXPECT_EQ(save(path, "new"), kPathAccess);
  HeadlessPlatform platform;
  tellOfFailedSave(platform, path, "why", [](const std::string&) { return false; });
  EXPECT_EQ(platform.failedSaves.at(0).whole, "");
}

TEST_F(ReplaceFilePosix, APipeAndADeviceAreRefusedAtOnce) {
  ASSERT_EQ(::mkfifo(path.c_str(), 0666), 0);
  EXPECT_EQ(save(path, "new"), kPathAccess);
  fs::create_symlink(path, folder + "/link");
  EXPECT_EQ(save(folder + "/link", "new"), kPathAccess);
  EXPECT_EQ(save("/dev/null", "new"), kPathAccess);
  EXPECT_EQ(files(), 2);
  EXPECT_THROW(TextWriter writer(path), Failure);
}

TEST_F(ReplaceFilePosix, WhatStandsUnderANameThatWasGuessedIsLeftAlone) {
  EXPECT_EQ(save(path, "old"), 0);
  std::ofstream(folder + "/mine") << "mine";
  fs::create_symlink(folder + "/mine", path + ".saving");
  ASSERT_EQ(::mkfifo((path + ".bak.saving").c_str(), 0666), 0);
  EXPECT_EQ(save(path, "new"), 0);
  EXPECT_EQ(read(folder + "/mine"), "mine");
  EXPECT_EQ(read(path + ".bak"), "old\r\n");
}

TEST_F(ReplaceFilePosix, AFileInAFolderThatMayNotBeWrittenIsWrittenInPlace) {
  lockFolder();
  EXPECT_EQ(asSomebody([&] { return save(path, "new"); }), 0);
  EXPECT_EQ(read(path), "new\r\n");
  EXPECT_EQ(files(), 1);
}

TEST_F(ReplaceFilePosix, HalfAShowIsNotWrittenWhereNoBackupCanBeMade) {
  lockFolder();
  EXPECT_EQ(asSomebody([&] { return save(path, "new", true); }), kSubscript);
  EXPECT_EQ(read(path), "old and longer than the new one\n");
}

TEST_F(ReplaceFilePosix, NeitherFileNorFolderMayBeWritten) {
  lockFolder();
  ::chmod(path.c_str(), 0444);
  EXPECT_EQ(asSomebody([&] { return save(path, "new"); }), kPathAccess);
  EXPECT_EQ(asSomebody([&] { return save(folder + "/other", "new"); }), kPathAccess);
  EXPECT_EQ(read(path), "old and longer than the new one\n");
}

TEST_F(ReplaceFilePosix, ARefusalSaysWhatAndWhere) {
  const std::string refused = "Path/File access error: ";
  EXPECT_EQ(refusal("/dev/null"), refused + "/dev/null: it is no file, but a pipe or a device");
  EXPECT_EQ(refusal(folder), refused + folder + ": a folder stands there");
  EXPECT_EQ(refusal(folder + "/none/show"),
            refused + folder + "/none/show: No such file or directory");
  lockFolder();
  ::chmod(path.c_str(), 0444);
  EXPECT_EQ(
      asSomebody([&] { return refusal(path) == refused + path + ": the file may not be written"; }),
      1);
  EXPECT_EQ(asSomebody([&] {
              return refusal(folder + "/other") ==
                     refused + "the folder " + folder + " may not be written: Permission denied";
            }),
            1);
}

TEST_F(ReplaceFilePosix, AnothersFileInASharedFolderIsWrittenInPlace) {
  std::ofstream(path) << "old\n";
  ::chmod(path.c_str(), 0666);
  ::chmod(folder.c_str(), 01777);
  if (::getuid() != 0) GTEST_SKIP() << "needs files of two people";
  EXPECT_EQ(asSomebody([&] { return save(path, "new"); }), 0);
  EXPECT_EQ(read(path), "new\r\n");
}

// A limit on the size of files stands for a disk that is full.
int saveOnFullDisk(const std::function<int()>& save) {
  const rlimit limit{1000, 1000};
  ::signal(SIGXFSZ, SIG_IGN);
  return ::setrlimit(RLIMIT_FSIZE, &limit) == 0 ? save() : 120;
}

TEST_F(ReplaceFilePosix, AFullDiskLeavesTheFileAndNothingBesideIt) {
  EXPECT_EQ(save(path, "old"), 0);
  const std::string large(5000, 'x');
  EXPECT_EQ(asSomebody([&] { return 0; }), 0);
  ::chmod(folder.c_str(), 0777);
  ::chmod(path.c_str(), 0666);
  EXPECT_EQ(asSomebody([&] { return saveOnFullDisk([&] { return save(path, large); }); }),
            kPathAccess);
  EXPECT_EQ(read(path), "old\r\n");
  EXPECT_EQ(files(), 1);
}

TEST_F(ReplaceFilePosix, AFullDiskLeavesAFileThatIsWrittenInPlaceAsItWas) {
  lockFolder();
  const std::string large(5000, 'x');
  EXPECT_EQ(asSomebody([&] { return saveOnFullDisk([&] { return save(path, large); }); }),
            kPathAccess);
  EXPECT_EQ(read(path), "old and longer than the new one\n");
}

TEST_F(ReplaceFilePosix, ANewFileHasThePermissionsOfTheProcess) {
  const mode_t mask = ::umask(027);
  EXPECT_EQ(save(path, "new"), 0);
  ::umask(mask);
  EXPECT_EQ(fs::status(path).permissions(), static_cast<fs::perms>(0640));
}

}  // namespace
}  // namespace korvane
