#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <functional>

#include "views/qt/windows/Theme.h"

namespace korvane::qt {

/// Whether the person wants light or dark programs, as the system's settings tell all of them over
/// the bus of the session. Dark as long as they say nothing. [window thread]
class SystemShade : public QObject {
  Q_OBJECT

 public:
  explicit SystemShade(const QDBusConnection& bus);

  /// The bus of this session; one that isn't connected where there is none. None is started.
  static QDBusConnection sessionBus();

  Shade shade() const { return shade_; }
  std::function<void()> onChange;

 private Q_SLOTS:
  void settingChanged(const QDBusMessage& signal);

 private:  // NOLINT(readability-redundant-access-specifiers): no slots
  void take(const QVariant& value);

  QDBusConnection bus_;
  Shade shade_ = Shade::Dark;
};

}  // namespace korvane::qt
