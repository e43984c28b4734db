#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Control.h"
#include "platform/Controls.h"
#include "platform/Layout.h"
#include "platform/PictureBox.h"
#include "platform/WindowPlace.h"

namespace korvane {

/// A window: named controls in tab order, a declared layout, and events. It is shown and hidden
/// by the Desktop, exists once, and is hidden rather than destroyed.
class Form {
 public:
  Form(std::string name, std::string caption)
      : name_(std::move(name)), caption_(std::move(caption)) {}
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption);
  /// Size in the units in which the code sets it.
  int width() const { return width_; }
  int height() const { return height_; }
  void setSize(int width, int height);

  /// Where the window stands, as its view has told or as it is wanted; nothing for one that was
  /// never on a screen.
  const std::optional<WindowPlace>& place() const { return place_; }
  void notePlace(const WindowPlace& place) { place_ = place; }
  /// Wants the window at a place, which the view takes when it can.
  void moveTo(const WindowPlace& place);
  std::optional<WindowPlace> takeWantedPlace() { return std::exchange(wanted_, std::nullopt); }

  const std::vector<Control*>& controls() const { return controls_; }
  /// The control of this name, nullptr if there is none.
  Control* find(const std::string& name) const;
  const Layout& layout() const { return layout_; }
  const std::vector<Menu>& menus() const { return menus_; }

  /// The window that this one stands within, nullptr for a window of its own.
  Form* within() const { return within_; }
  /// The window that stands within this one and is visible, else this one.
  Form& front() { return held_ != nullptr && held_->visible_ ? *held_ : *this; }
  /// All that the window shows, in the order of Tab: its controls, with those of a window that
  /// stands within it behind their pane.
  std::vector<Control*> shownControls() const;

  bool visible() const { return visible_; }
  bool modal() const { return modal_; }
  /// Runs onLoad, once in the window's life. A load that fails is tried again at the next need.
  void load();
  bool loaded() const { return loaded_; }

  /// A window with a frame and a title bar; false while it fills the screen without them.
  bool framed = true;
  bool maximized = false;
  /// The picture that is the window's whole surface, for a window without controls.
  PictureBox* surface = nullptr;

  /// True for the keys that the window listens to: Enter, Escape and space, if it does at all.
  bool takesKey(int key) const;
  /// A key that no control wanted.
  void key(int key);
  /// Any key, for a window that takes them all.
  void anyKey(const std::string& name);

  /// Puts controls, with their layout, before the last line of the window, the one with its
  /// buttons: what a program that holds the window adds to it. Before a view has made the window.
  void extend(const std::vector<Control*>& controls, Layout part);

  std::function<void()> onLoad;
  std::function<void()> onActivate;     ///< the window becomes the active one
  std::function<void()> onClose;        ///< its frame's close button, before it is hidden
  std::function<bool()> mayClose;       ///< its frame's close button: false keeps it open
  std::function<void()> onClick;        ///< a click on its background
  std::function<void(int)> onKeyPress;  ///< 13 Enter, 27 Escape, 32 space
  /// While it is set, the window takes every key, by its name, before its controls and all
  /// commands.
  std::function<void(const std::string& key)> onAnyKey;
  std::function<void()> onEnter;   ///< Enter, where nothing else wants it
  std::function<void()> onEscape;  ///< Escape, where nothing else wants it
  std::function<void()> onShown;   ///< for the view: caption, size or frame changed
  void shown() const {
    if (onShown) onShown();
  }

 protected:
  /// Adds controls in tab order; they must live as long as the form.
  void add(const std::vector<Control*>& controls);
  /// Declares the layout and tells the controls inside a group of that group.
  void setLayout(Layout layout);
  void setMenus(std::vector<Menu> menus) { menus_ = std::move(menus); }
  /// Lets another window, which has its layout, stand within this one: in the layout, `pane` is
  /// boxed around the other's. The pane is there while that window is visible.
  void hold(Form& inner, Group& pane);

 private:
  friend class Desktop;
  static void enterGroups(const Layout& layout, Group* around);

  std::string name_;
  std::string caption_;
  std::vector<Control*> controls_;
  Layout layout_;
  int width_ = 0;
  int height_ = 0;
  std::optional<WindowPlace> place_, wanted_;
  bool visible_ = false;
  bool modal_ = false;
  bool loaded_ = false;
  std::vector<Menu> menus_;
  Form* within_ = nullptr;
  Form* held_ = nullptr;
  Group* pane_ = nullptr;  // that the window stands in
  std::function<void()> afterModal_;
};

}  // namespace korvane
