// Takes the pictures of the documentation: korvane-screenshots FOLDER [WIDTH HEIGHT]
// The desk, the main window with a show, at the size if one is given, and every other window. Takes
// the pictures of a show from examples/slides, below the folder in which it runs.

#include <QApplication>
#include <QDir>
#include <QThread>
#include <cstdio>

#include "hosts/desk/DeskWindow.h"
#include "views/qt/machine/QtPlatform.h"
#include "views/qt/windows/Theme.h"

namespace {

using namespace korvane;

constexpr int kSettleMilliseconds = 20;
constexpr int kSettleRounds = 5;
constexpr int kShowMilliseconds = 300;  // how long the show runs before its picture is taken

// One row for each type of effect.
struct Row {
  const char* name;
  EffectType type;
  int direction;
  Color color1;
  Color color2;
};

constexpr Row kRows[] = {
    {"Sunset", kGradient, 5, rgb(110, 0, 160), rgb(255, 110, 0)},
    {"Amber", kColor, 0, rgb(255, 150, 0), 0},
    {"Heart", kPaint, 0, 0, 0},
    {"Clouds", kImage, 7, 0, 0},
    {"Party", kColorChange, 0, 0, 0},
    {"Rainbow", kColorScroll, 3, 0, 0},
    {"Embers", kFire, 0, rgb(255, 220, 0), rgb(255, 0, 0)},
    {"Waves", kFluid, 5, rgb(0, 40, 255), rgb(255, 255, 255)},
    {"Welcome", kTicker, 3, rgb(255, 255, 255), rgb(0, 0, 60)},
};
constexpr Row kOtherRows[] = {
    {"Deep sea", kGradient, 9, rgb(10, 0, 70), rgb(0, 170, 255)},
    {"Night", kColor, 0, rgb(0, 0, 80), 0},
    {"Rain", kFluid, 5, rgb(0, 0, 120), rgb(120, 200, 255)},
};

struct Slide {
  const char* name;
  double seconds;
};
constexpr Slide kSlides[] = {{"balloon.bmp", 10}, {"mountains.bmp", 7.5}, {"sunrise.bmp", 30}};

constexpr const char* kHeart[] = {
    "............", "..##....##..", ".####..####.", "############", "############", "############",
    ".##########.", "..########..", "...######...", "....####....", ".....##.....", "............",
};

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
  }

  int run() {
    desk_.show();
    desk_.openTool();
    if (!size_.isEmpty()) view_.window(plugin_.matrixForm).resize(size_);
    wireLamps();
    makeShow();
    save(view_.window(plugin_.matrixForm), "main-window");
    taken_ << text(plugin_.matrixForm.name());
    save(desk_, "desk");
    for (int row = 0; row < kEffectTypes; ++row) takeDialog(row);
    mixOrange();
    takeFullScreen();
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
    fill(plugin_.engine.v.A, plugin_.matrixForm.panelA, kRows);
    fill(plugin_.engine.v.B, plugin_.matrixForm.panelB, kOtherRows);
    gate_.run([this] { plugin_.engine.master.efxXList.click(0, 0); });
    gate_.run([this] { plugin_.matrixForm.active.setValue(1); });
    settle(kShowMilliseconds);
  }

  template <std::size_t N>
  void fill(Deck& deck, DeckPanel& panel, const Row (&rows)[N]) {
    for (std::size_t i = 0; i < N; ++i) {
      if (i > 0) gate_.run([&] { panel.add.click(); });
      const int row = static_cast<int>(i);
      gate_.run([&] { deck.efxList.click(row, 0); });
      gate_.run([&] { deck.type.setIndex(rows[i].type); });
      setEffect(deck.effect(), rows[i]);
      deck.efxList.setCell(row, 0, rows[i].name);
    }
    gate_.run([&] { deck.efxList.click(0, 0); });
  }

  static void setEffect(Effect& effect, const Row& row) {
    effect.name = row.name;
    effect.color1 = row.color1;
    effect.color2 = row.color2;
    effect.direction = static_cast<std::int16_t>(row.direction);
    effect.colors = {rgb(255, 0, 0), rgb(255, 160, 0), rgb(0, 200, 0), rgb(0, 80, 255),
                     rgb(0, 0, 0)};
    effect.colorCount = static_cast<std::int16_t>(effect.colors.size());
    effect.itemTimes.assign(effect.colors.size(), 3);
    effect.itemWidths.assign(effect.colors.size(), 2);
    if (row.type == kImage) setSlides(effect);
    for (int y = 0; row.type == kPaint && y < 12; ++y) {
      for (int x = 0; x < 12; ++x)
        effect.paintPixels.at(x, y) = kHeart[y][x] == '#' ? rgb(255, 0, 60) : rgb(20, 0, 40);
    }
  }

  static void setSlides(Effect& effect) {
    effect.itemTimes.clear();
    for (const Slide& slide : kSlides) {
      effect.imageNames.emplace_back(slide.name);
      effect.imageFiles.push_back(std::string("examples/slides/") + slide.name);
      effect.itemTimes.push_back(slide.seconds);
    }
    effect.imageCount = static_cast<std::int16_t>(effect.imageNames.size());
    effect.speed = 60;
    effect.amount = 25;
  }

  void takeDialog(int row) {
    EffectDialog* dialog = plugin_.dialogs.byType.at(kRows[row].type);
    if (dialog == nullptr) return;
    gate_.run([&] { plugin_.engine.v.A.efxList.click(row, 0); });
    gate_.run([&] { plugin_.matrixForm.panelA.edit.click(); });
    save(view_.window(*dialog), dialog->name());
    if (kRows[row].type == kImage) takeImageList();
    gate_.run([&] { plugin_.engine.desktop.close(*dialog); });
  }

  void takeImageList() {
    MxImageList& list = plugin_.dialogs.imageList;
    gate_.run([this] { plugin_.dialogs.image.BImage.click(); });
    gate_.run([&list] { list.myImageList.click(1, 0); });
    save(view_.window(list), list.name());
    gate_.run([&] { plugin_.engine.desktop.close(list); });
  }

  // The simulation window without its frame; the one with it is taken with the other windows.
  void takeFullScreen() {
    MxSimForm& sim = plugin_.mxSimForm;
    constexpr int kSpace = 32;
    gate_.run([&] { plugin_.engine.desktop.show(sim); });
    gate_.run([&sim] { sim.onKeyPress(kSpace); });
    save(view_.window(sim), sim.name() + "-full-screen");
    gate_.run([&sim] { sim.onKeyPress(kSpace); });
    gate_.run([&] { plugin_.engine.desktop.hide(sim); });
  }

  void mixOrange() {
    MxColorMixer& mixer = plugin_.dialogs.mixer;
    gate_.run([&mixer] { mixer.Sred.setValue(240); });
    gate_.run([&mixer] { mixer.Sgreen.setValue(130); });
    gate_.run([&mixer] { mixer.Sblue.setValue(40); });
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
  DeskWindow desk_{platform_, output_, "show", examplesIn(examplesFolder())};
  Plugin& plugin_ = desk_.session().plugin;
  EventGate& gate_ = desk_.session().gate;
  DesktopView& view_ = desk_.session().view;
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
