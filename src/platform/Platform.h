#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Disk.h"
#include "platform/Failure.h"
#include "platform/Raster.h"
#include "platform/Text.h"

namespace korvane {

/// What a file dialog is to ask.
struct FileQuestion {
  enum class Purpose { Open, Save };

  Purpose purpose = Purpose::Open;
  std::string title{};
  std::string filter{};  ///< "text|pattern", as in "Matrix Project (*.Korvane)|*.Korvane"
  std::string initialDirectory{};
  std::string defaultExtension{};  ///< without the point; empty for none
  std::string suggestedName{};     ///< a file's name, to begin with; empty for none
};

/// A save that did not write what it was to write.
struct FailedSave {
  std::string path;    ///< the file that it was to write
  std::string reason;  ///< the text of the failure
  std::string whole;   ///< the file that holds the last whole version; empty if there is none

  /// The sentences for a person.
  std::string told() const;
};

/// A matrix definition named after the project that can't be read.
struct BrokenGrid {
  std::string path;
  std::string reason;  ///< the text of the failure

  /// The sentences for a person, on the default grid.
  std::string told() const;
};

/// What the windows and the effects need of the machine they run on.
class Platform {
 public:
  virtual ~Platform() = default;

  /// Shows a text with an OK button and waits for it.
  virtual void messageBox(const std::string& text) = 0;
  /// The path that a person chose, nothing if the dialog was cancelled.
  virtual std::optional<std::string> askFile(const FileQuestion& question) = 0;
  /// The picture in a bmp, jpg, gif or ico file; kInvalidPicture if it can't be read.
  virtual Raster loadPicture(const std::string& path) = 0;
  /// Milliseconds since midnight, for reseeding the random generator.
  virtual std::int64_t timeOfDay() = 0;
  virtual NumberFormat numberFormat() = 0;
  /// Where files are read and written.
  virtual Disk& disk() { return machineDisk(); }
  /// Opens a page in the person's browser.
  virtual void openPage(const std::string& address) = 0;
  /// An event ended with a failure; called once for it.
  virtual void failed(const Failure& failure) = 0;
  /// A save failed, of which the plug-in's windows say nothing. Programs that stand alone say it.
  virtual void saveFailed(const FailedSave&) {}
  /// Whether to start on the default grid, with the file left as it is, instead of failing.
  virtual bool startsWithout(const BrokenGrid&) { return false; }
};

/// The path that a person chose; kCancelled if the dialog was cancelled.
std::string chosenFile(Platform& platform, const FileQuestion& question);

}  // namespace korvane
