#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Controls.h"
#include "platform/Form.h"
#include "state/Engine.h"

namespace korvane {

/// A window that opens from a dialog alone, and the button that takes what it holds.
struct DialogWindow {
  Form& form;
  Button& ok;
};

/// What the dialogs of all effects share: a name, an OK button, and the record of the deck that
/// `editDeck` names. They are not modal and write to the record and the running deck at once, and
/// so serve as their own preview.
class EffectDialog : public Form {
 public:
  /// Fills the controls from the record of the deck under edit and shows the window.
  void open();
  /// Marks the slot as edited, writes the name to the list's current row and to the record, hides.
  virtual void OK_Click();
  /// Another effect is about to be edited: takes what an open dialog holds.
  virtual void commit();
  /// The matrix has another size.
  virtual void gridChanged() {}
  virtual std::vector<DialogWindow> windows() { return {}; }

  TextBox myName;
  Button OK;

 protected:
  EffectDialog(Engine& engine, std::string name, std::string caption, std::string defaultName);

  /// Puts the record's values into the controls.
  virtual void fill() = 0;

  Deck& deck() { return engine_.editedDeck(); }
  Effect& effect() { return deck().effect(); }
  void markEdited(bool edited);
  /// Writes a text to the current row of the deck's list.
  void writeRowText(const std::string& text);
  /// A click on the box opens the mixer on its colour; what was picked goes to the box and to the
  /// record's field, and `then` runs.
  void bindColor(ColorBox& box, Color Effect::*field, std::function<void()> then);

  /// A move of the slider stores its position in the record's field, then `then` runs.
  void bindSlider(Slider& slider, std::int16_t Effect::*field, std::function<void()> then = {});

  Engine& engine_;
};

}  // namespace korvane
