#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Control.h"
#include "platform/Layout.h"
#include "platform/PictureBox.h"

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

  const std::vector<Control*>& controls() const { return controls_; }
  /// The control of this name, nullptr if there is none.
  Control* find(const std::string& name) const;
  const Layout& layout() const { return layout_; }

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

  std::function<void()> onLoad;
  std::function<void()> onActivate;     ///< the window becomes the active one
  std::function<void()> onClose;        ///< its frame's close button, before it is hidden
  std::function<void()> onClick;        ///< a click on its background
  std::function<void(int)> onKeyPress;  ///< 13 Enter, 27 Escape, 32 space
  std::function<void()> onShown;        ///< for the view: caption, size or frame changed
  void shown() const {
    if (onShown) onShown();
  }

 protected:
  /// Adds controls in tab order; they must live as long as the form.
  void add(const std::vector<Control*>& controls);
  /// Declares the layout and tells the controls inside a group of that group.
  void setLayout(Layout layout);

 private:
  friend class Desktop;
  static void enterGroups(const Layout& layout, Group* around);

  std::string name_;
  std::string caption_;
  std::vector<Control*> controls_;
  Layout layout_;
  int width_ = 0;
  int height_ = 0;
  bool visible_ = false;
  bool modal_ = false;
  bool loaded_ = false;
  std::function<void()> afterModal_;
};

}  // namespace korvane
