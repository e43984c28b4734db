#include "views/win32/windows/LayoutBuilder.h"

#include "views/win32/machine/Module.h"

namespace korvane::win32 {

std::unique_ptr<Box> LayoutBuilder::make(const Layout& part) const {
  std::unique_ptr<Box> box = makeKind(part);
  box->stretch = part.stretch;
  return box;
}

std::unique_ptr<Box> LayoutBuilder::makeKind(const Layout& part) const {
  switch (part.kind) {
    case Layout::Kind::Item:
      return makeItem(part);
    case Layout::Kind::Row:
    case Layout::Kind::Column:
      return makeLine(part);
    case Layout::Kind::Fields:
      return makeFields(part);
    case Layout::Kind::Grid:
      return makeGrid(part);
    case Layout::Kind::Boxed:
      return makeBoxed(part);
    case Layout::Kind::Space:
      break;
  }
  return std::make_unique<SpaceBox>();
}

std::unique_ptr<Box> LayoutBuilder::bare(const Control& control) const {
  return std::make_unique<ControlBox>(*widgets_.at(&control));
}

std::unique_ptr<Box> LayoutBuilder::label(const Control& control) const {
  if (control.look().label.empty()) return nullptr;
  const Widget& widget = *widgets_.at(&control);
  const HWND made = CreateWindowExW(0, L"STATIC", toWide(control.look().label).c_str(),
                                    WS_CHILD | WS_VISIBLE | SS_NOPREFIX, 0, 0, 0, 0,
                                    GetParent(widget.window()), nullptr, moduleHandle(), nullptr);
  SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(seat_.scale.font()), FALSE);
  return std::make_unique<LabelBox>(widget, made, seat_.scale);
}

std::unique_ptr<Box> LayoutBuilder::makeItem(const Layout& part) const {
  std::unique_ptr<Box> text = label(*part.control);
  if (!text) return bare(*part.control);
  Boxes both;
  both.push_back(std::move(text));
  both.push_back(bare(*part.control));
  both.back()->stretch = 1;
  return std::make_unique<LineBox>(false, std::move(both), seat_.scale);
}

std::unique_ptr<Box> LayoutBuilder::makeLine(const Layout& part, std::size_t from) const {
  Boxes children;
  for (std::size_t i = from; i < part.children.size(); ++i)
    children.push_back(make(part.children[i]));
  return std::make_unique<LineBox>(part.kind == Layout::Kind::Column, std::move(children),
                                   seat_.scale);
}

// The label goes to the column of the labels: a control's own, or the one that begins a row.
std::unique_ptr<Box> LayoutBuilder::makeFields(const Layout& part) const {
  Boxes cells;
  for (const Layout& child : part.children) {
    if (child.kind == Layout::Kind::Item) {
      cells.push_back(label(*child.control));
      cells.push_back(bare(*child.control));
    } else if (beginsWithLabel(child)) {
      cells.push_back(bare(*child.children.front().control));
      cells.push_back(makeLine(child, 1));
    } else {
      cells.push_back(nullptr);
      cells.push_back(make(child));
    }
    cells.back()->stretch = child.stretch;
  }
  return std::make_unique<GridBox>(2, 1, std::move(cells), seat_.scale);
}

std::unique_ptr<Box> LayoutBuilder::makeGrid(const Layout& part) const {
  Boxes cells;
  for (const Layout& child : part.children) {
    if (child.kind != Layout::Kind::Item) {
      cells.push_back(make(child));
      continue;
    }
    if (std::unique_ptr<Box> text = label(*child.control)) cells.push_back(std::move(text));
    cells.push_back(bare(*child.control));
  }
  return std::make_unique<GridBox>(part.columns, GridBox::kNone, std::move(cells), seat_.scale);
}

std::unique_ptr<Box> LayoutBuilder::makeBoxed(const Layout& part) const {
  return std::make_unique<GroupBox>(*widgets_.at(part.control), make(part.children.front()),
                                    seat_.scale);
}

}  // namespace korvane::win32
