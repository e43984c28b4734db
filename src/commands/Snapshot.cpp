#include "commands/Snapshot.h"

#include <filesystem>
#include <fstream>
#include <ostream>
#include <vector>

#include "commands/CommandError.h"
#include "platform/Text.h"

#ifndef __clang_analyzer__  // the code behind it is not ours to examine
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#endif
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>

namespace korvane {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes components(const Raster& picture) {
  Bytes bytes;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const Rgb parts = colorParts(picture.pixel(x, y));
      bytes.insert(bytes.end(), parts.begin(), parts.end());
    }
  }
  return bytes;
}

void append(void* bytes, void* data, int size) {
  const auto* from = static_cast<const std::uint8_t*>(data);
  static_cast<Bytes*>(bytes)->insert(static_cast<Bytes*>(bytes)->end(), from, from + size);
}

Bytes bmp(int width, int height, const Bytes& rgb) {
  Bytes file;
  stbi_write_bmp_to_func(append, &file, width, height, 3, rgb.data());
  return file;
}

Bytes png(int width, int height, const Bytes& rgb) {
  Bytes file;
  stbi_write_png_to_func(append, &file, width, height, 3, rgb.data(), 3 * width);
  return file;
}

Bytes ppm(int width, int height, const Bytes& rgb) {
  const std::string head =
      "P6\n" + std::to_string(width) + " " + std::to_string(height) + "\n255\n";
  Bytes file(head.begin(), head.end());
  file.insert(file.end(), rgb.begin(), rgb.end());
  return file;
}

struct Format {
  const char* ending;
  Bytes (*encode)(int width, int height, const Bytes& rgb);
};
constexpr Format kFormats[] = {{".bmp", bmp}, {".png", png}, {".ppm", ppm}};

const Format& formatOf(const std::string& path) {
  const std::string lower = lowerCase(path);
  for (const Format& format : kFormats) {
    if (lower.ends_with(format.ending)) return format;
  }
  throw CommandError("The name " + inQuotes(path) + " must end in .bmp, .png or .ppm.");
}

}  // namespace

void writeSnapshot(const Raster& picture, const std::string& path) {
  const Format& format = formatOf(path);
  if (picture.width() == 0 || picture.height() == 0) throw CommandError("The picture is empty.");
  const Bytes file = format.encode(picture.width(), picture.height(), components(picture));
  std::ofstream stream(std::filesystem::path(std::u8string(path.begin(), path.end())),
                       std::ios::binary);
  stream.write(reinterpret_cast<const char*>(file.data()),
               static_cast<std::streamsize>(file.size()));
  stream.close();
  if (!stream) throw CommandError("The file " + inQuotes(path) + " can't be written.");
}

}  // namespace korvane
