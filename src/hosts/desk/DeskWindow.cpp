#include "hosts/desk/DeskWindow.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QShortcut>
#include <QVBoxLayout>

namespace korvane {
namespace {

constexpr int kMargin = 12;
constexpr const char* kShowFilter = "Matrix Project (*.Korvane)|*.Korvane";

// First argument of a view change.
constexpr std::int32_t kNarrowView = 1;
constexpr std::int32_t kFullView = 0;

}  // namespace

DeskWindow::DeskWindow(Platform& platform, NetworkOutput& output, const std::string& stem,
                       const QList<Example>& examples)
    : platform_(platform),
      output_(output),
      session_(std::make_unique<DeskSession>(platform, output, stem)),
      outputPanel_(new OutputPanel(output, this)),
      levels_(new LevelGrid(platform, this)),
      project_(new QGroupBox(this)) {
  setWindowTitle("Korvane");
  setObjectName("Desk");
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->addWidget(makeShows(examples));
  layout->addWidget(makeCommands());
  layout->addWidget(outputPanel_);
  layout->addWidget(makeMonitor(), 1);
  bindKey("F4", [this] {
    raise();
    activateWindow();
  });
  showProject();
}

void DeskWindow::showProject() {
  DeskHost& host = session_->host;
  project_->setTitle("Project " + QString::fromStdString(host.ProjectName()));
  project_->setToolTip(QString::fromStdString(host.ProjectBaseFilename()));
  levels_->watch(host);
}

void DeskWindow::send(std::int32_t message, std::int32_t argument) {
  session_->gate.run([this, message, argument] {
    session_->plugin.plugIn.ITharnPlugin_MessageHandle(message, argument, 0);
  });
}

void DeskWindow::askForShow() {
  const auto path = platform_.askFile(
      {.title = "Open Show ...", .filter = kShowFilter, .initialDirectory = session_->directory()});
  if (path) openShow(QString::fromStdString(*path));
}

void DeskWindow::openShow(const QString& path) {
  if (!mayLeaveShow()) return;
  const std::string show = QFileInfo(path).absoluteFilePath().toStdString();
  auto next = std::make_unique<DeskSession>(platform_, output_, projectOf(show));
  if (!next->load(show)) return;
  next->follow(*session_);
  session_.swap(next);
  showProject();
  next.reset();
  session_->warnOfMissingGrid();
}

bool DeskWindow::mayLeaveShow() {
  if (!session_->changed()) return true;
  QMessageBox box(QMessageBox::Question, "Korvane",
                  QString::fromStdString(session_->host.ProjectName()) +
                      " was changed since it was opened or saved.",
                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
  box.setTextFormat(Qt::PlainText);
  switch (box.exec()) {
    case QMessageBox::Save:
      return session_->save();
    case QMessageBox::Discard:
      return true;
    default:
      return false;
  }
}

QPushButton* DeskWindow::makeButton(const Command& command) {
  auto* button = new QPushButton(command.caption, this);
  button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  button->setToolTip(QString("%1 (%2)").arg(command.toolTip, command.key));
  connect(button, &QPushButton::clicked, this, command.run);
  bindKey(command.key, command.run);
  return button;
}

// The key's own event is done first: its window may go with the show.
void DeskWindow::bindKey(const char* key, const std::function<void()>& run) {
  auto* shortcut = new QShortcut(QKeySequence(key), this);
  shortcut->setContext(Qt::ApplicationShortcut);
  connect(shortcut, &QShortcut::activated, this, run, Qt::QueuedConnection);
}

QWidget* DeskWindow::makeShows(const QList<Example>& examples) {
  auto* group = new QGroupBox("Shows", this);
  auto* line = new QHBoxLayout(group);
  for (const Example& example : examples) {
    auto* button = new QPushButton(example.title, group);
    button->setToolTip("open " + example.path);
    connect(button, &QPushButton::clicked, this, [this, path = example.path] { openShow(path); });
    line->addWidget(button, 1);
  }
  line->addWidget(
      makeButton({"Open ...", "open a show of your own", "Ctrl+O", [this] { askForShow(); }}), 1);
  return group;
}

QWidget* DeskWindow::makeCommands() {
  const Command commands[] = {
      {"Matrix", "open the matrix tool", "F2", [this] { openTool(); }},
      {"Configure", "define the lamp grid and its channels", "F3",
       [this] {
         session_->gate.run([this] { session_->plugin.plugIn.ITharnPlugin_Configure(); });
       }},
      {"Beat", "one beat of the music", "F9", [this] { send(kMessageBeat); }},
      {"Blackout", "tell the tool of a blackout", "F10", [this] { send(kMessageBlackout); }},
      {"Freeze", "tell the tool of a freeze", "F11", [this] { send(kMessageFreeze); }},
      {"Narrow view", "show the tool's master alone", "F6",
       [this] { send(kMessageViewChange, kNarrowView); }},
      {"Full view", "show all of the tool", "F7", [this] { send(kMessageViewChange, kFullView); }},
  };
  auto* line = new QHBoxLayout(project_);
  for (const Command& command : commands) line->addWidget(makeButton(command), 1);
  return project_;
}

QWidget* DeskWindow::makeMonitor() {
  auto* group = new QGroupBox("Channels", this);
  auto* layout = new QVBoxLayout(group);
  layout->addWidget(levels_);
  return group;
}

// The lamps would lose their light with the desk, so a running output is not ended by the way.
void DeskWindow::closeEvent(QCloseEvent* event) {
  if (session_->plugin.engine.v.outputActive && outputPanel_->sending()) {
    const auto answer = QMessageBox::question(
        this, "Korvane", "The matrix is sending to the lamps. Close the desk all the same?",
        QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes) return event->ignore();
  }
  if (!mayLeaveShow()) return event->ignore();
  event->accept();
  if (onClosed) onClosed();
}

}  // namespace korvane
