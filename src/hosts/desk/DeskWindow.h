#pragma once

#include <QGroupBox>
#include <QPushButton>
#include <QWidget>
#include <functional>
#include <memory>

#include "hosts/desk/DeskSession.h"
#include "hosts/desk/Examples.h"
#include "hosts/desk/LevelGrid.h"
#include "hosts/desk/OutputPanel.h"

namespace korvane {

/// The window of the stand-alone desk: opens shows and the tool, sends it the desk's messages,
/// shows the 512 channels and chooses the output. It runs one session at a time.
class DeskWindow : public QWidget {
 public:
  /// Begins with an empty project, whose path without an ending is `stem`.
  DeskWindow(Platform& platform, NetworkOutput& output, const std::string& stem,
             const QList<Example>& examples);

  /// Opens a show in a session of its own, in the project named after the file. The person is asked
  /// first if changes would be lost. If it can't be opened, the present one goes on, and the
  /// platform is told why.
  void openShow(const QString& path);
  void openTool() { session_->openTool(); }
  OutputPanel& outputPanel() { return *outputPanel_; }
  DeskSession& session() { return *session_; }
  std::function<void()> onClosed;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Command {
    const char* caption;
    const char* toolTip;
    const char* key;
    std::function<void()> run;
  };

  /// In all windows of the program.
  void bindKey(const char* key, const std::function<void()>& run);
  QPushButton* makeButton(const Command& command);
  QWidget* makeShows(const QList<Example>& examples);
  QWidget* makeCommands();
  QWidget* makeMonitor();
  void send(std::int32_t message, std::int32_t argument = 0);
  void askForShow();
  void showProject();
  /// Whether the present show may go: nothing of it would be lost, or the person wants that.
  bool mayLeaveShow();

  Platform& platform_;
  NetworkOutput& output_;
  std::unique_ptr<DeskSession> session_;
  OutputPanel* outputPanel_;
  LevelGrid* levels_;
  QGroupBox* project_;
};

}  // namespace korvane
