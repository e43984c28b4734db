#pragma once

#include <map>
#include <memory>

#include "platform/Form.h"
#include "views/win32/windows/Box.h"

namespace korvane::win32 {

using Widgets = std::map<const Control*, std::unique_ptr<Widget>>;

/// Makes the boxes of a form's layout.
class LayoutBuilder {
 public:
  LayoutBuilder(const Widgets& widgets, const Seat& seat) : widgets_(widgets), seat_(seat) {}

  std::unique_ptr<Box> make(const Layout& part) const;

 private:
  std::unique_ptr<Box> makeKind(const Layout& part) const;
  std::unique_ptr<Box> makeItem(const Layout& part) const;
  std::unique_ptr<Box> makeLine(const Layout& part, std::size_t from = 0) const;
  std::unique_ptr<Box> makeFields(const Layout& part) const;
  std::unique_ptr<Box> makeGrid(const Layout& part) const;
  std::unique_ptr<Box> makeBoxed(const Layout& part) const;
  std::unique_ptr<Box> bare(const Control& control) const;
  /// The text before a control, nullptr for none.
  std::unique_ptr<Box> label(const Control& control) const;

  const Widgets& widgets_;
  Seat seat_;
};

}  // namespace korvane::win32
