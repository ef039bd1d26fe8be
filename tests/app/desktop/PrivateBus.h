// A session bus of the test's own, with nobody on it but who the test puts there.
#pragma once

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusConnection>

namespace velmar::test {

class PrivateBus {
public:
    PrivateBus() {
        const QString config = m_folder.filePath(QStringLiteral("bus.conf"));
        QFile file(config);
        if (!file.open(QIODevice::WriteOnly)) return;
        file.write(
            "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
            " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
            "<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen>\n"
            "<auth>EXTERNAL</auth><policy context=\"default\"><allow send_destination=\"*\"/>\n"
            "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>\n");
        file.close();
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                        QStringLiteral("--config-file=") + config});
        if (m_daemon.waitForStarted() && m_daemon.waitForReadyRead()) {
            m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
        }
    }
    ~PrivateBus() {
        for (const QString& name : m_names) QDBusConnection::disconnectFromBus(name);
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    // False where the daemon isn't installed.
    [[nodiscard]] bool isThere() const { return !m_address.isEmpty(); }
    [[nodiscard]] QString complaint() { return QString::fromUtf8(m_daemon.readAllStandardError()); }

    // Another connection at each call.
    [[nodiscard]] QDBusConnection connection() {
        static int number = 0;
        m_names += QStringLiteral("private-%1").arg(++number);
        return QDBusConnection::connectToBus(m_address, m_names.last());
    }

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QStringList m_names;
};

}  // namespace velmar::test
