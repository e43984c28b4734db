#include "platform/ReplaceFile.h"

#include <exception>
#include <iterator>
#include <random>
#include <sstream>
#include <system_error>

#include "platform/Failure.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;  // of links to links; more is a circle

void require(bool done, const std::string& path) {
  if (!done) throw Failure(kPathAccess, path);
}

void require(const std::error_code& error, const std::string& path) {
  if (error) throw std::system_error(error, path);
}

void rename(const std::string& from, const std::string& to) {
  std::error_code error;
  fs::rename(systemPath(from), systemPath(to), error);
  require(error, to);
}

void remove(const std::string& path) {
  std::error_code error;
  fs::remove(systemPath(path), error);
}

// Where a link points to, there or not yet, so that a save replaces the file and not the link.
std::string behindLinks(const std::string& path) {
  fs::path file = systemPath(path);
  std::error_code error;
  for (int links = 0; fs::is_symlink(file, error); ++links) {
    require(links < kMostLinks, path);
    file = file.parent_path() / fs::read_symlink(file, error);  // or where an absolute one says
    require(error, path);
  }
  return utf8Path(file);
}

// A name in the folder of the file that nobody can guess, so that nobody can put a link there.
std::string nameBeside(const std::string& path) {
  std::random_device random;
  std::ostringstream name;
  name << ".korvane-" << std::hex << random() << random() << ".saving";
  return utf8Path(systemPath(path).parent_path() / name.str());
}

// The copy gets its name when it is whole.
void keepBackup(const std::string& path) {
  const std::string copy = nameBeside(path);
  try {
    std::error_code error;
    fs::copy_file(systemPath(path), systemPath(copy), error);
    require(error, copy);
    flushToDisk(copy);
    rename(copy, path + ".bak");
  } catch (...) {
    remove(copy);
    throw;
  }
}

void takePlace(const std::string& fresh, const std::string& path, const EndsEarly& endsEarly) {
  if (fileExists(path)) {
    std::error_code error;
    fs::permissions(systemPath(fresh), fs::status(systemPath(path), error).permissions(), error);
    if (!endsEarly(path)) keepBackup(path);
  }
  rename(fresh, path);
}

void replace(const std::string& path, const std::string& bytes, const EndsEarly& endsEarly) {
  const std::string fresh = nameBeside(path);
  writeNewFile(fresh, bytes);
  try {
    takePlace(fresh, path, endsEarly);
  } catch (...) {
    remove(fresh);
    throw;
  }
}

std::string bytesOf(const std::string& path) {
  std::ifstream stream(systemPath(path), std::ios::binary);
  require(stream.good(), path);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// There is no place for a backup: what can't be written whole is put back as it was.
void writeInPlace(const std::string& path, const std::string& bytes) {
  const std::string old = bytesOf(path);
  try {
    writeOverFile(path, bytes);
  } catch (...) {
    writeOverFile(path, old);
    throw;
  }
}

bool notAllowed(const std::error_code& error) {
  return error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
         error == std::errc::read_only_file_system;
}

// Puts the bytes into the file. Half a text never goes where no backup can be made.
void put(const std::string& path, const std::string& bytes, bool whole,
         const EndsEarly& endsEarly) {
  try {
    try {
      replace(path, bytes, endsEarly);
    } catch (const std::system_error& error) {
      if (!notAllowed(error.code()) || !fileExists(path)) throw;
      if (whole) writeInPlace(path, bytes);
    }
  } catch (const std::system_error& error) {
    throw Failure(kPathAccess, path + ": " + error.code().message());
  }
}

void requireReplaceable(const std::string& target, const std::string& path) {
  std::error_code error;
  const fs::file_status old = fs::status(systemPath(target), error);
  if (!fs::exists(old)) return;
  // A folder, a device or a file that may not be written fails here as it would without a backup.
  require(fs::is_regular_file(old), path);
  require(std::ofstream(systemPath(target), std::ios::app).good(), path);
}

// Empty for links in a circle, too.
std::string wholeVersion(const std::string& path, const EndsEarly& endsEarly) {
  std::error_code error;
  if (fs::status(systemPath(path), error).type() == fs::file_type::none) return {};
  const std::string target = behindLinks(path);
  for (const std::string& file : {target, target + ".bak"}) {
    if (fileExists(file) && !endsEarly(file)) return file;
  }
  return {};
}

}  // namespace

void replaceTextFile(const std::string& path, const std::function<void(TextWriter&)>& write,
                     const EndsEarly& endsEarly) {
  const std::string target = behindLinks(path);
  requireReplaceable(target, path);
  std::string bytes;
  TextWriter writer(&bytes);
  std::exception_ptr failure;
  try {
    write(writer);
  } catch (...) {
    failure = std::current_exception();
  }
  put(target, bytes, failure == nullptr, endsEarly);
  if (failure) std::rethrow_exception(failure);
}

void tellOfFailedSave(Platform& platform, const std::string& path, const std::string& reason,
                      const EndsEarly& endsEarly) {
  if (path.empty()) return;
  platform.saveFailed({path, reason, wholeVersion(path, endsEarly)});
}

}  // namespace korvane
