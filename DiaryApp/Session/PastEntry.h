// A year of the day in view, other than the current one, that has text.
#pragma once

#include <QtCore/QString>

namespace velmar {

struct PastEntry {
    int year = 0;
    QString body;

    bool operator==(const PastEntry&) const = default;
};

}  // namespace velmar
