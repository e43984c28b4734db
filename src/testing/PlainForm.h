#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/Form.h"

namespace korvane {

/// A form made of a few controls, one below the other.
class PlainForm : public Form {
 public:
  PlainForm(const std::string& name, const std::vector<Control*>& controls) : Form(name, name) {
    add(controls);
    std::vector<Layout> parts;
    parts.reserve(controls.size());
    for (Control* control : controls) parts.emplace_back(*control);
    setLayout(column(std::move(parts)));
  }
  using Form::setLayout;
};

}  // namespace korvane
