#include "desk/network/SequenceStore.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

namespace korvane {
namespace {

std::string nameOf(const Uuid& identity) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string name = "/korvane-";
  for (const std::uint8_t byte : identity) {
    name += kDigits[byte >> 4];
    name += kDigits[byte & 15];
  }
  return name;
}

/// Null if another user's object, or nothing at all, stands there.
std::uint8_t* openShared(const Uuid& identity) {
  const int object = shm_open(nameOf(identity).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (object < 0) return nullptr;
  struct stat facts {};
  const bool mine = fstat(object, &facts) == 0 && facts.st_uid == geteuid() &&
                    ftruncate(object, SequenceStore::kUniverses) == 0;
  void* const memory =
      mine ? mmap(nullptr, SequenceStore::kUniverses, PROT_READ | PROT_WRITE, MAP_SHARED, object, 0)
           : MAP_FAILED;
  close(object);
  return memory == MAP_FAILED ? nullptr : static_cast<std::uint8_t*>(memory);
}

}  // namespace

SequenceStore::SequenceStore(const Uuid& identity) : numbers_(openShared(identity)) {
  if (numbers_ != nullptr) return;
  own_.resize(kUniverses);
  numbers_ = own_.data();
}

SequenceStore::~SequenceStore() {
  if (own_.empty()) munmap(numbers_, kUniverses);
}

}  // namespace korvane
