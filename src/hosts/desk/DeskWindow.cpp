#include "hosts/desk/DeskWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QShortcut>
#include <QVBoxLayout>

namespace korvane {
namespace {

constexpr int kMargin = 12;

// First argument of a view change.
constexpr std::int32_t kNarrowView = 1;
constexpr std::int32_t kFullView = 0;

}  // namespace

DeskWindow::DeskWindow(Plugin& plugin, DeskHost& host, NetworkOutput& output, EventGate& gate)
    : plugin_(plugin),
      host_(host),
      gate_(gate),
      outputPanel_(new OutputPanel(output, this)),
      levels_(new LevelGrid(host, this)) {
  setWindowTitle("Korvane");
  setObjectName("Desk");
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->addWidget(makeCommands());
  layout->addWidget(outputPanel_);
  layout->addWidget(makeMonitor(), 1);
  host_.onLevel = [this](std::int32_t channel) { levels_->mark(channel); };
}

void DeskWindow::openTool() {
  gate_.run([this] { plugin_.engine.desktop.show(plugin_.matrixForm); });
}

void DeskWindow::send(std::int32_t message, std::int32_t argument) {
  gate_.run([this, message, argument] {
    plugin_.plugIn.ITharnPlugin_MessageHandle(message, argument, 0);
  });
}

QPushButton* DeskWindow::makeButton(const Command& command) {
  auto* button = new QPushButton(command.caption, this);
  button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  button->setToolTip(QString("%1 (%2)").arg(command.toolTip, command.key));
  connect(button, &QPushButton::clicked, this, command.run);
  auto* shortcut = new QShortcut(QKeySequence(command.key), this);
  shortcut->setContext(Qt::ApplicationShortcut);
  connect(shortcut, &QShortcut::activated, this, command.run);
  return button;
}

QWidget* DeskWindow::makeCommands() {
  const Command commands[] = {
      {"Matrix", "open the matrix tool", "F2", [this] { openTool(); }},
      {"Configure", "define the lamp grid and its channels", "F3",
       [this] { gate_.run([this] { plugin_.plugIn.ITharnPlugin_Configure(); }); }},
      {"Beat", "one beat of the music", "F9", [this] { send(kMessageBeat); }},
      {"Blackout", "tell the tool of a blackout", "F10", [this] { send(kMessageBlackout); }},
      {"Freeze", "tell the tool of a freeze", "F11", [this] { send(kMessageFreeze); }},
      {"Narrow view", "show the tool's master alone", "F6",
       [this] { send(kMessageViewChange, kNarrowView); }},
      {"Full view", "show all of the tool", "F7", [this] { send(kMessageViewChange, kFullView); }},
  };
  auto* group = new QGroupBox("Project " + QString::fromStdString(host_.ProjectName()), this);
  group->setToolTip(QString::fromStdString(host_.ProjectBaseFilename()));
  auto* line = new QHBoxLayout(group);
  for (const Command& command : commands) line->addWidget(makeButton(command), 1);
  return group;
}

QWidget* DeskWindow::makeMonitor() {
  auto* group = new QGroupBox("Channels", this);
  auto* layout = new QVBoxLayout(group);
  layout->addWidget(levels_);
  return group;
}

// The lamps would lose their light with the desk, so a running output is not ended by the way.
void DeskWindow::closeEvent(QCloseEvent* event) {
  if (plugin_.engine.v.outputActive) {
    const auto answer = QMessageBox::question(
        this, "Korvane", "The matrix is sending to the lamps. Close the desk all the same?");
    if (answer != QMessageBox::Yes) return event->ignore();
  }
  event->accept();
  QApplication::exit();
}

}  // namespace korvane
