#include "DiaryApp/Desktop/SystemAppearance.h"

#include <array>
#include <utility>

#include "DiaryApp/Desktop/SettingsPortal.h"

namespace velmar {

namespace {

struct Setting {
    QLatin1String area;
    QLatin1String key;
};

constexpr Setting kColorScheme = {QLatin1String("org.freedesktop.appearance"),
                                  QLatin1String("color-scheme")};
constexpr Setting kAnimations = {QLatin1String("org.gnome.desktop.interface"),
                                 QLatin1String("enable-animations")};
constexpr std::array kSettings = {kColorScheme, kAnimations};

constexpr uint kPrefersDark = 1;
constexpr uint kPrefersLight = 2;

// Unknown numbers are to be read as no preference.
std::optional<bool> isDarkBy(uint colorScheme, std::optional<bool> before) {
    if (colorScheme == kPrefersDark) return true;
    if (colorScheme == kPrefersLight) return false;
    return before ? std::optional(false) : std::nullopt;
}

}  // namespace

SystemAppearance::SystemAppearance(QObject* parent) : QObject(parent) {}

SystemAppearance::~SystemAppearance() = default;

void SystemAppearance::start(const QDBusConnection& bus) {
    if (!bus.isConnected()) return;
    m_portal = std::make_unique<SettingsPortal>(bus);
    // First the changes, then the question, so that nothing falls between the two.
    connect(m_portal.get(), &SettingsPortal::SettingChanged, this,
            &SystemAppearance::settingChanged);
    for (const Setting& each : kSettings) {
        m_portal->read(each.area, each.key,
                       [this, key = each.key](const QVariant& value) { take(key, value); });
    }
}

void SystemAppearance::settingChanged(const QString& area, const QString& key,
                                      const QDBusVariant& value) {
    for (const Setting& each : kSettings) {
        if (each.area == area && each.key == key) {
            take(key, SettingsPortal::unwrapped(value.variant()));
        }
    }
}

void SystemAppearance::take(const QString& key, const QVariant& value) {
    const auto before = std::pair(m_isDark, m_isMotionReduced);
    if (key == kColorScheme.key) {
        bool isNumber = false;
        const uint scheme = value.toUInt(&isNumber);
        if (isNumber) m_isDark = isDarkBy(scheme, m_isDark);
    } else if (value.typeId() == QMetaType::Bool) {
        m_isMotionReduced = !value.toBool();
    }
    if (before != std::pair(m_isDark, m_isMotionReduced) && onChanged) onChanged();
}

}  // namespace velmar
