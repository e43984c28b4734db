#include "testing/SimulatedDisk.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>

#include "platform/TextFile.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

std::string parentOf(const std::string& path) { return utf8Path(systemPath(path).parent_path()); }

[[noreturn]] void fail(std::errc error, const std::string& path) {
  throw std::system_error(std::make_error_code(error), path);
}

/// A stream that hands its bytes on when it is flushed, and at its end.
class Sink : private std::stringbuf, public std::ostream {
 public:
  explicit Sink(std::function<bool(std::string_view)> take)
      : std::ostream(static_cast<std::stringbuf*>(this)), take_(std::move(take)) {}
  ~Sink() override { Sink::sync(); }
  Sink(const Sink&) = delete;
  Sink& operator=(const Sink&) = delete;

 private:
  int sync() override {
    const std::string bytes = std::stringbuf::str();
    std::stringbuf::str({});
    return bytes.empty() || take_(bytes) ? 0 : -1;
  }

  std::function<bool(std::string_view)> take_;
};

std::unique_ptr<std::istream> failedStream() {
  auto stream = std::make_unique<std::istringstream>();
  stream->setstate(std::ios::failbit);
  return stream;
}

}  // namespace

bool SimulatedDisk::hasFolder(const std::string& path) const {
  return folders_.contains(path.ends_with('/') ? path.substr(0, path.size() - 1) : path);
}

Disk::Kind SimulatedDisk::kind(const std::string& path) {
  if (powerLost()) return Kind::Unknown;
  if (hasFolder(path)) return Kind::Folder;
  return files_.contains(path) ? Kind::File : Kind::Nothing;
}

std::string SimulatedDisk::bytesOf(const std::string& path) const {
  const auto found = files_.find(path);
  return found == files_.end() ? std::string() : found->second;
}

std::uintmax_t SimulatedDisk::size(const std::string& path) { return bytesOf(path).size(); }

std::size_t SimulatedDisk::used() const {
  std::size_t bytes = 0;
  for (const auto& [path, content] : files_) bytes += content.size();
  return bytes;
}

void SimulatedDisk::takeFolder(const std::string& real, const std::string& path) {
  makeFolders(path);
  for (const fs::directory_entry& entry : fs::directory_iterator(real)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream stream(entry.path(), std::ios::binary);
    files_[path + "/" + utf8Path(entry.path().filename())] = {
        std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }
}

std::unique_ptr<std::istream> SimulatedDisk::read(const std::string& path) {
  if (kind(path) != Kind::File) return failedStream();
  return std::make_unique<std::istringstream>(bytesOf(path));
}

std::unique_ptr<std::ostream> SimulatedDisk::write(const std::string& path) {
  const bool there = !powerLost() && !losesPower() && !hasFolder(path) && hasFolder(parentOf(path));
  if (there) files_[path].clear();
  auto stream = std::make_unique<Sink>([this, path](std::string_view bytes) {
    if (powerLost()) return false;
    const bool whole = !losesPower() && used() + bytes.size() <= capacity;
    files_[path] += whole ? std::string(bytes) : torn(bytes.substr(0, capacity - used()));
    return whole;
  });
  if (!there) stream->setstate(std::ios::failbit);
  return stream;
}

bool SimulatedDisk::mayWrite(const std::string& path) { return kind(path) == Kind::File; }

void SimulatedDisk::makeFolders(const std::string& path) {
  if (powerLost()) return;
  for (fs::path folder = systemPath(path); folder.has_relative_path();
       folder = folder.parent_path())
    if (folder.has_filename()) folders_.insert(utf8Path(folder));
}

std::string SimulatedDisk::nameBeside(const std::string& path) {
  return parentOf(path) + "/.korvane-" + std::to_string(++names_) + ".saving";
}

void SimulatedDisk::remove(const std::string& path) {
  if (!powerLost() && !losesPower()) files_.erase(path);
}

void SimulatedDisk::requirePower() const {
  if (powerLost()) fail(std::errc::io_error, "no power");
}

bool SimulatedDisk::losesPower() { return stepsLeft_ > 0 && --stepsLeft_ == 0; }

void SimulatedDisk::requirePlace(const std::string& path) const {
  if (!hasFolder(parentOf(path))) fail(std::errc::no_such_file_or_directory, path);
}

void SimulatedDisk::requireRoom(const std::string& path, std::size_t bytes) const {
  if (bytes > capacity || used() > capacity - bytes) fail(std::errc::no_space_on_device, path);
}

std::string SimulatedDisk::torn(std::string_view bytes) {
  const float part = random_.next();
  return std::string(
      bytes.substr(0, static_cast<std::size_t>(part * static_cast<float>(bytes.size()))));
}

void SimulatedDisk::create(const std::string& path, std::string_view bytes) {
  requirePower();
  requirePlace(path);
  if (hasFolder(path) || files_.contains(path)) fail(std::errc::file_exists, path);
  requireRoom(path, bytes.size());
  files_[path] = losesPower() ? torn(bytes) : std::string(bytes);
  requirePower();
}

void SimulatedDisk::overwrite(const std::string& path, std::string_view bytes) {
  requirePower();
  if (!files_.contains(path)) fail(std::errc::no_such_file_or_directory, path);
  std::string& file = files_[path];
  const std::size_t room = capacity - (used() - file.size());
  const bool whole = bytes.size() <= room && !losesPower();
  const std::string begun = whole ? std::string(bytes) : torn(bytes.substr(0, room));
  file = whole ? begun : begun + (begun.size() < file.size() ? file.substr(begun.size()) : "");
  requirePower();
  if (!whole) fail(std::errc::no_space_on_device, path);
}

void SimulatedDisk::copy(const std::string& from, const std::string& to) {
  requirePower();
  if (!files_.contains(from)) fail(std::errc::no_such_file_or_directory, from);
  create(to, bytesOf(from));
}

// A crash finds it done or not begun.
void SimulatedDisk::rename(const std::string& from, const std::string& to) {
  requirePower();
  requirePlace(to);
  if (!files_.contains(from)) fail(std::errc::no_such_file_or_directory, from);
  if (hasFolder(to)) fail(std::errc::is_a_directory, to);
  if (!losesPower() || random_.next() < 0.5F) {
    files_[to] = files_[from];
    if (to != from) files_.erase(from);
  }
  requirePower();
}

}  // namespace korvane
