#include "views/qt/machine/QtPlatform.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QTest>
#include <QTimer>

namespace korvane::qt {
namespace {

template <class Widget>
std::vector<Widget*> shown() {
  std::vector<Widget*> found;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    auto* one = qobject_cast<Widget*>(widget);
    if (one != nullptr && one->isVisible()) found.push_back(one);
  }
  return found;
}

TEST(NameFilter, JoinsTextsAndPatterns) {
  const std::pair<const char*, const char*> cases[] = {
      {"Matrix Project (*.Korvane)|*.Korvane", "Matrix Project (*.Korvane)"},
      {"Pictures|*.bmp;*.jpg;*.gif;*.ico", "Pictures (*.bmp *.jpg *.gif *.ico)"},
      {"A|*.a|B (*.b)|*.b", "A (*.a);;B (*.b)"},
      {"", ""},
  };
  for (const auto& [filter, expected] : cases) EXPECT_EQ(toNameFilter(filter), expected);
}

TEST(QtPlatform, AFailureShowsOneBoxAndCountsItsReturns) {
  QtPlatform platform;
  platform.failed(Failure(kOverflow));
  platform.failed(Failure(kOverflow));
  ASSERT_EQ(shown<QMessageBox>().size(), 1U);
  QMessageBox& box = *shown<QMessageBox>()[0];
  EXPECT_EQ(box.text().toStdString(), Failure(kOverflow).what());
  EXPECT_EQ(box.informativeText(), "2 times so far");
  EXPECT_FALSE(box.isModal()) << "the windows stay usable behind it";
  box.close();
  QTest::qWait(0);
  platform.failed(Failure(kDivisionByZero));
  ASSERT_EQ(shown<QMessageBox>().size(), 1U);
}

TEST(QtPlatform, ACancelledDialogIsNoMessage) {
  QtPlatform platform;
  platform.failed(Failure(kCancelled));
  EXPECT_TRUE(shown<QMessageBox>().empty());
}

TEST(QtPlatform, AMessageWaitsForItsOk) {
  QtPlatform platform;
  QString seen;
  QTimer::singleShot(0, [&seen] {
    for (QMessageBox* box : shown<QMessageBox>()) {
      seen = box->text();
      box->button(QMessageBox::Ok)->click();
    }
  });
  platform.messageBox("Blackout");
  EXPECT_EQ(seen, "Blackout");
}

TEST(QtPlatform, AMessageIsReadWhole) {
  QtPlatform platform;
  platform.failed(
      Failure(kTypeMismatch, "/some/folder/of/shows/summer tour.Korvane, line 7: 'A0'"));
  ASSERT_EQ(shown<QMessageBox>().size(), 1U);
  QMessageBox& box = *shown<QMessageBox>()[0];
  const auto* label = box.findChild<QLabel*>("qt_msgbox_label");
  ASSERT_NE(label, nullptr);
  const QRect room(0, 0, label->width(), 1000);
  const int flags = label->wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine;
  const QRect needed = label->fontMetrics().boundingRect(room, flags, label->text());
  EXPECT_LE(needed.width(), label->width());
  EXPECT_LE(needed.height(), label->height());
  box.close();
  QTest::qWait(0);
}

TEST(QtPlatform, AFileDialogAnswersThePathWithAnEnding) {
  struct Case {
    const char* extension;
    const char* typed;
    const char* answered;
  };
  const Case cases[] = {{"Korvane", "no-such-show", "no-such-show.Korvane"},
                        {"xml", "no-such-show", "no-such-show.xml"},
                        {"", "no-such-show", "no-such-show.Korvane"},
                        {"", "no-such.show", "no-such.show"}};
  QtPlatform platform;
  const QString folder = QDir::tempPath();
  for (const auto& [extension, typed, answered] : cases) {
    QTimer::singleShot(0, [name = typed] {
      for (QFileDialog* dialog : shown<QFileDialog>()) {
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(name);
        QMetaObject::invokeMethod(dialog, "accept");
      }
    });
    const auto path = platform.askFile({.purpose = FileQuestion::Purpose::Save,
                                        .title = "Save",
                                        .filter = "Show (*.Korvane)|*.Korvane",
                                        .initialDirectory = folder.toStdString(),
                                        .defaultExtension = extension});
    ASSERT_TRUE(path.has_value());
    EXPECT_EQ(*path, QDir(folder).filePath(answered).toStdString());
  }
}

TEST(QtPlatform, ACancelledFileDialogAnswersNothing) {
  QtPlatform platform;
  QTimer::singleShot(0, [] {
    for (QFileDialog* dialog : shown<QFileDialog>()) dialog->reject();
  });
  EXPECT_FALSE(platform.askFile({.title = "Load"}).has_value());
}

NumberFormat formatOf(const QLocale& locale) {
  const QLocale before;
  QLocale::setDefault(locale);
  const NumberFormat format = QtPlatform().numberFormat();
  QLocale::setDefault(before);
  return format;
}

TEST(QtPlatform, NumbersAreTheLocales) {
  struct Case {
    const char* locale;
    char decimal, thousands;
  };
  for (const Case& c : {Case{"en_US", '.', ','},
                        {"de_DE", ',', '.'},
                        {"de_CH", '.', '\''},
                        {"fr_FR", ',', ' '},
                        {"nb_NO", ',', ' '},
                        {"C", '.', ','}}) {
    const NumberFormat format = formatOf(QLocale(c.locale));
    EXPECT_EQ(format.decimal, c.decimal) << c.locale;
    EXPECT_EQ(format.thousands, c.thousands) << c.locale;
  }
}

TEST(QtPlatform, NumbersComeBackUnderEveryLocale) {
  for (const QLocale& locale :
       QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory)) {
    const NumberFormat format = formatOf(locale);
    for (const double value : {0.5, -1234.25, 1e-7}) {
      EXPECT_EQ(parseNumber(formatGeneral(value, format), format), value)
          << locale.name().toStdString();
      EXPECT_EQ(parseNumber(formatStandard(1234.5, format), format), 1234.5);
    }
  }
}

TEST(QtPlatform, TheTimeOfDayIsWithinADay) {
  QtPlatform platform;
  EXPECT_GE(platform.timeOfDay(), 0);
  EXPECT_LT(platform.timeOfDay(), 86'400'000);
}

}  // namespace
}  // namespace korvane::qt
