#include "DiaryApp/Desktop/SettingsPortal.h"

#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>

namespace velmar {

SettingsPortal::SettingsPortal(const QDBusConnection& bus, QObject* parent)
    : QDBusAbstractInterface(QStringLiteral("org.freedesktop.portal.Desktop"),
                             QStringLiteral("/org/freedesktop/portal/desktop"),
                             "org.freedesktop.portal.Settings", bus, parent) {}

// "ReadOne" came with the interface's version 2; older portals know only "Read".
void SettingsPortal::read(const QString& area, const QString& key,
                          std::function<void(const QVariant&)> then) {
    const QList<QVariant> arguments = {area, key};
    call(QStringLiteral("ReadOne"), arguments, then,
         [this, arguments, then] { call(QStringLiteral("Read"), arguments, then, {}); });
}

void SettingsPortal::call(const QString& method, const QList<QVariant>& arguments,
                          std::function<void(const QVariant&)> then,
                          std::function<void()> otherwise) {
    auto* watcher = new QDBusPendingCallWatcher(asyncCallWithArgumentList(method, arguments), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [watcher, then = std::move(then), otherwise = std::move(otherwise)] {
                watcher->deleteLater();
                const QDBusPendingReply<QDBusVariant> reply = *watcher;
                if (reply.isValid()) {
                    then(unwrapped(reply.value().variant()));
                } else if (otherwise && reply.error().type() == QDBusError::UnknownMethod) {
                    otherwise();
                }
            });
}

QVariant SettingsPortal::unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    return value;
}

}  // namespace velmar
