#include "views/qt/machine/SystemShade.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QFile>

namespace korvane::qt {
namespace {

constexpr const char* kService = "org.freedesktop.portal.Desktop";
constexpr const char* kPath = "/org/freedesktop/portal/desktop";
constexpr const char* kInterface = "org.freedesktop.portal.Settings";
constexpr const char* kGroup = "org.freedesktop.appearance";
constexpr const char* kKey = "color-scheme";
constexpr unsigned kPreferLight = 2;

// Some systems answer with a value within a value.
QVariant inner(const QVariant& value) {
  return value.canConvert<QDBusVariant>() ? inner(value.value<QDBusVariant>().variant()) : value;
}

}  // namespace

QDBusConnection SystemShade::sessionBus() {
  const bool there = qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
                     QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
  return there ? QDBusConnection::sessionBus() : QDBusConnection("none");
}

// The answer is not waited for: a system that is slow to tell must not hold up a show.
SystemShade::SystemShade(const QDBusConnection& bus) : bus_(bus) {
  if (!bus_.isConnected()) return;
  bus_.connect(kService, kPath, kInterface, "SettingChanged", this,
               SLOT(settingChanged(QDBusMessage)));
  QDBusMessage question = QDBusMessage::createMethodCall(kService, kPath, kInterface, "Read");
  question << QString(kGroup) << QString(kKey);
  auto* answer = new QDBusPendingCallWatcher(bus_.asyncCall(question), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
    const QDBusPendingReply<QDBusVariant> reply = *answer;
    if (reply.isValid()) take(reply.value().variant());
    answer->deleteLater();
  });
}

// The setting's group, its name and its value.
void SystemShade::settingChanged(const QDBusMessage& signal) {
  const QList<QVariant> parts = signal.arguments();
  if (parts.size() == 3 && parts[0] == kGroup && parts[1] == kKey) take(parts[2]);
}

void SystemShade::take(const QVariant& value) {
  const Shade told = inner(value).toUInt() == kPreferLight ? Shade::Light : Shade::Dark;
  if (told == shade_) return;
  shade_ = told;
  if (onChange) onChange();
}

}  // namespace korvane::qt
