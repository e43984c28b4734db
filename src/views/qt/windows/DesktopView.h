#pragma once

#include <map>
#include <memory>

#include "platform/Desktop.h"
#include "views/qt/windows/FormWindow.h"

namespace korvane {

/// Puts the windows of a desktop on the screen, each made when it is first needed. The desktop and
/// its forms must outlive it.
class DesktopView {
 public:
  /// All windows but pictures stay above the window of `main`.
  DesktopView(Desktop& desktop, EventGate& gate, Form& main);
  ~DesktopView();
  DesktopView(const DesktopView&) = delete;
  DesktopView& operator=(const DesktopView&) = delete;

  FormWindow& window(Form& form);

 private:
  QWidget* ownerOf(const Form& form);
  void activate(Form& form);

  Desktop& desktop_;
  EventGate& gate_;
  Form& main_;
  std::map<const Form*, std::unique_ptr<FormWindow>> windows_;
};

}  // namespace korvane
