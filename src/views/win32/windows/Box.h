#pragma once

#include <memory>
#include <vector>

#include "views/win32/kinds/Widget.h"

namespace korvane::win32 {

/// One of several that share a length: what it needs, what it would like, and its claim on more.
struct Share {
  int least = 0;
  int natural = 0;
  int stretch = 0;  ///< share of spare room; where any has one, none goes to the others
  Grow grow = Grow::No;
};

/// The lengths of all in a room. Spare room goes by the stretch or, without any, to all that want
/// it most, alike; what is lacking is taken from all above their least, as far as that goes.
std::vector<int> lengths(const std::vector<Share>& shares, int room);

/// A rectangle of a window and what stands in it.
class Box {
 public:
  virtual ~Box() = default;
  /// False while it gives its place up.
  virtual bool present() const { return true; }
  virtual Wish wish() const = 0;
  virtual void place(const RECT& place) = 0;

  int stretch = 0;
};

using Boxes = std::vector<std::unique_ptr<Box>>;

/// One control, as large as it would be or as the place where it grows.
class ControlBox : public Box {
 public:
  explicit ControlBox(Widget& widget) : widget_(widget) {}
  Wish wish() const override { return widget_.wish(); }
  void place(const RECT& place) override;

 private:
  Widget& widget_;
};

/// The text before a control: there when the control is.
class LabelBox : public Box {
 public:
  LabelBox(const Widget& widget, HWND label, const Scale& scale)
      : widget_(widget), label_(label), scale_(scale) {}
  Wish wish() const override;
  void place(const RECT& place) override;

 private:
  const Widget& widget_;
  HWND label_;
  const Scale& scale_;
};

/// Emptiness.
class SpaceBox : public Box {
 public:
  Wish wish() const override { return {{}, {}, Grow::Wants, Grow::Wants}; }
  void place(const RECT&) override {}
};

/// Boxes side by side, or one below the other.
class LineBox : public Box {
 public:
  LineBox(bool upright, Boxes children, const Scale& scale)
      : upright_(upright), children_(std::move(children)), scale_(scale) {}
  bool present() const override;
  Wish wish() const override;
  void place(const RECT& place) override;

 private:
  std::vector<Box*> shown() const;

  bool upright_;
  Boxes children_;
  const Scale& scale_;
};

/// Boxes in lines and columns; a cell may be empty. Spare width goes to one column, or stays on the
/// right.
class GridBox : public Box {
 public:
  static constexpr int kNone = -1;

  GridBox(int columns, int growing, Boxes cells, const Scale& scale)
      : columns_(columns), growing_(growing), cells_(std::move(cells)), scale_(scale) {}
  Wish wish() const override;
  void place(const RECT& place) override;

 private:
  struct Needs {
    std::vector<Share> columns;
    std::vector<Share> lines;
  };
  Needs needs() const;

  int columns_;
  int growing_;
  Boxes cells_;
  const Scale& scale_;
};

/// A group and what is inside, placed within the group's window.
class GroupBox : public Box {
 public:
  GroupBox(Widget& group, std::unique_ptr<Box> inside, const Scale& scale)
      : group_(group), inside_(std::move(inside)), scale_(scale) {}
  bool present() const override { return group_.control().look().visible; }
  Wish wish() const override;
  void place(const RECT& place) override;

 private:
  RECT margins() const;

  Widget& group_;
  std::unique_ptr<Box> inside_;
  const Scale& scale_;
};

}  // namespace korvane::win32
