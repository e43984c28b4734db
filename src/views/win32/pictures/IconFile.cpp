#include "views/win32/pictures/IconFile.h"

#include <fstream>
#include <iterator>

#include "platform/TextFile.h"

namespace korvane {
namespace {

constexpr std::size_t kDirectory = 6;     // bytes before the first entry
constexpr std::size_t kEntry = 16;        // bytes of an entry
constexpr std::size_t kEntryOffset = 12;  // of a picture's place, within its entry

using Bytes = std::string;

// A number of some bytes, the lowest first or last; 0 beyond the end.
std::uint32_t number(const Bytes& bytes, std::size_t at, int count, bool lowestFirst = true) {
  std::uint32_t value = 0;
  for (int i = 0; i < count; ++i) {
    const std::size_t place = at + static_cast<std::size_t>(lowestFirst ? count - 1 - i : i);
    if (place >= bytes.size()) return 0;
    value = value << 8 | static_cast<std::uint8_t>(bytes[place]);
  }
  return value;
}

// A picture is a png file, or a bitmap's head with twice the height: its mask stands below it.
std::pair<std::uint32_t, std::uint32_t> sizeAt(const Bytes& bytes, std::size_t at) {
  if (bytes.compare(at, 4, "\x89PNG") == 0)
    return {number(bytes, at + 16, 4, false), number(bytes, at + 20, 4, false)};
  return {number(bytes, at + 4, 4), number(bytes, at + 8, 4) / 2};
}

}  // namespace

std::vector<std::pair<std::uint32_t, std::uint32_t>> iconSizes(const std::string& path) {
  std::ifstream stream(systemPath(path), std::ios::binary);
  const Bytes bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  std::vector<std::pair<std::uint32_t, std::uint32_t>> sizes;
  if (number(bytes, 0, 4) != 0x10000) return sizes;
  for (std::uint32_t i = 0; i < number(bytes, 4, 2); ++i) {
    const std::size_t place = number(bytes, kDirectory + i * kEntry + kEntryOffset, 4);
    if (place < bytes.size()) sizes.push_back(sizeAt(bytes, place));
  }
  return sizes;
}

}  // namespace korvane
