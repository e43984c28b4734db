#include "commands/Person.h"

#include "platform/Controls.h"

namespace korvane {
namespace {

/// Why a person can't reach the control because of itself or a group around it; empty if one can.
std::string obstacle(const Target& target) {
  for (const Control* around = target.control; around != nullptr; around = around->group) {
    const Look& look = around->look();
    if (look.visible && look.enabled) continue;
    const char* state = look.visible ? " is disabled." : " is hidden.";
    if (around == target.control) return target.name + state;
    return target.name + " can't be reached: the group " + around->name() + " around it" + state;
  }
  return {};
}

std::string obstacle(const Engine& engine, const Target& target) {
  if (!target.form->visible()) return "The window " + target.form->name() + " is hidden.";
  const Form* modal = engine.desktop.modal();
  if (modal != nullptr && modal != target.form) {
    return target.name + " can't be reached: the window " + modal->name() + " is open modally.";
  }
  return obstacle(target);
}

void requireReach(const Engine& engine, const Target& target) {
  const std::string reason = obstacle(engine, target);
  if (!reason.empty()) throw CommandError(reason);
}

void closeEditors(Engine& engine, const ListView* kept) {
  for (const Form* form : engine.desktop.forms()) {
    for (Control* control : form->controls()) {
      auto* list = dynamic_cast<ListView*>(control);
      if (list == nullptr || list == kept || !list->editing()) continue;
      list->endEdit(list->cell(list->editRow(), list->editCol()));
    }
  }
}

}  // namespace

Target findTarget(const Engine& engine, const std::string& name) {
  Target target{name};
  const std::size_t dot = name.find('.');
  const std::string formName = name.substr(0, dot);
  target.form = engine.desktop.find(formName);
  if (target.form == nullptr) throw CommandError("There is no window " + inQuotes(formName) + ".");
  if (dot == std::string::npos) return target;
  const std::string controlName = name.substr(dot + 1);
  target.control = target.form->find(controlName);
  if (target.control == nullptr)
    throw CommandError(formName + " has no control " + inQuotes(controlName) + ".");
  return target;
}

Target reachTarget(const Engine& engine, const std::string& name) {
  Target target = findTarget(engine, name);
  requireReach(engine, target);
  return target;
}

void refuseKind(const Target& target, const char* command) {
  const std::string kind = target.control == nullptr ? "window" : kindName(target.control->kind());
  throw CommandError(target.name + " is a " + kind + ", which '" + command + "' does not act on.");
}

void act(Engine& engine, const Target& target, const Gesture& gesture) {
  closeEditors(engine, gesture.editor);
  requireReach(engine, target);
  engine.desktop.activate(*target.form);
  requireReach(engine, target);
  for (const Event& event : gesture.events) {
    event();
    if (!gesture.whole && !obstacle(engine, target).empty()) return;
  }
}

}  // namespace korvane
