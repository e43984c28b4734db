#pragma once

#include <functional>
#include <string>

#include "platform/TextFile.h"

namespace korvane {

/// Writes a text file that people must not lose. What `write` puts into the writer goes to
/// PATH.saving; then the file that stood at the path is kept as PATH.bak, and the new one takes its
/// place. Whatever the moment of a crash, the old or the new content stands whole in the file, and
/// once it is replaced, the old one in its backup.
/// If `write` fails, the file holds what was written so far, and the failure goes on. kPathAccess,
/// with the old file untouched, if the file or its backup can't be made.
void replaceTextFile(const std::string& path, const std::function<void(TextWriter&)>& write);

/// Hands a file to the disk: it survives a loss of power from here on. kPathAccess if it can't.
void flushToDisk(const std::string& path);

}  // namespace korvane
