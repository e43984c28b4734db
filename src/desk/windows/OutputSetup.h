#pragma once

#include <string>

#include "desk/network/NetworkOutput.h"
#include "platform/Controls.h"
#include "platform/Desktop.h"

namespace korvane {

/// Chooses where the levels go, and what the lamps do when the output is switched off.
class OutputSetup : public Form {
 public:
  /// What the lamps do when DMX goes off, in the order of the list.
  enum class WhenOff { Dark, Hold, Ask };

  OutputSetup(Desktop& desktop, NetworkOutput& output);

  /// Shows a target in the fields and sends to it.
  void use(const OutputTarget& target);
  /// What stands in the address field for a target: nothing if the address is the protocol's own,
  /// as another universe or protocol has another one.
  static std::string givenAddress(const OutputTarget& target);
  /// Whether levels are sent.
  bool sending() const { return !applied_.empty() && complaint_.empty(); }
  WhenOff whenOff() const { return static_cast<WhenOff>(off.index()); }
  /// For people: where the levels go, empty for nowhere.
  std::string target() const { return target_; }
  /// For people: what is wrong with the fields or with the network; empty for nothing.
  std::string fault() const;
  /// Shows it in the window.
  void refresh();

  ListBox protocol;
  TextBox universe, address;
  ListBox off;
  Label state;
  Button OK;

 private:
  const Protocol* chosen() const;
  /// Sends to what the fields say, or tells what is wrong with it.
  void apply();
  void send(const OutputTarget& target);

  NetworkOutput& output_;
  std::string applied_;  // target's text that runs, empty when off
  std::string target_;   // for people
  std::string complaint_;
};

}  // namespace korvane
