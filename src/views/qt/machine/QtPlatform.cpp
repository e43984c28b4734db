#include "views/qt/machine/QtPlatform.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QLocale>
#include <QTimer>
#include <QUrl>

#include "platform/Clock.h"
#include "views/shared/pictures/PictureFile.h"

namespace korvane::qt {
namespace {

constexpr const char* kTitle = "Korvane";

constexpr char16_t kLastAscii = 0x7F;

// A separator of the locale in one byte. The thousands separators beyond ASCII are blanks or look
// like an apostrophe; they must never become the decimal separator, which would be skipped then.
char decimalSeparator(const QString& text) {
  const QChar first = text.isEmpty() ? QChar('.') : text.front();
  return first.unicode() <= kLastAscii ? first.toLatin1() : '.';
}
char thousandsSeparator(const QString& text) {
  const QChar first = text.isEmpty() ? QChar(' ') : text.front();
  if (first.unicode() <= kLastAscii) return first.toLatin1();
  return first.isSpace() ? ' ' : '\'';
}

// What a name that was typed without an ending gets: a file without it would be out of sight when
// it is looked for.
QString endingOf(const FileQuestion& question) {
  if (!question.defaultExtension.empty()) return QString::fromStdString(question.defaultExtension);
  const QString pattern = QString::fromStdString(question.filter).section('|', 1, 1);
  return pattern.section(';', 0, 0).section("*.", 1, 1);
}

void setUp(QFileDialog& dialog, const FileQuestion& question) {
  const bool save = question.purpose == FileQuestion::Purpose::Save;
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  if (save) dialog.setDefaultSuffix(endingOf(question));
  if (!question.filter.empty()) dialog.setNameFilters(toNameFilter(question.filter).split(";;"));
  if (!question.initialDirectory.empty())
    dialog.setDirectory(QString::fromStdString(question.initialDirectory));
  if (!question.suggestedName.empty())
    dialog.selectFile(QString::fromStdString(question.suggestedName));
}

// What a box stands above: the window at work, or before there is one, any that is there.
QWidget* frontWindow() {
  if (QWidget* active = QApplication::activeWindow()) return active;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) return window;
  }
  return nullptr;
}

// A window that was shown just before must not cover it.
void comesForward(QWidget& box) {
  QTimer::singleShot(0, &box, [&box] {
    box.raise();
    box.activateWindow();
  });
}

}  // namespace

QString toNameFilter(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split('|');
  QStringList filters;
  for (int i = 0; i + 1 < parts.size(); i += 2) {
    const QString name = parts[i].section('(', 0, 0).trimmed();
    const QString patterns = parts[i + 1].split(';', Qt::SkipEmptyParts).join(' ');
    filters << QString("%1 (%2)").arg(name, patterns);
  }
  return filters.join(";;");
}

void QtPlatform::messageBox(const std::string& text) {
  QMessageBox box(QMessageBox::NoIcon, kTitle, QString::fromStdString(text), QMessageBox::Ok,
                  frontWindow());
  box.setTextFormat(Qt::PlainText);
  comesForward(box);
  box.exec();
}

std::optional<std::string> QtPlatform::askFile(const FileQuestion& question) {
  QFileDialog dialog(frontWindow(), QString::fromStdString(question.title));
  setUp(dialog, question);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return dialog.selectedFiles().front().toStdString();
}

Raster QtPlatform::loadPicture(const std::string& path) { return readPicture(path); }

std::int64_t QtPlatform::timeOfDay() { return machineClock().timeOfDay(); }

NumberFormat QtPlatform::numberFormat() {
  const QLocale locale;
  return {decimalSeparator(locale.decimalPoint()), thousandsSeparator(locale.groupSeparator())};
}

void QtPlatform::openPage(const std::string& address) {
  QDesktopServices::openUrl(QUrl(QString::fromStdString(address)));
}

// The windows stay usable behind the box: a failure that every tick brings must not shut the
// person out.
void QtPlatform::failed(const Failure& failure) {
  if (failure.number == kCancelled) return;
  const QString what = QString::fromStdString(failure.what());
  if (failureBox_ && failureBox_->text() == what) {
    failureBox_->setInformativeText(QString("%1 times so far").arg(++repeats_));
    return;
  }
  delete failureBox_;
  repeats_ = 1;
  failureBox_ = new QMessageBox(QMessageBox::Warning, kTitle, what, QMessageBox::Ok, frontWindow());
  failureBox_->setTextFormat(Qt::PlainText);
  failureBox_->setAttribute(Qt::WA_DeleteOnClose);
  failureBox_->setModal(false);
  failureBox_->show();
  comesForward(*failureBox_);
}

void QtPlatform::saveFailed(const FailedSave& failed) { messageBox(failed.told()); }

bool QtPlatform::startsWithout(const BrokenGrid& grid) {
  messageBox(grid.told());
  return true;
}

}  // namespace korvane::qt
