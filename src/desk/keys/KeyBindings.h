#pragma once

#include <string>
#include <vector>

#include "desk/project/Member.h"
#include "platform/Controls.h"
#include "platform/Disk.h"

namespace korvane {

/// Which key each command has, and what a person has changed of that. The changes are kept in a
/// file, from one start to the next.
class KeyBindings {
 public:
  /// The items whose commands stand in the table, in order; they must outlive it. Reads the file;
  /// empty path: nothing is kept.
  KeyBindings(std::vector<MenuItem*> items, std::string file, Disk& disk = machineDisk());

  const std::vector<MenuItem*>& items() const { return items_; }
  /// Gives a command a key, or none for an empty text. What is in the way, for people; then all is
  /// as it was.
  std::string assign(MenuItem& item, const std::string& key);
  /// Gives a command its default key again. What is in the way, for people.
  std::string reset(MenuItem& item);
  void resetAll();
  /// What is wrong with the file, for people; empty for nothing.
  const std::string& fault() const { return fault_; }

 private:
  MenuItem* find(const std::string& name) const;
  MenuItem* holder(const std::string& key) const;
  std::string obstacle(const MenuItem& item, const std::string& key) const;
  void read();
  void take(const Member& keys, const Json& members);
  void keep();

  std::vector<MenuItem*> items_;
  std::string file_;
  Disk& disk_;
  Json unread_ = Json::object();  // members that could not be taken stay in the file
  std::string fault_;
};

/// The caption of a command, as in "Blackout".
std::string captionOf(const MenuItem& item);

}  // namespace korvane
