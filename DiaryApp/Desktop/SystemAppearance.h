// How the desktop wants applications to look: dark or light, and still or moving. It is asked over
// the session bus without waiting, and followed while the application runs; where it doesn't
// answer, nothing is known. Main thread only.
#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <functional>
#include <memory>
#include <optional>

class QDBusVariant;

namespace velmar {

class SettingsPortal;

class SystemAppearance : public QObject {
    Q_OBJECT

public:
    explicit SystemAppearance(QObject* parent = nullptr);
    ~SystemAppearance() override;

    // Asks, and follows what changes from then on. Returns before any answer.
    void start(const QDBusConnection& bus = QDBusConnection::sessionBus());

    // Absent until the desktop has said one or the other. "No preference" says neither, unless a
    // preference was heard before: then it is how the desktop calls a return to light.
    [[nodiscard]] std::optional<bool> isDark() const { return m_isDark; }

    // Whether the desktop has switched animations off; absent until it has said so or not.
    [[nodiscard]] std::optional<bool> isMotionReduced() const { return m_isMotionReduced; }

    // One of the answers above is another one now.
    std::function<void()> onChanged;

private:
    void settingChanged(const QString& area, const QString& key, const QDBusVariant& value);
    void take(const QString& key, const QVariant& value);

    std::unique_ptr<SettingsPortal> m_portal;
    std::optional<bool> m_isDark;
    std::optional<bool> m_isMotionReduced;
};

}  // namespace velmar
