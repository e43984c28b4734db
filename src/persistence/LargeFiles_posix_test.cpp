// Files of hundreds of megabytes where a show should be: looked at no further than needed.

#include <sys/resource.h>

#include "testing/TestProject.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

constexpr long kMostKilobytes = 200 * 1024;

class LargeFiles : public TestProject {
 protected:
  /// A file of these bytes, as long as told; what is behind them takes no room on the disk.
  std::string sparse(const std::string& bytes, std::uintmax_t size) {
    std::string file = folder + "/large.Korvane";
    writeFile(file, bytes);
    std::filesystem::resize_file(file, size);
    return file;
  }
  int loadFile(const std::string& file) {
    takeBoxes();
    platform.answers = {file};
    click(plugin.matrixForm.load);
    lastFailure = platform.failures.empty() ? "" : platform.failures.back().what();
    return takeFailure();
  }
  static long peakKilobytes() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
  }

  static constexpr std::uintmax_t k200MB = 200'000'000;
  static constexpr std::uintmax_t k3GB = 3'000'000'000;
};

TEST_F(LargeFiles, TheSecondLineIsCheckedBeforeTheRestIsRead) {
  const long before = peakKilobytes();
  EXPECT_EQ(loadFile(sparse("video\nV9.9\n", k3GB)), 0);
  EXPECT_EQ(takeBoxes(), Texts{"falsche Matrix-Version V9.9"});
  EXPECT_LT(peakKilobytes() - before, kMostKilobytes);
}

TEST_F(LargeFiles, ALineWithoutAnEndIsRefused) {
  const long before = peakKilobytes();
  EXPECT_EQ(loadFile(sparse("", k3GB)), kOutOfMemory);
  EXPECT_EQ(lastFailure,
            "Out of memory: " + folder + "/large.Korvane, line 1: longer than 1048576 bytes");
  EXPECT_EQ(loadFile(sparse("video\n", k3GB)), kOutOfMemory);
  EXPECT_LT(peakKilobytes() - before, kMostKilobytes);
}

TEST_F(LargeFiles, AShowOfHundredsOfMegabytesIsRefusedAndTheRunningOneGoesOn) {
  setEffect(v.A, kFire, "running", [](Effect&) {});
  v.A.timer1.enable();
  const long before = peakKilobytes();
  for (const std::uintmax_t size : {k200MB, k3GB}) {
    EXPECT_EQ(loadFile(sparse(project({}), size)), kOutOfMemory);
    EXPECT_EQ(lastFailure, "Out of memory: " + folder +
                               "/large.Korvane is larger than the 33554432 bytes that a show may "
                               "have");
  }
  EXPECT_EQ(v.efxA[0].name, "running");
  EXPECT_TRUE(v.A.timer1.enabled());
  EXPECT_LT(peakKilobytes() - before, kMostKilobytes);
}

TEST_F(LargeFiles, AGridFileWithoutAnEndIsRefused) {
  platform.answers = {sparse("grid\n", k3GB)};
  const long before = peakKilobytes();
  event([&] { plugin.matrixConf.load_Click(); });
  EXPECT_EQ(takeBoxes(), Texts{});
  EXPECT_EQ(v.matrixCols, 2);
  EXPECT_LT(peakKilobytes() - before, kMostKilobytes);
}

}  // namespace
}  // namespace korvane
