#pragma once

#include <string>

#include "desk/keys/KeyBindings.h"
#include "platform/Controls.h"
#include "platform/Desktop.h"
#include "platform/Form.h"
#include "platform/ListView.h"

namespace korvane {

/// The window of the keys: each command with what it does and its key, and the way to another key.
class KeysForm : public Form {
 public:
  KeysForm(Desktop& desktop, KeyBindings& bindings);

  ListView list;
  Label state;
  Button change, none, reset, resetAll, help, OK;

 private:
  void waitForKey();
  void stopWaiting();
  void takeKey(const std::string& key);
  void tell(const MenuItem& item, const std::string& fault);
  void showRows();
  MenuItem* chosen() const;

  KeyBindings& bindings_;
};

}  // namespace korvane
