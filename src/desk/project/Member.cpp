#include "desk/project/Member.h"

#include <algorithm>
#include <cmath>

#include "platform/Text.h"

namespace korvane {
namespace {

constexpr std::size_t kMostShown = 40;  // characters of a wrong value

// One step of a JSON pointer.
std::string escaped(const std::string& name) {
  std::string step;
  for (const char letter : name) {
    if (letter == '~')
      step += "~0";
    else if (letter == '/')
      step += "~1";
    else
      step += letter;
  }
  return step;
}

std::string shown(const Json& value) {
  if (value.is_object()) return "an object";
  if (value.is_array()) return "a list";
  std::string text = value.dump(-1, ' ', false, Json::error_handler_t::replace);
  const std::vector<std::string> letters = characters(text);
  if (letters.size() <= kMostShown) return text;
  std::string begin;
  for (std::size_t i = 0; i < kMostShown; ++i) begin += letters[i];
  return begin + "...";
}

std::string rangeText(const std::string& what, double least, double most) {
  return what + " from " + formatGeneral(least, {}) + " to " + formatGeneral(most, {});
}

}  // namespace

Member Member::operator[](const std::string& name) const {
  const std::string path = path_ + "/" + escaped(name);
  if (!given()) return {nullptr, path, *faults_};
  if (!value_->is_object()) return wrong("an object"), Member(nullptr, path, *faults_);
  const auto found = value_->find(name);
  return {found != value_->end() ? &*found : nullptr, path, *faults_};
}

void Member::each(const std::function<void(const Member&)>& take) const {
  if (!given()) return;
  if (!value_->is_array()) return wrong("a list");
  std::size_t index = 0;
  for (const Json& element : *value_)
    take({&element, path_ + "/" + std::to_string(index++), *faults_});
}

bool Member::take(bool& target) const {
  if (!given()) return false;
  if (!value_->is_boolean()) return wrong("true or false"), false;
  target = value_->get<bool>();
  return true;
}

bool Member::take(std::string& target) const {
  if (!given()) return false;
  if (!value_->is_string()) return wrong("a text"), false;
  target = value_->get<std::string>();
  return true;
}

bool Member::take(int& target, int least, int most) const {
  if (!given()) return false;
  const double number = value_->is_number() ? value_->get<double>() : NAN;
  if (!(number >= least && number <= most) || number != std::floor(number))
    return wrong(rangeText("a whole number", least, most)), false;
  target = static_cast<int>(number);
  return true;
}

bool Member::take(double& target, double least, double most) const {
  if (!given()) return false;
  const double number = value_->is_number() ? value_->get<double>() : NAN;
  if (!(number >= least && number <= most)) return wrong(rangeText("a number", least, most)), false;
  target = number;
  return true;
}

bool Member::takeWord(int& target, std::span<const char* const> words) const {
  if (!given()) return false;
  std::string all;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (value_->is_string() && *value_ == words[i]) {
      target = static_cast<int>(i);
      return true;
    }
    all += std::string(i == 0 ? "" : i + 1 < words.size() ? ", " : " or ") + '"' + words[i] + '"';
  }
  wrong(all);
  return false;
}

void Member::wrong(const std::string& expected) const {
  fault("expected " + expected + (value_ == nullptr ? "" : ", found " + shown(*value_)));
}

void Member::fault(const std::string& text) const {
  const std::string whole = (path_.empty() ? "/" : path_) + ": " + text;
  if (faults_->empty() || faults_->back() != whole) faults_->push_back(whole);
}

}  // namespace korvane
