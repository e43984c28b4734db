// Shows opened from the desk, with the mouse.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "hosts/desk/DeskWindow.h"
#include "hosts/desk/Receiver.h"
#include "platform/HeadlessPlatform.h"
#include "views/shared/pictures/PictureFile.h"

namespace korvane {
namespace {

class PicturePlatform : public HeadlessPlatform {
 public:
  Raster loadPicture(const std::string& path) override { return readPicture(path); }
};

class Shows : public testing::Test {
 protected:
  Shows() {
    desk.show();
    desk.openTool();
  }
  void press(const QString& caption) {
    for (QPushButton* found : desk.findChildren<QPushButton*>()) {
      if (found->text() == caption) return QTest::mouseClick(found, Qt::LeftButton);
    }
    ADD_FAILURE() << "no button " << qPrintable(caption);
  }
  /// Presses "Open ..." and chooses a file.
  void open(const QString& path) {
    platform.answers = {path.toStdString()};
    press("Open ...");
  }
  /// What the next question says; it is answered with the button.
  void answer(QMessageBox::StandardButton button) {
    asked.disconnect();
    asked.setSingleShot(true);
    asked.callOnTimeout([this, button] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      question = box->text();
      QTest::mouseClick(box->button(button), Qt::LeftButton);
    });
    asked.start(0);
  }
  QString write(const QString& name, const QByteArray& bytes) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return file.fileName();
  }
  static QByteArray bytesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
  }
  /// Presses the tool's own save.
  void save(const QString& path) {
    platform.answers = {path.toStdString()};
    desk.session().gate.run([this] { plugin().matrixForm.save.click(); });
  }
  Plugin& plugin() { return desk.session().plugin; }
  Variablen& v() { return plugin().engine.v; }
  std::string project() { return desk.session().host.ProjectName(); }
  void click(Button& button) {
    desk.session().gate.run([&button] { button.click(); });
  }
  void check(CheckBox& box) {
    desk.session().gate.run([&box] { box.setValue(1); });
  }
  void renameFade(const char* name) {
    desk.session().gate.run([this, name] { plugin().engine.master.fadeName.setText(name); });
  }

  QTemporaryDir folder;
  QTimer asked;
  QString question;
  QList<Example> examples = examplesIn(examplesFolder());
  PicturePlatform platform;
  NetworkOutput output{"korvane-tests"};
  DeskWindow desk{platform, output, folder.filePath("mine").toStdString(), examples};
};

TEST_F(Shows, ExamplesAreNamedAfterTheirFiles) {
  QStringList titles;
  for (const Example& example : examples) titles << example.title;
  EXPECT_EQ(titles.join(", "),
            "Club night, Ticker wall, Fire wall, Slide show, Paint animation, Beat show");
  EXPECT_TRUE(examplesIn(folder.path()).isEmpty());
  EXPECT_TRUE(examplesIn({}).isEmpty());
}

TEST_F(Shows, OneClickOpensAnExampleOnItsGrid) {
  const std::pair<int, int> grids[] = {{12, 12}, {48, 8}, {24, 16}, {20, 15}, {16, 16}, {12, 12}};
  ASSERT_EQ(examples.size(), std::size(grids));
  for (qsizetype i = 0; i < examples.size(); ++i) {
    SCOPED_TRACE(qPrintable(examples[i].title));
    press(examples[i].title);
    const auto [cols, rows] = grids[i];
    EXPECT_EQ(v().matrixCols, cols);
    EXPECT_EQ(v().matrixRows, rows);
    const std::string name = QFileInfo(examples[i].path).completeBaseName().toStdString();
    EXPECT_EQ(project(), name);
    EXPECT_EQ(plugin().matrixForm.caption(), "Korvane - " + name + ".Korvane");
    EXPECT_GT(v().efxACount, 1);
    EXPECT_TRUE(desk.session().view.window(plugin().matrixForm).isVisible());
    EXPECT_FALSE(desk.session().changed());
  }
  EXPECT_EQ(platform.boxes, std::vector<std::string>());
  EXPECT_TRUE(platform.failures.empty());
}

