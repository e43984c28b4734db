#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Platform.h"
#include "platform/TextFile.h"

namespace korvane {

/// What is added to a file's name for the version before.
inline constexpr const char* kBackupEnding = ".bak";

/// Whether a file is one that a failed save left half written.
using EndsEarly = std::function<bool(const std::string& path)>;

/// Writes a text file that people must not lose. What `write` puts into the writer goes to a file
/// of another name in the same folder; then the file that stood at the path is kept as PATH.bak,
/// unless it ends early, and the new one takes its place. Whatever the moment of a crash, the old
/// or the new content stands whole in the file, and once it is replaced, the old one in its backup.
/// A link is saved through. Where only the file may be written, and not its folder, it is written
/// in place, without a backup.
/// If `write` fails, the file holds what was written so far, unless there is no place for a backup,
/// and the failure goes on. kPathAccess, with the old file as it was and nothing left beside it, if
/// the file or its backup can't be made, or if a folder, a device or a pipe stands at the path.
void replaceTextFile(const std::string& path, const std::function<void(TextWriter&)>& write,
                     const EndsEarly& endsEarly, Disk& disk = machineDisk());

/// A text that people must not lose, and the file that it is for.
struct TextToKeep {
  std::string path;
  std::function<void(TextWriter&)> write;
  EndsEarly endsEarly;
};

/// Writes files that belong together, each as replaceTextFile does, in their order, once all of
/// them stand whole beside those that they replace: a disk that fills up, or a `write` that fails,
/// leaves them all as they were. A crash between two of them finds the first replaced, and what it
/// was in its backup.
void replaceTextFiles(const std::vector<TextToKeep>& texts, Disk& disk = machineDisk());

/// Hands a failed save to Platform::saveFailed, with where the last whole version is. A path that
/// is empty, as nobody chose one, is no save.
void tellOfFailedSave(Platform& platform, const std::string& path, const std::string& reason,
                      const EndsEarly& endsEarly);

}  // namespace korvane
