#include "platform/TextFile.h"

#include <fstream>
#include <system_error>

#include "platform/Failure.h"
#include "platform/Text.h"

namespace korvane {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 16;

}  // namespace

std::filesystem::path systemPath(const std::string& path) {
  return {std::u8string(path.begin(), path.end())};
}

std::string utf8Path(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

bool fileExists(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(systemPath(path), error);
}

std::string fileTitle(const std::string& path) { return utf8Path(systemPath(path).filename()); }

TextReader::TextReader(const std::string& path) : path_(path) {
  if (!fileExists(path)) throw Failure(kFileNotFound, path);
  stream_.open(systemPath(path), std::ios::binary);
  if (!stream_) throw Failure(kPathAccess, path);
}

void TextReader::fail(int number, const std::string& what) const {
  throw Failure(number, path_ + ", line " + std::to_string(line_) + what);
}

// False at the end of the file.
bool TextReader::readBlock() {
  block_.resize(kBlock);
  stream_.read(block_.data(), static_cast<std::streamsize>(kBlock));
  if (stream_.bad()) throw Failure(kPathAccess, path_);
  block_.resize(static_cast<std::size_t>(stream_.gcount()));
  position_ = 0;
  return !block_.empty();
}

bool TextReader::atEnd() { return position_ >= block_.size() && !readBlock(); }

void TextReader::takeUpTo(std::size_t end, std::string& line) {
  line.append(block_, position_, end - position_);
  bytesRead_ += end - position_;
  position_ = end;
  if (line.size() > kLongestLine)
    fail(kOutOfMemory, ": longer than " + std::to_string(kLongestLine) + " bytes");
}

std::string TextReader::readLine() {
  ++line_;
  if (atEnd()) fail(kPastEndOfFile, "");
  std::string line;
  std::size_t end = block_.find('\n', position_);
  while (end == std::string::npos) {
    takeUpTo(block_.size(), line);
    if (!readBlock()) break;
    end = block_.find('\n');
  }
  if (end != std::string::npos) {
    takeUpTo(end, line);
    ++position_;
    ++bytesRead_;
  }
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return fromCodePage1252(line);
}

std::uintmax_t TextReader::size() const {
  std::error_code error;
  const std::uintmax_t bytes = std::filesystem::file_size(systemPath(path_), error);
  return error ? 0 : bytes;
}

// To open a pipe would wait for its reader.
TextWriter::TextWriter(const std::string& path) : path_(path) {
  std::error_code error;
  const std::filesystem::file_status old = std::filesystem::status(systemPath(path), error);
  if (!std::filesystem::exists(old) || std::filesystem::is_regular_file(old))
    stream_.open(systemPath(path), std::ios::binary);
  if (!stream_.is_open()) throw Failure(kPathAccess, path_);
}

void TextWriter::writeLine(std::string_view utf8) {
  const std::string line = toCodePage1252(utf8) + "\r\n";
  bytes_ != nullptr ? static_cast<void>(*bytes_ += line) : static_cast<void>(stream_ << line);
}

void TextWriter::close() {
  if (bytes_ != nullptr) return;
  stream_.close();
  if (stream_.fail()) throw Failure(kPathAccess, path_);
}

}  // namespace korvane
