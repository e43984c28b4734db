#include "views/qt/machine/SystemShade.h"

#include <gtest/gtest.h>

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTest>

namespace korvane::qt {
namespace {

constexpr const char* kPath = "/org/freedesktop/portal/desktop";
constexpr const char* kInterface = "org.freedesktop.portal.Settings";
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
  QProcess daemon;
  QString address;
};

TEST_F(SystemShadeTest, IsWhatTheSystemSays) {
  Settings settings(kLight);
  ASSERT_TRUE(bus("desktop").registerVirtualObject(kPath, &settings));
  SystemShade system(bus("program"));
  EXPECT_EQ(system.shade(), Shade::Dark) << "nobody waits for the answer";
  EXPECT_TRUE(QTest::qWaitFor([&] { return system.shade() == Shade::Light; }));
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
