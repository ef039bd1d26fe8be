// What both of Daylio's exports come to; a part of DaylioSource.
#pragma once

#include <QtCore/QStringList>

#include "DiaryKit/AppSources/DaylioSource.h"

namespace diary::DaylioSource {

struct EntryParts {
    DiaryDay day;
    std::optional<ImportedEntry::Time> time;
    // Empty for none.
    QString mood;
    QStringList activities;
    QString title;
    // Markdown.
    QString note;
};

[[nodiscard]] ImportedEntry entry(EntryParts&& parts);

// The user's name for the mood; the mood itself without one.
[[nodiscard]] QString labelled(const QString& mood, const Moods& moods);

}  // namespace diary::DaylioSource