TEST_F(Shows, LookingAtAShowDoesNotChangeIt) {
  for (const Example& example : examples) {
    SCOPED_TRACE(qPrintable(example.title));
    press(example.title);
    EventGate& gate = desk.session().gate;
    Master& master = plugin().engine.master;
    for (ListView* list : {&v().A.efxList, &v().B.efxList, &master.efxXList}) {
      for (int row = 0; row < list->count(); ++row) gate.run([&] { list->click(row, 0); });
    }
    gate.run([&] { master.faderM.setValue(33); });
    click(master.AutoFadeB);
    QTest::qWait(20);
    EXPECT_FALSE(desk.session().changed());
  }
}

TEST_F(Shows, AShowOfOnesOwnIsItsOwnProject) {
  open(examples[1].path);
  ASSERT_EQ(platform.questions.size(), 1U);
  EXPECT_EQ(platform.questions[0].filter, "Matrix Project (*.Korvane)|*.Korvane");
  EXPECT_EQ(platform.questions[0].initialDirectory, folder.path().toStdString());
  EXPECT_EQ(project(), "2-ticker-wall");
  EXPECT_EQ(v().matrixCols, 48);
  platform.answers = {std::nullopt};
  press("Open ...");
  EXPECT_EQ(project(), "2-ticker-wall") << "a cancelled dialog changes nothing";
}

TEST_F(Shows, TheToolStaysWhereItStood) {
  const auto place = [this]() -> qt::FormWindow& {
    return desk.session().view.window(plugin().matrixForm);
  };
  place().setGeometry(40, 50, 600, 650);
  const QRect stood = place().geometry();
  press("Fire wall");
  EXPECT_EQ(place().geometry(), stood);
}

TEST_F(Shows, TheOutputGoesOnAndTheChannelsOfTheOldShowGoToZero) {
  Receiver receiver;
  output.start(parseOutputTarget(receiver.target()));
  // A show of one colour, and its grid of one lamp on the channels 2 to 4.
  const QString show = folder.filePath("small.Korvane");
  save(show);
  write("small.korvaneconf", "small\r\n1,1,False\r\n2,3,4\r\n");
  check(plugin().matrixForm.active);
  desk.session().gate.run([this] { plugin().matrixForm.fadeA.click(); });
  const auto comes = [&](bool lit) {
    return QTest::qWaitFor(
        [&] {
          const auto frames = receiver.take();
          return !frames.empty() && (frames.back()[0] == 255) == lit;
        },
        5000);
  };
  ASSERT_TRUE(comes(true));
  open(show);
  EXPECT_TRUE(comes(false));
  EXPECT_TRUE(v().outputActive);
  EXPECT_TRUE(plugin().matrixForm.active.checked());
  EXPECT_EQ(desk.session().host.level(2), v().frameM.at(0, 0)[0]);
}

TEST_F(Shows, AScrollBeginsOnDarkLamps) {
  press("Club night");
  int lit = 0;
  for (int row = 0; row < v().matrixRows; ++row) {
    for (int col = 0; col < v().matrixCols; ++col) lit += rgb(v().frameA.at(col, row)) != 0 ? 1 : 0;
  }
  EXPECT_EQ(v().A.effect().type, kColorScroll);
  EXPECT_LE(lit, 1) << "before its first step";
}

TEST_F(Shows, AFileThatIsNoShowLeavesThePresentOne) {
  press("Fire wall");
  check(plugin().matrixForm.active);
  DeskSession* const before = &desk.session();
  QByteArray cut = bytesOf(examples[0].path);
  cut.truncate(cut.size() / 2);
  write("grid.korvaneconf", "grid\r\n2,x\r\n");
  const std::pair<QString, const char*> cases[] = {
      {folder.filePath("none.Korvane"), "none.Korvane"},
      {folder.path(), "File not found"},
      {write("empty.Korvane", ""), "empty.Korvane, line 1"},
      {write("old.Korvane", "old\r\nV0.9\r\n"), "no show of version V1.0"},
      {write("binary.Korvane", QByteArray(100, '\0') + "\n\xff\xd8\n"), "binary.Korvane, line 2"},
      {write("cut.Korvane", cut), "cut.Korvane, line"},
      {write("grid.Korvane", bytesOf(examples[0].path)), "Type mismatch"},
  };
  for (const auto& [path, text] : cases) {
    SCOPED_TRACE(qPrintable(path));
    platform.failures.clear();
    open(path);
    ASSERT_EQ(platform.failures.size(), 1U);
    EXPECT_NE(std::string(platform.failures[0].what()).find(text), std::string::npos)
        << platform.failures[0].what();
    EXPECT_EQ(&desk.session(), before);
    EXPECT_EQ(project(), "3-fire-wall");
    EXPECT_TRUE(v().outputActive);
    EXPECT_TRUE(v().A.timer1.enabled());
    EXPECT_FALSE(desk.session().changed());
  }
}

