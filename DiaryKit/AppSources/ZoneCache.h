// Zones by their names in an export: most entries name one of a few, and looking one up is slow.
#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QTimeZone>

#include "DiaryKit/Import/LocalTime.h"

namespace diary {

class ZoneCache {
public:
    // LocalTime::zone of the name. Valid until the next call.
    [[nodiscard]] const QTimeZone& named(const QString& name) {
        auto found = m_zones.find(name);
        if (found == m_zones.end()) found = m_zones.insert(name, LocalTime::zone(name));
        return *found;
    }

private:
    QHash<QString, QTimeZone> m_zones;
};

}  // namespace diary
