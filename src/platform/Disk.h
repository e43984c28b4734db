// The disk, as a seam: a simulation can stand in for it. Paths are UTF-8.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace korvane {

class Disk {
 public:
  /// What stands at a path, links followed; Unknown: it can't be told.
  enum class Kind { Nothing, File, Folder, Other, Unknown };

  virtual ~Disk() = default;

  virtual Kind kind(const std::string& path) = 0;
  /// Of a file, in bytes; 0 if that can't be told.
  virtual std::uintmax_t size(const std::string& path) = 0;
  /// A file's bytes; the stream has failed if they can't be read.
  virtual std::unique_ptr<std::istream> read(const std::string& path) = 0;
  /// A file that is made, or emptied, to be written; the stream has failed if that can't be done.
  virtual std::unique_ptr<std::ostream> write(const std::string& path) = 0;
  /// Whether a file that stands there may be written.
  virtual bool mayWrite(const std::string& path) = 0;
  /// Makes a folder and those above it, as far as they are not there and that can be done.
  virtual void makeFolders(const std::string& path) = 0;
  /// A path in the folder of this one that nobody can guess, so that nobody can put a link there.
  virtual std::string nameBeside(const std::string& path) = 0;
  /// Gives a file the permissions of another one, as far as that can be done.
  virtual void takePermissions(const std::string& path, const std::string& from) = 0;
  /// Nothing happens if that can't be done.
  virtual void remove(const std::string& path) = 0;

  // Each of these raises std::system_error.

  /// Where a link points to; nothing for what is no link.
  virtual std::optional<std::string> link(const std::string& path) = 0;
  /// Makes a file that was not there, with these bytes, which survive a loss of power from here on.
  /// Nothing of it is left behind if that fails.
  virtual void create(const std::string& path, std::string_view bytes) = 0;
  /// Writes over the bytes of a file that is there, in the same way.
  virtual void overwrite(const std::string& path, std::string_view bytes) = 0;
  /// Makes a file with the bytes of another one, in the same way.
  virtual void copy(const std::string& from, const std::string& to) = 0;
  /// Puts a file in the place of what has the other name: that is there whole, or this.
  virtual void rename(const std::string& from, const std::string& to) = 0;
};

/// The disk of this machine.
Disk& machineDisk();

}  // namespace korvane
