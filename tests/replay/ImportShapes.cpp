#include "tests/replay/ImportShapes.h"

#include <QtCore/QJsonArray>

namespace diary::replay {

namespace {

template <typename Value>
QJsonValue orNull(const std::optional<Value>& value) {
    return value ? QJsonValue(*value) : QJsonValue(QJsonValue::Null);
}

QJsonObject json(const ImportBatch::Skipped& skipped) {
    return {{QStringLiteral("photos"), skipped.photos},
            {QStringLiteral("videos"), skipped.videos},
            {QStringLiteral("audios"), skipped.audios},
            {QStringLiteral("attachments"), skipped.attachments},
            {QStringLiteral("undated"), skipped.undated},
            {QStringLiteral("otherNotes"), skipped.otherNotes}};
}

QJsonValue json(const std::optional<DatedTextSplit::Summary>& split) {
    if (!split) return QJsonValue::Null;
    const bool isAnyLine = split->placement == DatedTextSplit::Placement::anyLine;
    return QJsonObject{
        {QStringLiteral("placement"),
         isAnyLine ? QStringLiteral("anyLine") : QStringLiteral("paragraphStart")},
        {QStringLiteral("paragraphStartCount"), split->paragraphStartCount},
        {QStringLiteral("anyLineCount"), split->anyLineCount},
        {QStringLiteral("sampleLine"), orNull(split->sampleLine)},
        {QStringLiteral("inlineDates"), QJsonArray::fromStringList(split->inlineDates)},
        {QStringLiteral("orderUnsettled"), split->orderUnsettled},
        {QStringLiteral("dayFirst"), split->dayFirst},
        {QStringLiteral("unknownYear"), split->unknownYear}};
}

}  // namespace

QJsonObject json(const ImportedEntry& entry) {
    QJsonValue time = QJsonValue::Null;
    if (entry.time) {
        time = QJsonObject{{QStringLiteral("hour"), entry.time->hour},
                           {QStringLiteral("minute"), entry.time->minute}};
    }
    return {{QStringLiteral("day"), QJsonObject{{QStringLiteral("year"), entry.day.year},
                                                {QStringLiteral("month"), entry.day.month},
                                                {QStringLiteral("day"), entry.day.day}}},
            {QStringLiteral("time"), time},
            {QStringLiteral("title"), orNull(entry.title)},
            {QStringLiteral("body"), entry.body},
            {QStringLiteral("place"), orNull(entry.place)},
            {QStringLiteral("weather"), orNull(entry.weather)},
            {QStringLiteral("mood"), orNull(entry.mood)},
            {QStringLiteral("tags"), QJsonArray::fromStringList(entry.tags)},
            {QStringLiteral("journal"), orNull(entry.journal)},
            {QStringLiteral("isVelmarSection"), entry.isVelmarSection}};
}

QJsonObject json(const ImportBatch& batch) {
    QJsonArray entries;
    for (const ImportedEntry& entry : batch.entries) entries.append(json(entry));
    QJsonArray journals;
    for (const ImportBatch::Journal& journal : batch.journals) {
        journals.append(QJsonObject{{QStringLiteral("name"), journal.name},
                                    {QStringLiteral("count"), journal.count}});
    }
    QJsonArray issues;
    for (const ImportIssue& issue : batch.issues) {
        issues.append(QJsonObject{{QStringLiteral("kind"), import_issue::spelling(issue.kind)},
                                  {QStringLiteral("file"), issue.file},
                                  {QStringLiteral("detail"), orNull(issue.detail)}});
    }
    return {{QStringLiteral("source"), import_source::spelling(batch.source)},
            {QStringLiteral("name"), batch.name},
            {QStringLiteral("entries"), entries},
            {QStringLiteral("skipped"), json(batch.skipped)},
            {QStringLiteral("journals"), journals},
            {QStringLiteral("issues"), issues},
            {QStringLiteral("split"), json(batch.split)},
            {QStringLiteral("reportURL"), orNull(batch.reportURL)}};
}

QString errorName(const ImportError& error) {
    switch (error.kind()) {
        case ImportError::Kind::unrecognized:
            return QStringLiteral("unrecognized");
        case ImportError::Kind::badArchive:
            return QStringLiteral("badArchive");
        case ImportError::Kind::empty:
            return QStringLiteral("empty");
        case ImportError::Kind::stalePlan:
            return QStringLiteral("stalePlan");
    }
    return {};
}

}  // namespace diary::replay
