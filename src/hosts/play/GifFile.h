#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/Grid.h"

namespace korvane {

/// An animated picture of lamps, written frame by frame. A file of the name is replaced when it is
/// whole. What can't be written is a std::runtime_error that says why.
class GifFile {
 public:
  GifFile(const std::string& path, int cols, int rows);
  ~GifFile();
  GifFile(const GifFile&) = delete;
  GifFile& operator=(const GifFile&) = delete;

  /// The picture from `milliseconds` on, since the start.
  void add(const Frame& picture, std::int64_t milliseconds);
  /// Ends the last picture and the file.
  void finish(std::int64_t milliseconds);

 private:
  struct Writer;
  std::unique_ptr<Writer> writer_;
};

}  // namespace korvane
