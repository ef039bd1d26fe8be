// The desktop's settings as any desktop offers them on the session bus. The signal comes from the
// bus; Qt relays it by its name.
#pragma once

#include <QtDBus/QDBusAbstractInterface>
#include <QtDBus/QDBusVariant>
#include <functional>

namespace velmar {

class SettingsPortal : public QDBusAbstractInterface {
    Q_OBJECT

public:
    explicit SettingsPortal(const QDBusConnection& bus, QObject* parent = nullptr);

    // Asks for one setting and returns at once. `then` gets its value once the desktop answers; it
    // isn't called where there is no bus, no portal, or no such setting, nor after this object's
    // end.
    void read(const QString& area, const QString& key, std::function<void(const QVariant&)> then);

    // The value inside of variants that hold variants: portals before version 2 wrap it twice.
    [[nodiscard]] static QVariant unwrapped(QVariant value);

Q_SIGNALS:
    // Named as it is on the bus.
    // NOLINTNEXTLINE(readability-identifier-naming)
    void SettingChanged(const QString& area, const QString& key, const QDBusVariant& value);

private:
    void call(const QString& method, const QList<QVariant>& arguments,
              std::function<void(const QVariant&)> then, std::function<void()> otherwise);
};

}  // namespace velmar
