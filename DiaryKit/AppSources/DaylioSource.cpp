#include "DiaryKit/AppSources/DaylioSource.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "DiaryKit/AppSources/CSV.h"
#include "DiaryKit/AppSources/DaylioEntry.h"
#include "DiaryKit/DatedText/DateLine.h"
#include "DiaryKit/Foundation/LineEnds.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/ImportError.h"

namespace diary::DaylioSource {

namespace {

// The columns that matter.
enum class Column : std::size_t { FullDate, Year, Date, Time, Mood, Activities, NoteTitle, Note };

constexpr std::array<QLatin1String, 8> kColumnNames = {
    QLatin1String("full_date"),  QLatin1String("year"), QLatin1String("date"),
    QLatin1String("time"),       QLatin1String("mood"), QLatin1String("activities"),
    QLatin1String("note_title"), QLatin1String("note")};

bool isLineEnd(QChar unit) {
    return unit == u'\n' || unit == u'\r';
}

// The first line that isn't empty.
QStringView headerLine(QStringView text) {
    const auto* const start = std::find_if_not(text.begin(), text.end(), isLineEnd);
    const auto* const end = std::find_if(start, text.end(), isLineEnd);
    return {start, end};
}

// Where the columns stand, and what a row holds in them: a row may be as long as the file.
class Table {
public:
    // Reads the names of the columns.
    explicit Table(QStringView text) : m_reader(text) {
        m_places.fill(-1);
        eachCellOfRow([this](qsizetype place) {
            const QStringView name = text::trimmedOfBlanks(m_reader.cell());
            for (std::size_t column = 0; column < kColumnNames.size(); ++column) {
                if (m_places[column] < 0 && isNamed(name, kColumnNames[column])) {
                    m_places[column] = place;
                }
            }
        });
    }

    [[nodiscard]] bool has(Column column) const { return placeOf(column) >= 0; }

    // Goes to the next row; false behind the last one.
    [[nodiscard]] bool next() {
        for (QString& value : m_values) value.clear();
        return eachCellOfRow([this](qsizetype place) {
            for (std::size_t column = 0; column < m_places.size(); ++column) {
                if (m_places[column] == place) {
                    m_values[column] = text::trimmed(m_reader.cell()).toString();
                }
            }
        });
    }

    // The trimmed cell of the row; empty where the column or the cell is missing.
    [[nodiscard]] const QString& value(Column column) const {
        return m_values[static_cast<std::size_t>(column)];
    }

private:
    static bool isNamed(QStringView cell, QLatin1String name) {
        return cell.size() == name.size() && cell.toString().toLower() == name;
    }

    [[nodiscard]] qsizetype placeOf(Column column) const {
        return m_places[static_cast<std::size_t>(column)];
    }

    // Calls `visit(place)` at each cell of the row that comes next; false if there is no row.
    template <typename Visit>
    bool eachCellOfRow(Visit visit) {
        for (qsizetype place = 0; m_reader.next(); ++place) {
            visit(place);
            if (m_reader.endsRow()) return true;
        }
        return false;
    }

    CSV::Reader m_reader;
    std::array<qsizetype, kColumnNames.size()> m_places = {};
    std::array<QString, kColumnNames.size()> m_values = {};
};

// Older exports have a year and "March 4", newer ones the full date beside them.
std::optional<DiaryDay> dayOfRow(const Table& table) {
    const QString& fullDate = table.value(Column::FullDate);
    const QString& year = table.value(Column::Year);
    const QString& date = table.value(Column::Date);
    if (auto found = DateLine::day(fullDate.isEmpty() ? year + u' ' + date : fullDate)) {
        return found;
    }
    return DateLine::day(date + u' ' + year);
}

std::optional<ImportedEntry::Time> timeOfRow(const Table& table) {
    const QString& clock = table.value(Column::Time);
    if (clock.isEmpty()) return std::nullopt;
    // A date line knows all forms of a clock; any date will do.
    const auto match = DateLine::match(QString(QLatin1String("2000-01-01 ") + clock));
    return match ? match->time : std::nullopt;
}

QStringList activitiesOfRow(const Table& table) {
    QStringList activities;
    for (const QStringView part : QStringView(table.value(Column::Activities)).split(u" | ")) {
        const QStringView activity = text::trimmedOfBlanks(part);
        if (!activity.isEmpty()) activities.append(activity.toString());
    }
    return activities;
}

}  // namespace

bool isCSV(QStringView text) {
    const QStringView line = headerLine(text);
    const auto has = [&](QLatin1String name) { return line.contains(name, Qt::CaseInsensitive); };
    return has(QLatin1String("mood")) &&
           (has(QLatin1String("full_date")) || has(QLatin1String("weekday")));
}

ImportBatch readCSV(QStringView text, const QString& name, const Moods& moods) {
    Table table(text);
    if (!table.has(Column::Mood)) throw ImportError(ImportError::Kind::unrecognized);
    ImportBatch batch{.source = ImportSource::daylio, .name = name};
    while (table.next()) {
        const std::optional<DiaryDay> found = dayOfRow(table);
        if (!found) {
            ++batch.skipped.undated;
            continue;
        }
        batch.entries.push_back(entry({.day = *found,
                                       .time = timeOfRow(table),
                                       .mood = labelled(table.value(Column::Mood), moods),
                                       .activities = activitiesOfRow(table),
                                       .title = table.value(Column::NoteTitle),
                                       .note = table.value(Column::Note)}));
    }
    return batch;
}

ImportedEntry entry(EntryParts&& parts) {
    const QLatin1String strong("**");
    if (!parts.mood.isEmpty()) parts.activities.prepend(strong + parts.mood + strong);
    QString body = parts.activities.join(QStringView(u" · "));
    const QString note = text::withoutCarriageReturnPairs(std::move(parts.note));
    if (!body.isEmpty() && !note.isEmpty()) body += QLatin1String("\n\n");
    // Growing by itself, a long text takes twice the memory that it needs.
    body.reserve(body.size() + note.size());
    body += note;

    ImportedEntry made{.day = parts.day, .time = parts.time, .body = std::move(body)};
    if (!parts.title.isEmpty()) made.title = std::move(parts.title);
    return made;
}

QString labelled(const QString& mood, const Moods& moods) {
    const auto label = moods.constFind(mood.toLower());
    return label == moods.constEnd() ? mood : *label;
}

}  // namespace diary::DaylioSource
