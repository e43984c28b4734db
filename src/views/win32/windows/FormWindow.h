#pragma once

#include <map>
#include <memory>
#include <optional>

#include "platform/Desktop.h"
#include "views/win32/kinds/PictureWindow.h"
#include "views/win32/machine/Module.h"
#include "views/win32/windows/LayoutBuilder.h"
#include "views/win32/windows/MenuBar.h"

namespace korvane::win32 {

/// The window class of forms.
inline constexpr const wchar_t* kFormClass = L"Korvane.Form";

/// The window of a form on the screen. The form must outlive it.
class FormWindow {
 public:
  /// It stays above its owner, if it has one.
  FormWindow(Form& form, Desktop& desktop, EventGate& gate, FormWindow* owner);
  ~FormWindow();
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  void open();
  void hide() const { ShowWindow(window_, SW_HIDE); }
  void setReachable(bool reachable) const { EnableWindow(window_, reachable); }
  /// Brings it to the front and gives it the keyboard.
  void activate() const;
  HWND window() const { return window_; }
  /// The widget of a control of the form, nullptr if it has none.
  Widget* widget(const Control& control) const;

  /// The procedure of the class.
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l);

 private:
  std::optional<LRESULT> message(UINT message, WPARAM w, LPARAM l);
  std::optional<LRESULT> personMessage(UINT message, WPARAM w);
  void makeWindow(HWND owner);
  void makeControls();
  Widget& widgetFor(Control& control);
  void refresh();
  void showFrame() const;
  void followSize();
  void arrange();
  void limitSize(MINMAXINFO& limits) const;
  void setDpi(int dpi, const RECT& place);
  void moveFocus(bool back);
  void activated(bool active);
  void resizeTo(SIZE client) const;
  SIZE frame() const;
  SIZE naturalSize() const;
  int margin() const;

  const WindowClass formClass_{kFormClass, 0, procedure};
  const WindowClass pictureClass_{kPictureClass, CS_DBLCLKS, DefWindowProcW};
  Form& form_;
  Desktop& desktop_;
  EventGate& gate_;
  HWND window_ = nullptr;
  HWND tips_ = nullptr;
  std::unique_ptr<Scale> scale_;
  Widgets widgets_;
  std::unique_ptr<Box> box_;
  std::optional<MenuBar> menus_;
  HWND focus_ = nullptr;  // what had the keyboard when another window took it
  bool waiting_ = false;  // to be arranged anew
  bool quiet_ = false;    // it is shown by the program
  int declaredWidth_ = 0;
  std::map<int, SIZE> sizes_;  // that the window had, by its declared width
};

}  // namespace korvane::win32
