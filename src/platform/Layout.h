#pragma once

#include <algorithm>
#include <initializer_list>
#include <vector>

#include "platform/Control.h"

namespace korvane {

/// The declared arrangement of a window: rows and columns of controls, and what stretches. Views
/// build from it; it holds no pixels.
struct Layout {
  enum class Kind {
    Item,    ///< one control, its `label` before it
    Row,     ///< children side by side
    Column,  ///< children one below the other
    Fields,  ///< children one below the other, their labels (or the Label that begins a row)
             ///< aligned in a column of their own
    Grid,    ///< children in lines of `columns` cells; a control's label takes a cell of its own
    Boxed,   ///< a Group with one child inside
    Space    ///< stretching emptiness
  };

  Kind kind = Kind::Space;
  Control* control = nullptr;  ///< of Item and Boxed
  std::vector<Layout> children;
  int stretch = 0;  ///< share of spare room along the parent's direction
  int columns = 0;  ///< of Grid

  Layout() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): a control is a layout
  Layout(Control& item, int share = 0) : kind(Kind::Item), control(&item), stretch(share) {}
  Layout(Kind what, std::vector<Layout> parts, int share)
      : kind(what), children(std::move(parts)), stretch(share) {}

  /// True if the control stands somewhere in it.
  bool holds(const Control& wanted) const {
    if (control == &wanted) return true;
    return std::any_of(children.begin(), children.end(),
                       [&](const Layout& child) { return child.holds(wanted); });
  }
};

inline Layout row(std::vector<Layout> children, int stretch = 0) {
  return {Layout::Kind::Row, std::move(children), stretch};
}
inline Layout column(std::vector<Layout> children, int stretch = 0) {
  return {Layout::Kind::Column, std::move(children), stretch};
}
inline Layout fields(std::vector<Layout> children, int stretch = 0) {
  return {Layout::Kind::Fields, std::move(children), stretch};
}
inline Layout grid(int columns, std::vector<Layout> children, int stretch = 0) {
  Layout result{Layout::Kind::Grid, std::move(children), stretch};
  result.columns = columns;
  return result;
}
inline Layout boxed(Control& group, Layout child, int stretch = 0) {
  Layout result{Layout::Kind::Boxed, {std::move(child)}, stretch};
  result.control = &group;
  return result;
}
/// A row of plain controls, as of a control group.
inline Layout row(const std::vector<Control*>& controls) {
  Layout result{Layout::Kind::Row, {}, 0};
  for (Control* control : controls) result.children.emplace_back(*control);
  return result;
}
/// True for a row whose first part is a Label: in Fields it stands in the column of the labels.
inline bool beginsWithLabel(const Layout& part) {
  return part.kind == Layout::Kind::Row && !part.children.empty() &&
         part.children.front().kind == Layout::Kind::Item &&
         part.children.front().control->kind() == Kind::Label;
}

inline Layout space(int stretch = 1) { return {Layout::Kind::Space, {}, stretch}; }

}  // namespace korvane
