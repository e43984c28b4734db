#include "platform/ReplaceFile.h"

#include <exception>
#include <system_error>

#include "platform/Failure.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

void require(bool done, const std::string& path) {
  if (!done) throw Failure(kPathAccess, path);
}

void rename(const std::string& from, const std::string& to) {
  std::error_code error;
  fs::rename(systemPath(from), systemPath(to), error);
  require(!error, to);
}

// Where a link points to, so that a save replaces the file and not the link.
std::string behindLinks(const std::string& path) {
  std::error_code error;
  if (!fs::is_symlink(systemPath(path), error)) return path;
  const std::u8string real = fs::weakly_canonical(systemPath(path), error).u8string();
  return error ? path : std::string(real.begin(), real.end());
}

// The copy gets its name when it is whole. What a crash left of an earlier one is removed first:
// not every system copies over a file.
void keepBackup(const std::string& path) {
  const std::string copy = path + ".bak.saving";
  std::error_code error;
  fs::remove(systemPath(copy), error);
  fs::copy_file(systemPath(path), systemPath(copy), error);
  require(!error, copy);
  flushToDisk(copy);
  rename(copy, path + ".bak");
}

void takePlace(const std::string& fresh, const std::string& path) {
  flushToDisk(fresh);
  if (fileExists(path)) {
    std::error_code error;
    fs::permissions(systemPath(fresh), fs::status(systemPath(path), error).permissions(), error);
    keepBackup(path);
  }
  rename(fresh, path);
}

// Writes the new file; a failure of `write` is returned, with what was written in the file.
std::exception_ptr writeAll(const std::string& path,
                            const std::function<void(TextWriter&)>& write) {
  TextWriter writer(path);
  try {
    write(writer);
    writer.close();
  } catch (...) {
    return std::current_exception();
  }
  return nullptr;
}

}  // namespace

void replaceTextFile(const std::string& path, const std::function<void(TextWriter&)>& write) {
  const std::string target = behindLinks(path);
  std::error_code error;
  const fs::file_status old = fs::status(systemPath(target), error);
  if (fs::exists(old)) {
    // A folder, a device or a file that may not be written fails here as it would without a backup.
    require(fs::is_regular_file(old), path);
    require(std::ofstream(systemPath(target), std::ios::app).good(), path);
  }
  const std::string fresh = target + ".saving";
  const std::exception_ptr failure = writeAll(fresh, write);
  takePlace(fresh, target);
  if (failure) std::rethrow_exception(failure);
}

}  // namespace korvane
