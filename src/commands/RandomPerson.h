#pragma once

#include <algorithm>
#include <array>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "platform/Controls.h"
#include "platform/Desktop.h"
#include "platform/ListView.h"
#include "platform/PictureBox.h"
#include "platform/Platform.h"

namespace korvane {

/// A person who does anything that can be done at the windows as they stand,
/// one command at a time. What there is to press is looked up in the windows;
/// which buttons ask for a file is learned.
class RandomPerson {
 public:
  RandomPerson(const Desktop& desktop, std::uint64_t seed) : desktop_(desktop), random_(seed) {}

  bool oneIn(int count) { return upTo(count - 1) == 0; }
  int upTo(int most) { return between(0, most); }
  template <class Choices>
  const auto& pick(const Choices& choices) {
    return choices[static_cast<std::size_t>(upTo(static_cast<int>(std::size(choices)) - 1))];
  }

  std::set<std::string> avoided;  ///< names of forms and controls that are left alone

  /// The name of a file for a question: now an example, now one that is saved over again and again,
  /// now a folder or a place that is not there.
  std::string fileFor(const FileQuestion& question) {
    const std::size_t star = question.filter.rfind("|*.");
    std::string ending = star == std::string::npos ? ".any" : question.filter.substr(star + 2);
    ending = ending.substr(0, ending.find(';'));
    const bool open = question.purpose == FileQuestion::Purpose::Open;
    if (open && oneIn(2)) return pick(kShows) + ending;
    return (oneIn(8) ? pick(kNames) : kNames[static_cast<std::size_t>(upTo(1))]) + ending;
  }

  /// The next command.
  std::string next() {
    if (desktop_.active() == nullptr) return "open";
    if (desktop_.modal() == nullptr && oneIn(8)) return asDesk();
    const Form* form = someForm();
    if (oneIn(60)) return "close " + form->name();
    if (form->controls().empty() || oneIn(40)) return "key " + form->name() + " " + pick(kKeys);
    const Control* control = someControl(*form);
    return control == nullptr ? "advance 1"
                              : command(*control, form->name() + "." + control->name());
  }

 private:
  int between(int least, int most) {
    return std::uniform_int_distribution(least, std::max(least, most))(random_);
  }

  std::string asDesk() {
    switch (upTo(7)) {
      case 0:
        return "beat";
      case 1:
        return "call ITharnPlugin_Configure";
      case 2:
        return "message " + std::to_string(pick(kMessages)) + " " + std::to_string(upTo(1)) + " 0";
      default:
        return "advance " + std::to_string(oneIn(20) ? upTo(3000) : upTo(60));
    }
  }

  const Form* someForm() {
    if (const Form* modal = desktop_.modal()) return modal;
    std::vector<const Form*> open;
    for (const Form* form : desktop_.forms()) {
      if (form->visible() && !avoided.contains(form->name())) open.push_back(form);
    }
    return oneIn(2) ? desktop_.active() : pick(open);
  }

  const Control* someControl(const Form& form) {
    std::vector<const Control*> reachable;
    for (const Control* control : form.controls()) {
      if (control->reachable() && control->kind() != Kind::Group &&
          !avoided.contains(control->name()))
        reachable.push_back(control);
    }
    return reachable.empty() ? nullptr : pick(reachable);
  }

  std::string command(const Control& control, const std::string& name) {
    switch (control.kind()) {
      case Kind::ListView:
        return inList(dynamic_cast<const ListView&>(control), name);
      case Kind::ListBox:
        return set(name, inShortList(dynamic_cast<const ListBox&>(control)));
      case Kind::Slider: {
        const auto& slider = dynamic_cast<const Slider&>(control);
        return set(name, between(slider.min(), slider.max()));
      }
      case Kind::TextBox:
        return oneIn(6) ? "key " + name + " " + pick(kKeys) : "set " + name + " " + pick(kTexts);
      case Kind::PictureBox:
        return onPicture(dynamic_cast<const PictureBox&>(control), name);
      default:
        return "click " + name;
    }
  }

  static std::string set(const std::string& name, int value) {
    return "set " + name + " " + std::to_string(value);
  }

  // Large grids are slow: the first entries are chosen more often.
  int inShortList(const ListBox& list) {
    const int last = static_cast<int>(list.items().size()) - 1;
    return oneIn(30) ? upTo(last) : upTo(std::min(last, 11));
  }

  std::string inList(const ListView& list, const std::string& name) {
    if (list.count() == 0) return "advance 1";
    const std::string row = " " + std::to_string(upTo(list.count() - 1));
    const int col = upTo(static_cast<int>(list.columns().size()) - 1);
    if (list.columns()[static_cast<std::size_t>(col)].editable && oneIn(2))
      return "edit " + name + row + " " + std::to_string(col) + " " + pick(kTexts);
    if (oneIn(4)) return "dblclick " + name + row;
    return "pick " + name + row + " " + std::to_string(col);
  }

  std::string onPicture(const PictureBox& box, const std::string& name) {
    const auto point = [&] {
      return " " + std::to_string(between(-2, box.raster().width() + 2)) + " " +
             std::to_string(between(-2, box.raster().height() + 2));
    };
    if (oneIn(3)) return "drag " + name + point() + point();
    return "mouse " + name + " " + pick(kActions) + point();
  }

  static constexpr std::array<const char*, 4> kNames = {"a", "b", "dir", "missing/c"};
  static inline const std::array<std::string, 6> kShows = {"1-club-night",      "2-ticker-wall",
                                                           "3-fire-wall",       "4-slide-show",
                                                           "5-paint-animation", "6-beat-show"};
  static constexpr std::array<int, 3> kMessages = {14, 31, 35};
  static constexpr std::array<const char*, 3> kKeys = {"13", "27", "32"};
  static constexpr std::array<const char*, 5> kActions = {"down", "move", "up", "click",
                                                          "dblclick"};
  static constexpr std::array<const char*, 14> kTexts = {
      "\"\"", "x",     "\"Text with ä\"", "0",    "-1", "1.5", "1,5",
      "801",  "32768", "1e400",           "0.01", "3",  "20",  "255"};

  const Desktop& desktop_;
  std::mt19937_64 random_;
};

}  // namespace korvane
