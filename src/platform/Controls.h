#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "platform/Color.h"
#include "platform/Control.h"
#include "platform/Gate.h"
#include "platform/Icons.h"

namespace korvane {

class Button : public Control {
 public:
  explicit Button(std::string name, Look look = {})
      : Control(Kind::Button, std::move(name), std::move(look)) {}

  void click() { run(onClick); }
  /// Background colour; -1 for the view's own.
  Color backColor() const { return backColor_; }
  void setBackColor(Color color);
  /// True if the button has the view's own face.
  bool plain() const;

  std::function<void()> onClick;

 private:
  Color backColor_ = -1;
};

/// A button that shows a picture: plain or pressed. It is pressed by program only.
class PictureButton : public Control {
 public:
  PictureButton(std::string name, Icon icon, Look look = {})
      : Control(Kind::PictureButton, std::move(name), std::move(look)), icon_(icon) {}

  void click() { run(onClick); }
  Icon icon() const { return icon_; }
  bool pressed() const { return pressed_; }
  void setPressed(bool pressed);

  std::function<void()> onClick;

 private:
  Icon icon_;
  bool pressed_ = false;
};

class CheckBox : public Control {
 public:
  explicit CheckBox(std::string name, Look look = {})
      : Control(Kind::CheckBox, std::move(name), std::move(look)) {}

  int value() const { return value_; }  ///< 0 or 1
  bool checked() const { return value_ != 0; }
  void setValue(int value);
  /// A person's click turns the value over.
  void click() { setValue(checked() ? 0 : 1); }

  std::function<void()> onClick;  ///< the value changed

 private:
  int value_ = 0;
};

/// A list of texts of which one is chosen; drawn open or as a drop-down list.
class ListBox : public Control {
 public:
  enum class Style { Open, DropDown };

  explicit ListBox(std::string name, Look look = {}, Style style = Style::DropDown)
      : Control(Kind::ListBox, std::move(name), std::move(look)), style_(style) {}

  Style style() const { return style_; }
  const std::vector<std::string>& items() const { return items_; }
  /// Replaces the entries; none is chosen then, and no event fires.
  void setItems(std::vector<std::string> items);
  int index() const { return index_; }  ///< from 0, -1 for none
  /// Text of the chosen entry, empty for none.
  std::string text() const;
  /// A person chooses an entry, perhaps the one that is shown: the event fires in any case.
  /// kInvalidPropertyValue for an index that no entry has.
  void choose(int index);
  /// The program shows an entry, or none with -1: the event fires if that is another one.
  /// kInvalidPropertyValue for any other index.
  void setIndex(int index);
  /// Chooses an entry that must exist, counted from 1.
  void setEntry(int entry);

  std::function<void()> onChosen;  ///< a person chose an entry; comes before onClick
  std::function<void()> onClick;   ///< an entry was chosen

 private:
  void require(int index, int least) const;

  Style style_;
  std::vector<std::string> items_;
  int index_ = -1;
};

/// How a text box takes text. Live: the view hands over each keystroke. OnLeave: Enter or leaving
/// the box does, for boxes whose handler rewrites the text.
struct TextBoxStyle {
  enum class Commit { Live, OnLeave };

  Commit commit = Commit::Live;
  bool readOnly = false;
  int lines = 1;
};

/// Of a field whose text counts when the person leaves it or presses Enter.
inline constexpr TextBoxStyle kTakenAtTheEnd{.commit = TextBoxStyle::Commit::OnLeave};

class TextBox : public Control {
 public:
  explicit TextBox(std::string name, Look look = {}, std::string text = {}, TextBoxStyle style = {})
      : Control(Kind::TextBox, std::move(name), std::move(look)),
        text_(std::move(text)),
        style_(style) {}

  const std::string& text() const { return text_; }
  TextBoxStyle style() const { return style_; }
  bool isPage() const { return style_.lines > 1; }
  void setText(std::string text);
  void keyPress(int key) { run(onKeyPress, key); }

  /// Whether each keystroke hands the text over; else Enter and leaving the box do.
  bool live() const { return style_.commit == TextBoxStyle::Commit::Live; }
  /// True for the keys that a box tells its window of: Enter and Escape, which a page keeps.
  bool takesKey(int key) const;
  /// A person's key, at this text. Enter hands it over first.
  void key(int key, const std::string& text, const Gate& gate);

  std::function<void()> onChange;
  std::function<void(int)> onKeyPress;  ///< key code: 13 Enter, 27 Escape

 private:
  std::string text_;
  TextBoxStyle style_;
};

struct SliderRange {
  int min = 0;
  int max = 100;
  bool vertical = false;
};

class Slider : public Control {
 public:
  explicit Slider(std::string name, Look look = {})
      : Slider(std::move(name), SliderRange(), std::move(look)) {}
  Slider(std::string name, SliderRange range, Look look = {})
      : Control(Kind::Slider, std::move(name), std::move(look)),
        range_(range),
        value_(std::clamp(0, range.min, range.max)) {}

  int min() const { return range_.min; }
  int max() const { return range_.max; }
  bool vertical() const { return range_.vertical; }
  int value() const { return value_; }  ///< at start 0, or the end that is nearest to it
  /// Moves the slider; a position beyond an end means that end.
  void setValue(int value);
  /// How far a person's Page keys move it.
  int pageStep() const;
  /// The position at which the middle of its handle has gone so many of the `way` pixels that it
  /// has, from the left or, for an upright slider, from the top, where its largest value is.
  int valueAt(int along, int way) const;

  /// The position changed, whether by a person's drag or by a program: movement is one event.
  std::function<void()> onChange;

 private:
  SliderRange range_;
  int value_;
};

/// A box whose background colour is its value.
class ColorBox : public Control {
 public:
  explicit ColorBox(std::string name, Look look = {}, Color color = 0)
      : Control(Kind::ColorBox, std::move(name), std::move(look)), backColor_(color) {}

  void click() { run(onClick); }
  Color backColor() const { return backColor_; }
  void setBackColor(Color color);

  std::function<void()> onClick;

 private:
  Color backColor_;
};

class Label : public Control {
 public:
  explicit Label(std::string name, Look look = {})
      : Control(Kind::Label, std::move(name), std::move(look)) {}

  void click() { run(onClick); }

  std::function<void()> onClick;
};

/// A command with a caption, a tool tip and a key: shown in the menu bar of its window and, where
/// the layout says so, as a button. It is lit while what it switches is on.
class MenuItem : public Control {
 public:
  /// `key` is its key on the keyboard, as in "F4" or "Ctrl+Shift+S"; empty for none.
  MenuItem(std::string name, Look look, std::string key = {})
      : Control(Kind::MenuItem, std::move(name), std::move(look)), key_(std::move(key)) {}

  void click() { run(onClick); }
  const std::string& key() const { return key_; }
  void setKey(std::string key);
  bool lit() const { return lit_; }
  void setLit(bool lit);

  bool repeats = false;  ///< its key, held, counts again and again
  std::function<void()> onClick;

 private:
  std::string key_;
  bool lit_ = false;
};

/// One menu of a window's menu bar; nullptr stands for a line between items.
struct Menu {
  std::string caption;
  std::vector<MenuItem*> items;
};

/// A frame with a title around other controls; without a title it has no frame.
class Group : public Control {
 public:
  explicit Group(std::string name, Look look = {})
      : Control(Kind::Group, std::move(name), std::move(look)) {}
};

}  // namespace korvane
