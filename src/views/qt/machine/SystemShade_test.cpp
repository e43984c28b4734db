#include "views/qt/machine/SystemShade.h"

#include <gtest/gtest.h>

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTest>

namespace korvane::qt {
namespace {

constexpr const char* kPath = "/org/freedesktop/portal/desktop";
constexpr const char* kInterface = "org.freedesktop.portal.Settings";
constexpr unsigned kDark = 1;
constexpr unsigned kLight = 2;

/// The settings of a desktop, as they stand on the bus of a session.
class Settings : public QDBusVirtualObject {
 public:
  explicit Settings(unsigned scheme) : scheme_(scheme) {}

  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    if (message.member() != "Read" || message.interface() != kInterface) return false;
    const QVariant value = QVariant::fromValue(QDBusVariant(scheme_));
    return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(value))));
  }

 private:
  unsigned scheme_;
};

/// A bus of the test's own.
class SystemShadeTest : public testing::Test {
 protected:
  void SetUp() override {
    daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
    if (!daemon.waitForStarted()) GTEST_SKIP() << "there is no dbus-daemon";
    ASSERT_TRUE(daemon.waitForReadyRead());
    address = QString::fromUtf8(daemon.readLine().trimmed());
    ASSERT_TRUE(bus("desktop").registerService("org.freedesktop.portal.Desktop"));
  }
  void TearDown() override {
    for (const char* name : {"desktop", "program"}) QDBusConnection::disconnectFromBus(name);
    daemon.terminate();
    daemon.waitForFinished();
  }

  QDBusConnection bus(const char* name) const {
    return QDBusConnection::connectToBus(address, name);
  }
  void tell(const char* key, unsigned scheme) const {
    QDBusMessage signal = QDBusMessage::createSignal(kPath, kInterface, "SettingChanged");
    signal << QString("org.freedesktop.appearance") << QString(key)
           << QVariant::fromValue(QDBusVariant(scheme));
    bus("desktop").send(signal);
  }

  QProcess daemon;
  QString address;
};

TEST_F(SystemShadeTest, FollowsWhatTheSystemSays) {
  Settings settings(kLight);
  ASSERT_TRUE(bus("desktop").registerVirtualObject(kPath, &settings));
  SystemShade system(bus("program"));
  EXPECT_EQ(system.shade(), Shade::Dark) << "nobody waits for the answer";
  EXPECT_TRUE(QTest::qWaitFor([&] { return system.shade() == Shade::Light; }));
  int changes = 0;
  system.onChange = [&changes] { ++changes; };
  tell("color-scheme", kDark);
  EXPECT_TRUE(QTest::qWaitFor([&] { return system.shade() == Shade::Dark; }));
  tell("accent-color", kLight);
  tell("color-scheme", kLight);
  EXPECT_TRUE(QTest::qWaitFor([&] { return system.shade() == Shade::Light; }));
  EXPECT_EQ(changes, 2);
}

TEST_F(SystemShadeTest, IsDarkWhereTheSystemSaysNothing) {
  SystemShade system(bus("program"));
  QTest::qWait(100);
  EXPECT_EQ(system.shade(), Shade::Dark);
  SystemShade alone(QDBusConnection("no such bus"));
  EXPECT_EQ(alone.shade(), Shade::Dark);
}

}  // namespace
}  // namespace korvane::qt
