#include "platform/TextFile.h"

#include <istream>
#include <ostream>

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

bool fileExists(const std::string& path, Disk& disk) { return disk.kind(path) == Disk::Kind::File; }

std::string fileTitle(const std::string& path) { return utf8Path(systemPath(path).filename()); }

TextReader::TextReader(const std::string& path, Disk& disk) : path_(path), disk_(disk) {
  if (!fileExists(path, disk)) throw Failure(kFileNotFound, path);
  stream_ = disk.read(path);
  if (!*stream_) throw Failure(kPathAccess, path);
}

void TextReader::fail(int number, const std::string& what) const {
  throw Failure(number, path_ + ", line " + std::to_string(line_) + what);
}

// False at the end of the file.
bool TextReader::readBlock() {
  block_.resize(kBlock);
  stream_->read(block_.data(), static_cast<std::streamsize>(kBlock));
  if (stream_->bad()) throw Failure(kPathAccess, path_);
  block_.resize(static_cast<std::size_t>(stream_->gcount()));
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

std::uintmax_t TextReader::size() const { return disk_.size(path_); }

// To open a pipe would wait for its reader.
TextWriter::TextWriter(const std::string& path, Disk& disk) : path_(path) {
  const Disk::Kind old = disk.kind(path);
  if (old == Disk::Kind::Nothing || old == Disk::Kind::File) stream_ = disk.write(path);
  if (!stream_ || !*stream_) throw Failure(kPathAccess, path_);
}

TextWriter::TextWriter(std::string* bytes) : bytes_(bytes) {}

TextWriter::~TextWriter() = default;

void TextWriter::writeLine(std::string_view utf8) {
  const std::string line = toCodePage1252(utf8) + "\r\n";
  bytes_ != nullptr ? static_cast<void>(*bytes_ += line) : static_cast<void>(*stream_ << line);
}

void TextWriter::close() {
  if (bytes_ != nullptr) return;
  const bool taken = !stream_->flush().fail();
  stream_.reset();
  if (!taken) throw Failure(kPathAccess, path_);
}

}  // namespace korvane
