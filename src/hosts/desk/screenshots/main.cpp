// Takes the pictures of the documentation: korvane-screenshots FOLDER [WIDTH HEIGHT]
// The desk, the main window with a show, at the size if one is given, and every other window.

#include <QApplication>
#include <QDir>
#include <QThread>
#include <cstdio>

#include "hosts/desk/DeskWindow.h"
#include "views/qt/machine/QtPlatform.h"
#include "views/qt/windows/DesktopView.h"
#include "views/qt/windows/Theme.h"

namespace {

using namespace korvane;

constexpr int kSettleMilliseconds = 20;
constexpr int kSettleRounds = 5;
constexpr int kShowMilliseconds = 3000;  // how long the show runs before its picture is taken

struct Row {
  const char* name;
  EffectType type;
  int direction;
};

constexpr Row kLeft[] = {{"Sunset", kGradient, 5},
                         {"Embers", kFire, 0},
                         {"Title", kTicker, 3},
                         {"Amber", kColor, 0},
                         {"Waves", kFluid, 5}};
constexpr Row kRight[] = {
    {"Deep sea", kGradient, 9}, {"Blue", kColor, 0}, {"Rain", kFluid, 5}, {"Logo", kPaint, 0}};

// A file dialog or a message box must not stop the pictures.
class SilentPlatform : public QtPlatform {
 public:
  void messageBox(const std::string&) override {}
  std::optional<std::string> askFile(const FileQuestion&) override { return std::nullopt; }
};

class Photographer {
 public:
  Photographer(const QString& folder, QSize size) : folder_(folder), size_(size) {
    QDir().mkpath(folder_);
    gate_.run([this] { plugin_.plugIn.ITharnPlugin_Init("", "", host_); });
  }

  int run() {
    desk_.show();
    desk_.openTool();
    if (!size_.isEmpty()) view_.window(plugin_.matrixForm).resize(size_);
    wireLamps();
    makeShow();
    save(view_.window(plugin_.matrixForm), plugin_.matrixForm.name());
    save(desk_, "Desk");
    for (int type = 0; type < kEffectTypes; ++type) takeDialog(type);
    for (Form* form : plugin_.engine.desktop.forms()) takeForm(*form);
    return failed_ ? 1 : 0;
  }

 private:
  // Gives the lamps of the default grid the channels from 1 on, as many as there are.
  void wireLamps() {
    Variablen& v = plugin_.engine.v;
    std::int32_t channel = 0;
    for (int row = 0; row < v.matrixRows; ++row) {
      for (int col = 0; col < v.matrixCols; ++col) {
        for (int part = 0; part < 3; ++part) v.channelMap.set(col, row, part, ++channel);
        v.cellConfigured.at(col, row) = true;
      }
    }
  }

  void makeShow() {
    fill(plugin_.engine.v.A, plugin_.matrixForm.panelA, kLeft);
    fill(plugin_.engine.v.B, plugin_.matrixForm.panelB, kRight);
    Master& master = plugin_.engine.master;
    gate_.run([&] { plugin_.engine.v.efxB.at(0).color1 = rgb(0, 40, 120); });
    gate_.run([&] { plugin_.engine.v.efxB.at(0).color2 = rgb(0, 220, 200); });
    gate_.run([&] { plugin_.engine.v.efxA.at(0).color1 = rgb(255, 60, 0); });
    for (Deck* deck : {&plugin_.engine.v.A, &plugin_.engine.v.B})
      gate_.run([&] { deck->efxList.click(0, 0); });
    gate_.run([&] { master.efxXList.click(0, 0); });
    gate_.run([&] { plugin_.matrixForm.active.setValue(1); });
    settle(kShowMilliseconds / 10);
  }

  template <std::size_t N>
  void fill(Deck& deck, DeckPanel& panel, const Row (&rows)[N]) {
    for (std::size_t i = 0; i < N; ++i) {
      if (i > 0) gate_.run([&] { panel.add.click(); });
      const int row = static_cast<int>(i);
      gate_.run([&] { deck.efxList.click(row, 0); });
      gate_.run([&] { deck.type.setIndex(rows[i].type); });
      gate_.run([&] {
        if (rows[i].direction > 0)
          deck.effect().direction = static_cast<std::int16_t>(rows[i].direction);
        deck.effect().name = rows[i].name;
        deck.efxList.setCell(row, 0, rows[i].name);
      });
    }
  }

  void takeDialog(int type) {
    EffectDialog* dialog = plugin_.dialogs.byType.at(static_cast<std::size_t>(type));
    if (dialog == nullptr) return;
    gate_.run([&] { plugin_.engine.v.A.type.setIndex(type); });
    gate_.run([&] { plugin_.matrixForm.panelA.edit.click(); });
    settle(kSettleMilliseconds);
    save(view_.window(*dialog), dialog->name());
    gate_.run([&] { plugin_.engine.desktop.close(*dialog); });
  }

  void takeForm(Form& form) {
    if (taken_.contains(text(form.name()))) return;
    gate_.run([&] { plugin_.engine.desktop.show(form); });
    save(view_.window(form), form.name());
    gate_.run([&] { plugin_.engine.desktop.hide(form); });
  }

  void settle(int milliseconds) {
    for (int i = 0; i < kSettleRounds; ++i) {
      QThread::msleep(static_cast<unsigned long>(milliseconds / kSettleRounds));
      QApplication::processEvents();
    }
  }

  void save(QWidget& window, const std::string& name) {
    settle(kSettleMilliseconds);
    const QString path = QDir(folder_).filePath(text(name) + ".png");
    if (!window.grab().save(path)) {
      std::fprintf(stderr, "korvane-screenshots: cannot write %s\n", qUtf8Printable(path));
      failed_ = true;
    }
    taken_ << text(name);
  }

  QString folder_;
  QSize size_;
  QStringList taken_;
  bool failed_ = false;
  SilentPlatform platform_;
  NetworkOutput output_{"korvane-screenshots"};
  DeskHost host_{"show", output_};
  Plugin plugin_{platform_};
  EventGate gate_{platform_, plugin_.engine.timers};
  DesktopView view_{plugin_.engine.desktop, gate_, plugin_.matrixForm};
  DeskWindow desk_{plugin_, host_, output_, gate_};
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  applyTheme(application);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 2 && arguments.size() != 4) {
    std::fprintf(stderr, "usage: korvane-screenshots FOLDER [WIDTH HEIGHT]\n");
    return 2;
  }
  const QSize size =
      arguments.size() == 4 ? QSize(arguments[2].toInt(), arguments[3].toInt()) : QSize();
  return Photographer(arguments[1], size).run();
}
