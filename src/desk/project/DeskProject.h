#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desk/project/Member.h"
#include "platform/Disk.h"

namespace korvane {

/// Ending of a desk project's file.
inline constexpr const char* kDeskProjectEnding = ".korvanedesk";
/// The version that is written, and the newest that is read.
inline constexpr int kDeskProjectVersion = 1;

/// Whether a change of a part is one of the project, which is asked about before it is lost.
/// OfItsOwn: only where the file has it, and would bring back the old.
enum class Counts { Always, OfItsOwn, Never };

/// What one part of the program keeps in the project: one member of the file.
struct Section {
  std::string name;
  /// What is to be kept now. All members of an object are there each time: one that has no value
  /// is null, and is then left out of the file.
  std::function<Json()> write;
  /// Takes what the file has; called for each project, with a member that isn't given if the file
  /// has none.
  std::function<void(const Member&)> read;
  Counts counts = Counts::Always;
};

/// The file NAME.korvanedesk: what belongs to a show on a desk beside the show and its grid.
/// Members that this version does not know are kept as they were read.
class DeskProject {
 public:
  explicit DeskProject(Disk& disk = machineDisk()) : disk_(disk) {}

  /// Adds a part; the file has them in this order.
  void add(Section section) { sections_.push_back(std::move(section)); }

  /// Reads a project's file into all parts; of a file that isn't there they take nothing. What is
  /// wrong, for people, a line each: the rest was taken.
  std::vector<std::string> open(const std::string& path);
  /// The same with the file's text.
  std::vector<std::string> read(const std::string& text);
  /// Begins a project of no file.
  void begin();
  /// Writes the file, safely; the one before is kept as PATH.bak. A Failure if that can't be done,
  /// and for a file of a newer version, which is left as it is.
  void save(const std::string& path);

  /// What would be written now, in ASCII: other characters are escaped.
  std::string text();
  /// What would be written of the parts whose changes count.
  std::string changes();

 private:
  void take(const Json& document, std::vector<std::string>& faults);

  Disk& disk_;
  std::vector<Section> sections_;
  Json kept_ = Json::object();  // the document as it was read
  bool newer_ = false;
};

/// The show that a project's file belongs to, whichever of the three it is: the one of the same
/// name, or else the one in the same folder that a desk project names.
std::string showOfProject(const std::string& path, Disk& disk = machineDisk());

/// What is to be written over what was read: members that `now` has not stay, objects are merged,
/// and so are elements of lists that have the same name or target; members that are null in `now`
/// go.
Json mergedWith(const Json& before, const Json& now);

}  // namespace korvane
