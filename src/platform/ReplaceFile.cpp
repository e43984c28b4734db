#include "platform/ReplaceFile.h"

#include <exception>
#include <iterator>
#include <system_error>

#include "platform/Failure.h"

namespace korvane {
namespace {

constexpr int kMostLinks = 40;  // of links to links; more is a circle

void require(bool done, const std::string& path) {
  if (!done) throw Failure(kPathAccess, path);
}

// Where a link points to, there or not yet, so that a save replaces the file and not the link.
std::string behindLinks(Disk& disk, const std::string& path) {
  std::string file = path;
  for (int links = 0; const auto target = disk.link(file); ++links) {
    require(links < kMostLinks, path);
    file = utf8Path(systemPath(file).parent_path() / systemPath(*target));  // or an absolute one
  }
  return file;
}

/// A save: where to, and how to know what a failed one left.
struct Save {
  Disk& disk;
  std::string path;
  const EndsEarly& endsEarly;

  void put(const std::string& bytes, bool whole) const;

 private:
  void replace(const std::string& bytes) const;
  void takePlace(const std::string& fresh) const;
  void keepBackup() const;
  void writeInPlace(const std::string& bytes) const;
};

// The copy gets its name when it is whole.
void Save::keepBackup() const {
  const std::string copy = disk.nameBeside(path);
  try {
    disk.copy(path, copy);
    disk.rename(copy, path + ".bak");
  } catch (...) {
    disk.remove(copy);
    throw;
  }
}

void Save::takePlace(const std::string& fresh) const {
  if (fileExists(path, disk)) {
    disk.takePermissions(fresh, path);
    if (!endsEarly(path)) keepBackup();
  }
  disk.rename(fresh, path);
}

void Save::replace(const std::string& bytes) const {
  const std::string fresh = disk.nameBeside(path);
  disk.create(fresh, bytes);
  try {
    takePlace(fresh);
  } catch (...) {
    disk.remove(fresh);
    throw;
  }
}

// There is no place for a backup: what can't be written whole is put back as it was.
void Save::writeInPlace(const std::string& bytes) const {
  const auto stream = disk.read(path);
  require(stream->good(), path);
  const std::string old{std::istreambuf_iterator<char>(*stream), {}};
  try {
    disk.overwrite(path, bytes);
  } catch (...) {
    disk.overwrite(path, old);
    throw;
  }
}

bool notAllowed(const std::error_code& error) {
  return error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
         error == std::errc::read_only_file_system;
}

// Puts the bytes into the file. Half a text never goes where no backup can be made.
void Save::put(const std::string& bytes, bool whole) const {
  try {
    try {
      replace(bytes);
    } catch (const std::system_error& error) {
      if (!notAllowed(error.code()) || !fileExists(path, disk)) throw;
      if (whole) writeInPlace(bytes);
    }
  } catch (const std::system_error& error) {
    throw Failure(kPathAccess, path + ": " + error.code().message());
  }
}

// A folder, a device or a file that may not be written fails here as it would without a backup.
void requireReplaceable(Disk& disk, const std::string& target, const std::string& path) {
  const Disk::Kind old = disk.kind(target);
  if (old == Disk::Kind::Nothing || old == Disk::Kind::Unknown) return;
  require(old == Disk::Kind::File && disk.mayWrite(target), path);
}

// Empty for links in a circle, too.
std::string wholeVersion(Disk& disk, const std::string& path, const EndsEarly& endsEarly) {
  if (disk.kind(path) == Disk::Kind::Unknown) return {};
  const std::string target = behindLinks(disk, path);
  for (const std::string& file : {target, target + ".bak"}) {
    if (fileExists(file, disk) && !endsEarly(file)) return file;
  }
  return {};
}

}  // namespace

void replaceTextFile(const std::string& path, const std::function<void(TextWriter&)>& write,
                     const EndsEarly& endsEarly, Disk& disk) {
  const std::string target = behindLinks(disk, path);
  requireReplaceable(disk, target, path);
  std::string bytes;
  TextWriter writer(&bytes);
  std::exception_ptr failure;
  try {
    write(writer);
  } catch (...) {
    failure = std::current_exception();
  }
  Save{disk, target, endsEarly}.put(bytes, failure == nullptr);
  if (failure) std::rethrow_exception(failure);
}

void tellOfFailedSave(Platform& platform, const std::string& path, const std::string& reason,
                      const EndsEarly& endsEarly) {
  if (path.empty()) return;
  platform.saveFailed({path, reason, wholeVersion(platform.disk(), path, endsEarly)});
}

}  // namespace korvane
