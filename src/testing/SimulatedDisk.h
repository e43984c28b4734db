#pragma once

#include <functional>
#include <limits>
#include <map>
#include <set>

#include "platform/Disk.h"
#include "platform/Random.h"

namespace korvane {

/// A disk in memory that fills up and loses its power. What it does follows from its seed alone.
class SimulatedDisk : public Disk {
 public:
  static constexpr std::size_t kUnlimited = std::numeric_limits<std::size_t>::max();

  explicit SimulatedDisk(std::uint64_t seed = 1) { random_.seed(seed); }

  Kind kind(const std::string& path) override;
  std::uintmax_t size(const std::string& path) override;
  std::unique_ptr<std::istream> read(const std::string& path) override;
  std::unique_ptr<std::ostream> write(const std::string& path) override;
  bool mayWrite(const std::string& path) override;
  void makeFolders(const std::string& path) override;
  std::string nameBeside(const std::string& path) override;
  void takePermissions(const std::string&, const std::string&) override {}
  void remove(const std::string& path) override;
  std::optional<std::string> link(const std::string&) override { return std::nullopt; }
  void create(const std::string& path, std::string_view bytes) override;
  void overwrite(const std::string& path, std::string_view bytes) override;
  void copy(const std::string& from, const std::string& to) override;
  void rename(const std::string& from, const std::string& to) override;

  /// The files as they are, by path.
  const std::map<std::string, std::string>& files() const { return files_; }
  /// The bytes of a file; none for one that is not there.
  std::string bytesOf(const std::string& path) const;
  /// Copies the files of a real folder, those of its folders left out.
  void takeFolder(const std::string& real, const std::string& path);

  /// The most bytes that all files together may have.
  std::size_t capacity = kUnlimited;
  std::size_t used() const;

  /// The power is lost within so many more steps that change the disk: the one that is hit is torn.
  /// Nothing can be read or written then.
  void losePowerAfter(int steps) { stepsLeft_ = steps; }
  bool powerLost() const { return stepsLeft_ == 0; }
  /// The power is back, and will stay.
  void restorePower() { stepsLeft_ = kForEver; }

 private:
  static constexpr int kForEver = -1;

  bool hasFolder(const std::string& path) const;
  void requirePower() const;
  bool losesPower();
  void requirePlace(const std::string& path) const;
  void requireRoom(const std::string& path, std::size_t bytes) const;
  /// What a loss of power leaves of bytes that were being written.
  std::string torn(std::string_view bytes);

  Random random_;
  std::map<std::string, std::string> files_;
  std::set<std::string> folders_;
  int names_ = 0;
  int stepsLeft_ = kForEver;
};

}  // namespace korvane
