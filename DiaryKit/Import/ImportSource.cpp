#include "DiaryKit/Import/ImportSource.h"

namespace diary::import_source {

namespace {

struct Row {
    ImportSource source;
    QLatin1String spelling;
    QLatin1String brandName;
};

constexpr std::array<Row, all.size()> kRows = {
    {{ImportSource::dayOne, QLatin1String("dayOne"), QLatin1String("Day One")},
     {ImportSource::appleJournal, QLatin1String("appleJournal"), QLatin1String()},
     {ImportSource::flomo, QLatin1String("flomo"), QLatin1String("flomo")},
     {ImportSource::journey, QLatin1String("journey"), QLatin1String("Journey")},
     {ImportSource::daylio, QLatin1String("daylio"), QLatin1String("Daylio")},
     {ImportSource::markdownFolder, QLatin1String("markdownFolder"), QLatin1String()},
     {ImportSource::velmarFolder, QLatin1String("velmarFolder"), QLatin1String()},
     {ImportSource::datedText, QLatin1String("datedText"), QLatin1String()}}};

const Row& row(ImportSource source) {
    return kRows[static_cast<std::size_t>(source)];
}

}  // namespace

std::optional<ImportSource> parse(QStringView spelling) {
    for (const Row& one : kRows) {
        if (one.spelling == spelling) return one.source;
    }
    return std::nullopt;
}

QString spelling(ImportSource source) {
    return row(source).spelling;
}

std::optional<QString> brandName(ImportSource source) {
    const QLatin1String name = row(source).brandName;
    if (name.isEmpty()) return std::nullopt;
    return name;
}

}  // namespace diary::import_source
