#pragma once

#include <string>
#include <vector>

#include "platform/Controls.h"

namespace korvane {

/// One command of the desk. Keys reach it by its name, and whatever else can name it.
struct CommandRow {
  std::string name;
  std::string caption;
  std::string words;     ///< what it does
  std::string key;       ///< default key; empty for none
  bool repeats = false;  ///< its key, held, counts again and again
};

/// How many rows of each list have a command.
inline constexpr int kNumberedRows = 9;

/// All commands of the desk, those of a show that runs by itself among them.
const std::vector<CommandRow>& commandTable();
/// The command of this name, nullptr if there is none.
const CommandRow* commandRow(const std::string& name);

/// The item of the command of its name.
class CommandItem : public MenuItem {
 public:
  explicit CommandItem(const std::string& name);
};

}  // namespace korvane
