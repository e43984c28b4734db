// The disk that is simulated is one of a POSIX system: others name some errors differently.

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <iterator>
#include <ostream>
#include <system_error>

#include "platform/ReplaceFile.h"
#include "platform/TextFile.h"
#include "testing/SimulatedDisk.h"

namespace korvane {
namespace {

/// A disk, and what it answers to one step after another.
struct Tried {
  Disk& disk;
  std::string folder;

  std::string bytesOf(const std::string& path) const {
    if (disk.kind(path) != Disk::Kind::File) return "no file";
    const auto stream = disk.read(path);
    return {std::istreambuf_iterator<char>(*stream), {}};
  }
  template <class Step>
  std::string tried(Step step) const {
    try {
      step();
      return "done";
    } catch (const std::system_error& error) {
      return error.code().default_error_condition().message();
    } catch (const std::exception& failure) {
      return "failure";
    }
  }
  std::string step(int what, const std::string& one, const std::string& two) const {
    const std::string a = folder + one, b = folder + two;
    switch (what) {
      case 0:
        return tried([&] { disk.create(a, two); });
      case 1:
        return tried([&] { disk.overwrite(a, two); });
      case 2:
        return tried([&] { disk.copy(a, b); });
      case 3:
        return tried([&] { disk.rename(a, b); });
      case 4:
        return tried([&] { disk.remove(a); });
      case 5:
        return *disk.write(a) << two ? "written" : "not written";
      case 6:
        return tried([&] { TextWriter(a, disk).writeLine(two); });
      default:
        return tried([&] {
          replaceTextFile(
              a, [&](TextWriter& file) { file.writeLine(two); },
              [](const std::string&) { return false; }, disk);
        });
    }
  }
};

TEST(SimulatedDisk, DoesWhatTheMachinesDiskDoes) {
  const std::string folder = testing::TempDir() + "korvane-simulated";
  std::filesystem::remove_all(folder);
  SimulatedDisk simulated;
  const std::array<Tried, 2> disks = {{{machineDisk(), folder}, {simulated, folder}}};
  for (const Tried& one : disks) one.disk.makeFolders(folder + "/below");
  constexpr std::array<const char*, 6> kNames = {"/a",       "/b",      "/below/c",
                                                 "/below/d", "/none/e", "/f"};
  Random random;
  const auto draw = [&random](std::size_t below) {
    return static_cast<std::size_t>(random.next() * static_cast<float>(below));
  };
  for (int i = 0; i < 250; ++i) {
    const int what = static_cast<int>(draw(8));
    const std::string one = kNames[draw(kNames.size())], two = kNames[draw(kNames.size())];
    if (what == 2 && one == two) continue;
    const std::string real = disks[0].step(what, one, two);
    ASSERT_EQ(disks[1].step(what, one, two), real) << i << ": " << what << one << two;
    for (const char* name : kNames) {
      ASSERT_EQ(disks[1].bytesOf(folder + name), disks[0].bytesOf(folder + name)) << i << name;
      ASSERT_EQ(disks[1].disk.size(folder + name), disks[0].disk.size(folder + name)) << i << name;
    }
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace korvane
