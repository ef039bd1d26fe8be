// Queries, matches and whole searches in their JSON shapes.
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QTemporaryDir>

#include "DiaryKit/Search/SearchMatch.h"
#include "DiaryKit/Search/VaultSearch.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

QString text(const QJsonObject& in, const char* key = "text") {
    return in[QLatin1String(key)].toString();
}

QStringList terms(const QJsonObject& in) {
    QStringList list;
    const QJsonArray values = in[QLatin1String("terms")].toArray();
    for (const auto& value : values) list << value.toString();
    return list;
}

QJsonValue json(const MonthDay& day) {
    return QJsonObject{{QStringLiteral("month"), day.month}, {QStringLiteral("day"), day.day}};
}

QJsonValue json(const std::optional<int>& value) {
    return value ? QJsonValue(*value) : QJsonValue(QJsonValue::Null);
}

QJsonArray json(const std::vector<TextRange>& ranges) {
    QJsonArray out;
    for (const TextRange& range : ranges) out.append(QJsonArray{range.location, range.length});
    return out;
}

QJsonValue json(const SearchHit& hit) {
    return QJsonObject{{QStringLiteral("monthDay"), json(hit.monthDay)},
                       {QStringLiteral("year"), hit.year},
                       {QStringLiteral("snippet"), hit.snippet},
                       {QStringLiteral("snippetRanges"), json(hit.snippetRanges)},
                       {QStringLiteral("ranges"), json(hit.ranges)},
                       {QStringLiteral("matchCount"), hit.matchCount()}};
}

QJsonValue parse(const QJsonObject& in) {
    const SearchQuery query = SearchQuery::parsing(text(in));
    const QJsonValue monthDay = query.monthDay ? json(*query.monthDay) : QJsonValue();
    return QJsonObject{{QStringLiteral("terms"), QJsonArray::fromStringList(query.terms)},
                       {QStringLiteral("year"), json(query.year)},
                       {QStringLiteral("month"), json(query.month)},
                       {QStringLiteral("monthDay"), monthDay},
                       {QStringLiteral("isEmpty"), query.isEmpty()},
                       {QStringLiteral("isDateOnly"), query.isDateOnly()}};
}

QJsonValue ranges(const QJsonObject& in) {
    const auto found = matchRanges(terms(in), text(in));
    return found ? QJsonValue(json(*found)) : QJsonValue(QJsonValue::Null);
}

QJsonValue shown(const QJsonObject& in) {
    const QJsonArray range = in[QLatin1String("range")].toArray();
    std::optional<TextRange> around;
    if (!range.isEmpty()) around = TextRange{range[0].toInt(), range[1].toInt()};
    const SearchSnippet made = snippet(text(in), terms(in), around);
    return QJsonObject{{QStringLiteral("snippet"), made.text},
                       {QStringLiteral("ranges"), json(made.ranges)}};
}

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("can't write %s", qPrintable(path));
    }
}

QJsonValue search(const QJsonObject& in) {
    const QTemporaryDir folder;
    const QJsonObject files = in[QLatin1String("files")].toObject();
    for (auto file = files.begin(); file != files.end(); ++file) {
        write(folder.filePath(file.key()), file->toString().toUtf8());
    }
    const QJsonArray pending = in[QLatin1String("pending")].toArray();
    for (const auto& name : pending) {
        write(folder.filePath(QStringLiteral(".%1.icloud").arg(name.toString())), "");
    }
    const SearchResult result = searchVault(folder.path(), SearchQuery::parsing(text(in, "query")),
                                            in[QLatin1String("limit")].toInt(), DownloadService());
    QJsonArray hits;
    for (const SearchHit& hit : result.hits) hits.append(json(hit));
    return QJsonObject{{QStringLiteral("hits"), hits},
                       {QStringLiteral("pendingDownloads"), result.pendingDownloads},
                       {QStringLiteral("truncated"), result.truncated}};
}

}  // namespace

void addSearchFunctions(Table& table) {
    table[QStringLiteral("SearchQuery.parse")] = parse;
    table[QStringLiteral("DiaryStore.matchRanges")] = ranges;
    table[QStringLiteral("DiaryStore.snippet")] = shown;
    table[QStringLiteral("DiaryStore.search")] = search;
}

}  // namespace diary::replay
