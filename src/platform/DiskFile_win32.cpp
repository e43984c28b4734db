#include <windows.h>

#include <algorithm>
#include <system_error>
#include <utility>

#include "platform/DiskFile.h"
#include "platform/TextFile.h"

namespace korvane {
namespace {

constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;

/// An open file; every call raises std::system_error if the system refuses it.
class OpenFile {
 public:
  OpenFile(const std::string& path, DWORD disposition)
      : path_(path),
        file_(::CreateFileW(systemPath(path).c_str(), GENERIC_WRITE,
                            FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, disposition,
                            FILE_ATTRIBUTE_NORMAL, nullptr)) {
    require(file_ != INVALID_HANDLE_VALUE);
  }
  ~OpenFile() {
    if (file_ != INVALID_HANDLE_VALUE) ::CloseHandle(file_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  void write(std::string_view bytes) {
    while (!bytes.empty()) {
      DWORD written = 0;
      const auto count = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
      require(::WriteFile(file_, bytes.data(), count, &written, nullptr) != 0);
      bytes.remove_prefix(written);
    }
  }
  void cutHere() { require(::SetEndOfFile(file_) != 0); }
  void flush() { require(::FlushFileBuffers(file_) != 0); }
  void close() { require(::CloseHandle(std::exchange(file_, INVALID_HANDLE_VALUE)) != 0); }

 private:
  void require(bool done) const {
    if (!done)
      throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), path_);
  }

  const std::string& path_;
  HANDLE file_;
};

}  // namespace

void writeNewFile(const std::string& path, std::string_view bytes) {
  OpenFile file(path, CREATE_NEW);
  try {
    file.write(bytes);
    file.flush();
    file.close();
  } catch (...) {
    ::DeleteFileW(systemPath(path).c_str());
    throw;
  }
}

// The file is cut only when the new bytes are in it: on a full disk they replace old ones.
void writeOverFile(const std::string& path, std::string_view bytes) {
  OpenFile file(path, OPEN_EXISTING);
  file.write(bytes);
  file.cutHere();
  file.flush();
  file.close();
}

void flushToDisk(const std::string& path) {
  OpenFile file(path, OPEN_EXISTING);
  file.flush();
}

}  // namespace korvane
