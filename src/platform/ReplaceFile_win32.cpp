#define NOMINMAX
#include <windows.h>

#include "platform/Failure.h"
#include "platform/ReplaceFile.h"

namespace korvane {

void flushToDisk(const std::string& path) {
  const HANDLE file = ::CreateFileW(systemPath(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  const bool opened = file != INVALID_HANDLE_VALUE;
  const bool flushed = opened && ::FlushFileBuffers(file) != 0;
  if (opened) ::CloseHandle(file);
  if (!flushed) throw Failure(kPathAccess, path);
}

}  // namespace korvane
