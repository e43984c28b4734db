#pragma once

#include <windows.h>
// (the common controls need the line above)
#include <commctrl.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/Control.h"
#include "platform/WideText_win32.h"
#include "views/shared/machine/EventGate.h"
#include "views/win32/kinds/Scale.h"

namespace korvane::win32 {

/// Messages to a form's window: what a control asks for has changed; give the focus to the next
/// control, or to the one before it if the first argument is 1.
inline constexpr UINT kWishChanged = WM_APP + 1;
inline constexpr UINT kMoveFocus = WM_APP + 2;
/// The same: a key that a menu item may have was pressed, and the control did not want it; 1 if an
/// item took it.
inline constexpr UINT kMenuKey = WM_APP + 5;

/// Where a control's window is made: the window around it, the tool tips of the form, the sizes,
/// and the way in for what a person does.
struct Seat {
  HWND parent;
  HWND tips;
  const Scale& scale;
  EventGate& gate;
};

/// Whether something takes spare room: never, if nothing else wants it, or gladly.
enum class Grow { No, May, Wants };

/// The room that something needs and would like, in pixels.
struct Wish {
  SIZE least{};
  SIZE natural{};
  Grow growX = Grow::No;
  Grow growY = Grow::No;

  bool operator==(const Wish& other) const;
};

/// The window of a control. It keeps both in step. The control must outlive it.
class Widget {
 public:
  Widget(Control& control, const Seat& seat);
  virtual ~Widget();
  Widget(const Widget&) = delete;
  Widget& operator=(const Widget&) = delete;

  Control& control() const { return control_; }
  HWND window() const { return window_; }
  /// Shows the control now and whenever it changes.
  void bind();
  /// What it asks for, as it was when it was shown last.
  const Wish& wish() const { return wish_; }
  /// Takes a place within the parent.
  void place(const RECT& place);
  /// The sizes have changed.
  void rescale();
  /// True for one that a person reaches with the Tab key.
  bool takesFocus() const;

  /// A notification that a window sent to its parent; the answer, if it is one that matters here.
  static std::optional<LRESULT> notified(UINT message, WPARAM w, LPARAM l);

 protected:
  /// Makes the window that stands for the control.
  void make(const wchar_t* type, DWORD style, DWORD extended = 0);
  /// Makes a window beside it, as of a label.
  HWND makeText(const std::wstring& text, DWORD style) const;
  virtual Wish measure() const = 0;
  virtual void arrange(const RECT& place);
  virtual void setSizes();
  /// Shows what is the kind's own; it must raise no event.
  virtual void show() {}
  /// A message to the window; the answer if it goes no further.
  virtual std::optional<LRESULT> message(UINT message, WPARAM w, LPARAM l);
  virtual void command(WORD) {}
  virtual void scrolled() {}
  virtual void draw(const DRAWITEMSTRUCT&) {}
  virtual std::optional<LRESULT> notify(const NMHDR&) { return std::nullopt; }

  /// Hands what a person did to the control as one event, then shows what the control holds,
  /// whatever its handlers made of it.
  void act(const std::function<void()>& event);
  /// The default answer to a message.
  LRESULT inherited(UINT message, WPARAM w, LPARAM l) const;
  const Scale& scale() const { return seat_.scale; }
  const Seat& seat() const { return seat_; }
  std::wstring caption() const { return toWide(control_.look().caption); }

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                    DWORD_PTR widget);
  static Widget* of(HWND window);
  void refresh();
  void showLook();
  void setTip();
  std::optional<LRESULT> key(UINT message, WPARAM w);

  Control& control_;
  Seat seat_;
  HWND window_ = nullptr;
  Wish wish_;
  RECT place_{};
  std::wstring tip_;
};

/// The text of a window.
std::wstring windowText(HWND window);
/// Sets it if it is another one.
void setWindowText(HWND window, const std::wstring& text);
/// Moves a window to a place within its parent.
void moveWindow(HWND window, const RECT& place);

}  // namespace korvane::win32
