#pragma once

#include <string>

#include "platform/ReplaceFile.h"
#include "platform/TextFile.h"
#include "state/Engine.h"

namespace korvane {

/// The second line of a project file.
inline const std::string kProjectVersion = "V1.0";

/// `save_Click` of the main window: asks for a file and writes the whole composition into it. Any
/// error, a cancelled dialog included, ends it without a word; all but a cancelled dialog go to
/// Platform::saveFailed. A file that it replaces is kept as NAME.bak. Whether it was saved.
bool saveProject(Engine& engine);

/// `load_Click` of the main window: asks for a file and replaces the contents of the three lists by
/// it. A wrong version and a file of more than 32 MiB (kOutOfMemory) leave everything as it was;
/// any other failure leaves the lists as far as they had come, with the deck timers stopped.
/// Whether it was loaded.
bool loadProject(Engine& engine);

/// The same with a given file, and without a message. kTypeMismatch, with everything as it was, for
/// a wrong version. An effect that can't start, for want of its picture, say, is reported alone.
void openProject(Engine& engine, const std::string& path);
/// The same, with pictures looked for in another folder than the file's own.
void openProject(Engine& engine, const std::string& path, const std::string& folder);

/// The lines of a project file. `title` is the file's name without its folder.
void writeProject(const Engine& engine, const NumberFormat& format, const std::string& title,
                  TextWriter& file);

/// What the file holds of the composition: all but its head, which tells the title, where the fader
/// and the selections stand, and the counts.
void writeComposition(const Engine& engine, const NumberFormat& format, TextWriter& file);

/// A project file to be written. A failure if it could not be loaded again.
TextToKeep projectToKeep(const Engine& engine, const std::string& path);
/// Writes a project file as replaceTextFile does; a failure, with the file as it was, if it could
/// not be loaded again.
void replaceProject(const Engine& engine, const std::string& path);
/// Hands a failed save of a project to Platform::saveFailed.
void tellOfFailedProject(Platform& platform, const std::string& path, const std::string& reason);

/// Whether a file is a project whose lines end before they should: what a failed save left.
bool projectEndsEarly(const std::string& path, Disk& disk);

}  // namespace korvane
