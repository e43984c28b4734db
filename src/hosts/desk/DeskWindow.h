#pragma once

#include <QPushButton>
#include <QWidget>
#include <functional>

#include "hosts/desk/DeskHost.h"
#include "hosts/desk/LevelGrid.h"
#include "hosts/desk/OutputPanel.h"
#include "shell/Plugin.h"
#include "views/qt/machine/EventGate.h"

namespace korvane {

/// The window of the stand-alone desk: opens the tool, sends it the desk's messages, shows the 512
/// channels and chooses the output.
class DeskWindow : public QWidget {
 public:
  DeskWindow(Plugin& plugin, DeskHost& host, NetworkOutput& output, EventGate& gate);
  ~DeskWindow() override { host_.onLevel = nullptr; }

  void openTool();
  OutputPanel& outputPanel() { return *outputPanel_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Command {
    const char* caption;
    const char* toolTip;
    const char* key;  // shortcut in all windows of the program
    std::function<void()> run;
  };

  QPushButton* makeButton(const Command& command);
  QWidget* makeCommands();
  QWidget* makeMonitor();
  void send(std::int32_t message, std::int32_t argument = 0);

  Plugin& plugin_;
  DeskHost& host_;
  EventGate& gate_;
  OutputPanel* outputPanel_;
  LevelGrid* levels_;
};

}  // namespace korvane
