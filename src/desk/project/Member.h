#pragma once

#include <cstddef>
#include <functional>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <vector>

namespace korvane {

/// Keeps its fields in the order in which they were set.
using Json = nlohmann::ordered_json;

/// A member of a project's file as it is read: its value, and where it stands. What is wrong with
/// it is noted with its path (a JSON pointer) and what was expected, and the reading goes on.
/// Lives no longer than the document and the list of faults.
class Member {
 public:
  Member(const Json* value, std::string path, std::vector<std::string>& faults)
      : value_(value), path_(std::move(path)), faults_(&faults) {}

  /// False for one that the file does not have, or has as null.
  bool given() const { return value_ != nullptr && !value_->is_null(); }
  const std::string& path() const { return path_; }

  /// The member of this name. An object without it has one that isn't given; what is no object is
  /// noted as wrong.
  Member operator[](const std::string& name) const;
  /// Each element of a list in turn; none of what isn't given. What is no list is noted as wrong.
  void each(const std::function<void(const Member&)>& take) const;

  // What isn't given, or is wrong, leaves the target as it is. Whether it was taken.
  bool take(bool& target) const;
  bool take(std::string& target) const;
  bool take(int& target, int least, int most) const;
  bool take(double& target, double least, double most) const;
  /// One of the words; the target gets its place among them, from 0.
  bool takeWord(int& target, std::span<const char* const> words) const;

  /// Notes that the value is wrong, with what was expected: "a text", "a number from 1 to 4".
  void wrong(const std::string& expected) const;
  /// Notes this fault of the value.
  void fault(const std::string& text) const;

 private:
  const Json* value_;
  std::string path_;
  std::vector<std::string>* faults_;
};

/// One of the words, which stand in the order of the enumeration's values.
template <class Enum, class Words>
void takeEnum(const Member& member, Enum& target, const Words& words) {
  int index = 0;
  if (member.takeWord(index, words)) target = static_cast<Enum>(index);
}

/// The word that takeEnum() takes for a value.
template <class Words, class Enum>
const char* wordOf(const Words& words, Enum value) {
  return words.at(static_cast<std::size_t>(value));
}

}  // namespace korvane
