#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "platform/DiskFile.h"

namespace korvane {
namespace {

/// An open file; every call raises std::system_error if the system refuses it.
class OpenFile {
 public:
  OpenFile(const std::string& path, int flags)
      : path_(path), file_(::open(path.c_str(), flags | O_CLOEXEC, 0666)) {
    require(file_ >= 0);
  }
  ~OpenFile() {
    if (file_ >= 0) ::close(file_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  void write(std::string_view bytes) {
    while (!bytes.empty()) {
      const ::ssize_t written = ::write(file_, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      require(written >= 0);
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }
  void cutAt(std::size_t size) { require(::ftruncate(file_, static_cast<::off_t>(size)) == 0); }
  void flush() { require(::fsync(file_) == 0); }
  /// Some systems tell only here what they could not write.
  void close() { require(::close(std::exchange(file_, -1)) == 0); }

 private:
  void require(bool done) const {
    if (!done) throw std::system_error(errno, std::generic_category(), path_);
  }

  const std::string& path_;
  int file_;
};

}  // namespace

void writeNewFile(const std::string& path, std::string_view bytes) {
  OpenFile file(path, O_WRONLY | O_CREAT | O_EXCL);
  try {
    file.write(bytes);
    file.flush();
    file.close();
  } catch (...) {
    ::unlink(path.c_str());
    throw;
  }
}

// The file is cut only when the new bytes are in it: on a full disk they replace old ones.
void writeOverFile(const std::string& path, std::string_view bytes) {
  OpenFile file(path, O_WRONLY);
  file.write(bytes);
  file.cutAt(bytes.size());
  file.flush();
  file.close();
}

void flushToDisk(const std::string& path) {
  OpenFile file(path, O_RDONLY);
  file.flush();
}

}  // namespace korvane
