#include "platform/Disk.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <system_error>

#include "platform/DiskFile.h"
#include "platform/TextFile.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

void require(const std::error_code& error, const std::string& path) {
  if (error) throw std::system_error(error, path);
}

Disk::Kind kindOfFile(fs::file_type type) {
  switch (type) {
    case fs::file_type::none:
      return Disk::Kind::Unknown;
    case fs::file_type::not_found:
      return Disk::Kind::Nothing;
    case fs::file_type::regular:
      return Disk::Kind::File;
    case fs::file_type::directory:
      return Disk::Kind::Folder;
    default:
      return Disk::Kind::Other;
  }
}

class MachineDisk : public Disk {
 public:
  Kind kind(const std::string& path) override {
    std::error_code error;
    return kindOfFile(fs::status(systemPath(path), error).type());
  }
  std::uintmax_t size(const std::string& path) override {
    std::error_code error;
    const std::uintmax_t bytes = fs::file_size(systemPath(path), error);
    return error ? 0 : bytes;
  }
  std::unique_ptr<std::istream> read(const std::string& path) override {
    return std::make_unique<std::ifstream>(systemPath(path), std::ios::binary);
  }
  std::unique_ptr<std::ostream> write(const std::string& path) override {
    return std::make_unique<std::ofstream>(systemPath(path), std::ios::binary);
  }
  bool mayWrite(const std::string& path) override {
    return std::ofstream(systemPath(path), std::ios::app).good();
  }
  void makeFolders(const std::string& path) override {
    std::error_code error;
    fs::create_directories(systemPath(path), error);
  }
  std::string nameBeside(const std::string& path) override {
    std::random_device random;
    std::ostringstream name;
    name << ".korvane-" << std::hex << random() << random() << ".saving";
    return utf8Path(systemPath(path).parent_path() / name.str());
  }
  void takePermissions(const std::string& path, const std::string& from) override {
    std::error_code error;
    fs::permissions(systemPath(path), fs::status(systemPath(from), error).permissions(), error);
  }
  void remove(const std::string& path) override {
    std::error_code error;
    fs::remove(systemPath(path), error);
  }

  std::optional<std::string> link(const std::string& path) override {
    std::error_code error;
    if (!fs::is_symlink(systemPath(path), error)) return std::nullopt;
    const fs::path target = fs::read_symlink(systemPath(path), error);
    require(error, path);
    return utf8Path(target);
  }
  void create(const std::string& path, std::string_view bytes) override {
    writeNewFile(path, bytes);
  }
  void overwrite(const std::string& path, std::string_view bytes) override {
    writeOverFile(path, bytes);
  }
  void copy(const std::string& from, const std::string& to) override {
    std::error_code error;
    fs::copy_file(systemPath(from), systemPath(to), error);
    require(error, to);
    flushToDisk(to);
  }
  void rename(const std::string& from, const std::string& to) override {
    std::error_code error;
    fs::rename(systemPath(from), systemPath(to), error);
    require(error, to);
  }
};

}  // namespace

Disk& machineDisk() {
  static MachineDisk disk;
  return disk;
}

}  // namespace korvane
