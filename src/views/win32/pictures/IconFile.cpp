#include "views/win32/pictures/IconFile.h"

#include <fstream>

#include "platform/TextFile.h"

namespace korvane {
namespace {

constexpr std::size_t kDirectory = 6;     // bytes before the first entry
constexpr std::size_t kEntry = 16;        // bytes of an entry
constexpr std::size_t kPictureHead = 24;  // of a picture, up to its size
constexpr std::size_t kEntryOffset = 12;  // of a picture's place, within its entry

using Bytes = std::string;

// Bytes of a file, fewer at its end.
Bytes part(std::ifstream& stream, std::size_t at, std::size_t count) {
  Bytes bytes(count, '\0');
  stream.clear();
  stream.seekg(static_cast<std::streamoff>(at));
  stream.read(bytes.data(), static_cast<std::streamsize>(count));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

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
std::pair<std::uint32_t, std::uint32_t> sizeOf(const Bytes& head) {
  if (head.starts_with("\x89PNG")) return {number(head, 16, 4, false), number(head, 20, 4, false)};
  return {number(head, 4, 4), number(head, 8, 4) / 2};
}

}  // namespace

std::vector<std::pair<std::uint32_t, std::uint32_t>> iconSizes(const std::string& path) {
  std::ifstream stream(systemPath(path), std::ios::binary);
  std::vector<std::pair<std::uint32_t, std::uint32_t>> sizes;
  const Bytes head = part(stream, 0, kDirectory);
  if (number(head, 0, 4) != 0x10000) return sizes;
  const std::uint32_t count = number(head, 4, 2);
  const Bytes entries = part(stream, kDirectory, count * kEntry);
  for (std::uint32_t i = 0; i < count; ++i) {
    const Bytes picture = part(stream, number(entries, i * kEntry + kEntryOffset, 4), kPictureHead);
    if (!picture.empty()) sizes.push_back(sizeOf(picture));
  }
  return sizes;
}

}  // namespace korvane
