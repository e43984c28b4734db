#pragma once

#include <functional>
#include <string>
#include <type_traits>
#include <utility>

namespace korvane {

class Form;
class Group;

enum class Kind {
  Button,
  PictureButton,
  CheckBox,
  ListBox,
  ListView,
  TextBox,
  Slider,
  PictureBox,
  ColorBox,
  Label,
  Group,
  MenuItem
};

/// The name of a kind, as in "ListView".
const char* kindName(Kind kind);

/// What a control shows besides its value. `label` is a text that a view puts before it.
struct Look {
  std::string caption{};
  std::string toolTip{};
  std::string label{};
  bool visible = true;
  bool enabled = true;
};

/// A named value with events. A program and a person set the value through the same call, and
/// the event fires only if the value really changes. Only what a person chooses of a list always
/// counts, and has a call of its own.
class Control {
 public:
  Control(Kind kind, std::string name, Look look);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Kind kind() const { return kind_; }
  /// The name, as in "addA" or, in a control group, "richtung(5)".
  const std::string& name() const { return name_; }
  const Look& look() const { return look_; }
  void setCaption(std::string caption);
  void setToolTip(std::string toolTip);
  void setVisible(bool visible);
  void setEnabled(bool enabled);

  /// True if the control and every group around it are visible and enabled.
  bool reachable() const;

  Form* form = nullptr;           ///< the window that it stands in; set by Form::add
  Group* group = nullptr;         ///< the group around it; set by the layout
  std::function<void()> onShown;  ///< for the view: something that it shows has changed

 protected:
  void shown() const {
    if (onShown) onShown();
  }
  /// Runs a handler if there is one.
  template <class... Args>
  static void run(const std::function<void(Args...)>& handler, std::type_identity_t<Args>... args) {
    if (handler) handler(args...);
  }

 private:
  Kind kind_;
  std::string name_;
  Look look_;
};

}  // namespace korvane