TEST_F(Shows, AShowWithoutAGridPlaysOnTheDefaultOneAndSaysSo) {
  open(write("bare.Korvane", bytesOf(examples[0].path)));
  EXPECT_EQ(project(), "bare");
  EXPECT_EQ(v().matrixCols, 12);
  EXPECT_EQ(platform.boxes,
            std::vector<std::string>{"There is no grid file " +
                                     folder.filePath("bare.korvaneconf").toStdString() +
                                     ". The show plays on 12 x 12 lamps."});
}

TEST_F(Shows, ChangesAreNotLostOnTheWay) {
  renameFade("gone with the show");
  answer(QMessageBox::Cancel);
  press("Club night");
  EXPECT_EQ(question, "mine was changed since it was opened or saved.");
  EXPECT_EQ(project(), "mine");
  answer(QMessageBox::Discard);
  press("Club night");
  EXPECT_EQ(project(), "1-club-night");
}

TEST_F(Shows, SavingThemIsTheToolsOwnSave) {
  renameFade("kept");
  const QString path = folder.filePath("kept.Korvane");
  answer(QMessageBox::Save);
  platform.answers = {std::nullopt};
  press("Club night");
  EXPECT_EQ(project(), "mine") << "a cancelled dialog cancels the opening";
  answer(QMessageBox::Save);
  platform.answers = {path.toStdString()};
  press("Club night");
  EXPECT_EQ(project(), "1-club-night");
  EXPECT_EQ(platform.questions.back().title, "Save Matrix Project ...");
  EXPECT_TRUE(bytesOf(path).contains("\nkept\r"));
}

TEST_F(Shows, WhatWasSavedIsNotAskedAbout) {
  renameFade("kept");
  EXPECT_TRUE(desk.session().changed());
  save(folder.filePath("kept.Korvane"));
  EXPECT_FALSE(desk.session().changed());
  renameFade("other");
  EXPECT_TRUE(desk.session().changed());
  platform.answers = {folder.filePath("kept.Korvane").toStdString()};
  desk.session().gate.run([this] { plugin().matrixForm.load.click(); });
  EXPECT_FALSE(desk.session().changed()) << "loaded anew";
}

TEST_F(Shows, ANewProjectCanBeSavedAsItStands) {
  save(folder.filePath("new.Korvane"));
  open(folder.filePath("new.Korvane"));
  EXPECT_EQ(project(), "new");
  EXPECT_TRUE(platform.failures.empty());
}

TEST_F(Shows, AnEffectWithoutItsPictureIsToldAndTheShowOpens) {
  write("bare.korvaneconf", bytesOf(QString(examples[3].path).replace("Korvane", "korvaneconf")));
  open(write("bare.Korvane", bytesOf(examples[3].path)));
  EXPECT_EQ(project(), "bare");
  EXPECT_FALSE(platform.boxes.empty());
}

TEST_F(Shows, AnotherGridIsAChangeToo) {
  MatrixConf& conf = plugin().matrixConf;
  press("Configure");
  EXPECT_FALSE(desk.session().changed());
  desk.session().gate.run([&conf] { conf.ncol.setIndex(4); });
  EXPECT_TRUE(desk.session().changed());
  answer(QMessageBox::Save);
  platform.answers = {folder.filePath("mine.korvaneconf").toStdString()};
  desk.close();
  EXPECT_EQ(platform.questions.back().title, "Save Configuration ...");
  EXPECT_TRUE(bytesOf(folder.filePath("mine.korvaneconf")).contains("\n5,12,"));
  EXPECT_FALSE(desk.isVisible());
}

TEST_F(Shows, ClosingTheDeskAsksAsWell) {
  desk.session().gate.run([this] { plugin().matrixForm.panelA.add.click(); });
  answer(QMessageBox::Cancel);
  desk.close();
  EXPECT_TRUE(desk.isVisible());
  answer(QMessageBox::Save);
  platform.answers = {std::nullopt};
  desk.close();
  EXPECT_TRUE(desk.isVisible()) << "a cancelled dialog cancels the closing";
  answer(QMessageBox::Discard);
  desk.close();
  EXPECT_FALSE(desk.isVisible());
}

}  // namespace
}  // namespace korvane
