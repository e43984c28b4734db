#include <fcntl.h>
#include <unistd.h>

#include "platform/Failure.h"
#include "platform/ReplaceFile.h"

namespace korvane {

void flushToDisk(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const bool flushed = file >= 0 && ::fsync(file) == 0;
  if (file >= 0) ::close(file);
  if (!flushed) throw Failure(kPathAccess, path);
}

}  // namespace korvane
