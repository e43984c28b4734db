#include "platform/ReplaceFile.h"

#include <deque>
#include <exception>
#include <iterator>
#include <system_error>
#include <utility>

#include "platform/Failure.h"

namespace korvane {
namespace {

constexpr int kMostLinks = 40;  // of links to links; more is a circle

void require(bool done, const std::string& path, const std::string& wrong) {
  if (!done) throw Failure(kPathAccess, path + ": " + wrong);
}

// Where a link points to, there or not yet, so that a save replaces the file and not the link.
std::string behindLinks(Disk& disk, const std::string& path) {
  std::string file = path;
  for (int links = 0; const auto target = disk.link(file); ++links) {
    require(links < kMostLinks, path, "its links lead in a circle");
    file = utf8Path(systemPath(file).parent_path() / systemPath(*target));  // or an absolute one
  }
  return file;
}

bool notAllowed(const std::error_code& error) {
  return error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
         error == std::errc::read_only_file_system;
}

/// A save in its steps: where to, what, and how to know what a failed one left.
class Save {
 public:
  Save(Disk& disk, std::string path, const EndsEarly& endsEarly)
      : disk_(disk), path_(std::move(path)), endsEarly_(endsEarly) {}
  ~Save() { giveUp(); }
  Save(const Save&) = delete;
  Save& operator=(const Save&) = delete;

  /// Writes the bytes beside the file. Half a text never goes where no backup can be made.
  void begin(std::string bytes, bool whole = true);
  void keepBackup();
  void takePlace();

 private:
  void step(const std::function<void()>& inFolder);
  void giveUp();
  void backUp() const;
  void writeInPlace() const;

  Disk& disk_;
  std::string path_;
  const EndsEarly& endsEarly_;
  std::string bytes_;
  bool whole_ = true;
  std::string fresh_;     // the file beside, while there is one
  bool inPlace_ = false;  // only the file may be written, and not its folder
};

// The copy gets its name when it is whole.
void Save::backUp() const {
  const std::string copy = disk_.nameBeside(path_);
  try {
    disk_.copy(path_, copy);
    disk_.rename(copy, path_ + kBackupEnding);
  } catch (...) {
    disk_.remove(copy);
    throw;
  }
}

// There is no place for a backup: what can't be written whole is put back as it was.
void Save::writeInPlace() const {
  const auto stream = disk_.read(path_);
  require(stream->good(), path_, "the file can't be read, to be put back if that must be");
  const std::string old{std::istreambuf_iterator<char>(*stream), {}};
  try {
    disk_.overwrite(path_, bytes_);
  } catch (...) {
    disk_.overwrite(path_, old);
    throw;
  }
}

void Save::giveUp() {
  if (!fresh_.empty()) disk_.remove(std::exchange(fresh_, {}));
}

// What needs the folder, as long as that may be written.
void Save::step(const std::function<void()>& inFolder) {
  try {
    if (!inPlace_) inFolder();
  } catch (const std::system_error& error) {
    giveUp();
    inPlace_ = notAllowed(error.code()) && fileExists(path_, disk_);
    if (inPlace_) return;
    const std::string folder = utf8Path(systemPath(path_).parent_path());
    throw Failure(
        kPathAccess,
        (notAllowed(error.code()) ? "the folder " + folder + " may not be written" : path_) + ": " +
            error.code().message());
  }
}

void Save::begin(std::string bytes, bool whole) {
  bytes_ = std::move(bytes);
  whole_ = whole;
  step([this] {
    const std::string fresh = disk_.nameBeside(path_);
    disk_.create(fresh, bytes_);
    fresh_ = fresh;
  });
}

void Save::keepBackup() {
  step([this] {
    if (!fileExists(path_, disk_)) return;
    disk_.takePermissions(fresh_, path_);
    if (!endsEarly_(path_)) backUp();
  });
}

void Save::takePlace() {
  step([this] {
    disk_.rename(fresh_, path_);
    fresh_.clear();
  });
  if (!inPlace_ || !whole_) return;
  try {
    writeInPlace();
  } catch (const std::system_error& error) {
    throw Failure(kPathAccess, path_ + ": " + error.code().message());
  }
}

// A folder, a device or a file that may not be written fails here as it would without a backup.
void requireReplaceable(Disk& disk, const std::string& target, const std::string& path) {
  const Disk::Kind old = disk.kind(target);
  if (old == Disk::Kind::Nothing || old == Disk::Kind::Unknown) return;
  require(old != Disk::Kind::Folder, path, "a folder stands there");
  require(old == Disk::Kind::File, path, "it is no file, but a pipe or a device");
  require(disk.mayWrite(target), path, "the file may not be written");
}

// Empty for links in a circle, too.
std::string wholeVersion(Disk& disk, const std::string& path, const EndsEarly& endsEarly) {
  if (disk.kind(path) == Disk::Kind::Unknown) return {};
  const std::string target = behindLinks(disk, path);
  for (const std::string& file : {target, target + kBackupEnding}) {
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
  Save save(disk, target, endsEarly);
  save.begin(std::move(bytes), failure == nullptr);
  save.keepBackup();
  save.takePlace();
  if (failure) std::rethrow_exception(failure);
}

void replaceTextFiles(const std::vector<TextToKeep>& texts, Disk& disk) {
  std::deque<Save> saves;  // they stay where they are
  for (const TextToKeep& text : texts) {
    const std::string target = behindLinks(disk, text.path);
    requireReplaceable(disk, target, text.path);
    std::string bytes;
    TextWriter writer(&bytes);
    text.write(writer);
    saves.emplace_back(disk, target, text.endsEarly).begin(std::move(bytes));
  }
  for (Save& save : saves) save.keepBackup();
  for (Save& save : saves) save.takePlace();
}

void tellOfFailedSave(Platform& platform, const std::string& path, const std::string& reason,
                      const EndsEarly& endsEarly) {
  if (path.empty()) return;
  platform.saveFailed({path, reason, wholeVersion(platform.disk(), path, endsEarly)});
}

}  // namespace korvane
