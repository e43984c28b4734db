#pragma once

#include <cstdlib>
#include <type_traits>
#include <utility>

#include "platform/Controls.h"
#include "platform/ListView.h"
#include "platform/PictureBox.h"

namespace korvane {

/// Calls `what` with the control as the type that its kind stands for. Who passes a set of
/// functions that lacks one for a kind does not compile.
template <class AnyControl, class What>
decltype(auto) asItsKind(AnyControl& control, What&& what) {
  const auto as = [&]<class Own>(std::type_identity<Own>) -> decltype(auto) {
    using Like = std::conditional_t<std::is_const_v<AnyControl>, const Own, Own>;
    return std::forward<What>(what)(static_cast<Like&>(control));
  };
  switch (control.kind()) {
    case Kind::Button:
      return as(std::type_identity<Button>());
    case Kind::PictureButton:
      return as(std::type_identity<PictureButton>());
    case Kind::CheckBox:
      return as(std::type_identity<CheckBox>());
    case Kind::ListBox:
      return as(std::type_identity<ListBox>());
    case Kind::ListView:
      return as(std::type_identity<ListView>());
    case Kind::TextBox:
      return as(std::type_identity<TextBox>());
    case Kind::Slider:
      return as(std::type_identity<Slider>());
    case Kind::PictureBox:
      return as(std::type_identity<PictureBox>());
    case Kind::ColorBox:
      return as(std::type_identity<ColorBox>());
    case Kind::Label:
      return as(std::type_identity<Label>());
    case Kind::Group:
      return as(std::type_identity<Group>());
    case Kind::MenuItem:
      return as(std::type_identity<MenuItem>());
  }
  std::abort();
}

}  // namespace korvane
