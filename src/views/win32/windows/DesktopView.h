#pragma once

#include <map>
#include <memory>

#include "platform/Desktop.h"
#include "views/win32/kinds/PictureWindow.h"
#include "views/win32/machine/Module.h"
#include "views/win32/windows/FormWindow.h"

namespace korvane {

/// Puts the windows of a desktop on the screen, each made when it is first needed. The desktop and
/// its forms must outlive it. [window thread]
class DesktopView {
 public:
  /// All windows but pictures stay above the window of `main`.
  DesktopView(Desktop& desktop, EventGate& gate, Form& main);
  ~DesktopView();
  DesktopView(const DesktopView&) = delete;
  DesktopView& operator=(const DesktopView&) = delete;

  FormWindow& window(Form& form);

 private:
  HWND ownerOf(const Form& form);
  void show(Form& form);
  void hide(Form& form);
  void activate(Form& form);
  void enableWindows();

  Desktop& desktop_;
  EventGate& gate_;
  Form& main_;
  const WindowClass formClass_{kFormClass, 0, FormWindow::procedure};
  const WindowClass pictureClass_{kPictureClass, CS_DBLCLKS, DefWindowProcW};
  std::map<const Form*, std::unique_ptr<FormWindow>> windows_;
};

}  // namespace korvane
