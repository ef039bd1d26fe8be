// Date lines, and the text that is cut at them.
#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>

#include "DiaryKit/DatedText/DateLine.h"
#include "DiaryKit/DatedText/DatedTextSplit.h"
#include "DiaryKit/FolderSources/DatedTextSource.h"
#include "tests/replay/CaseFiles.h"
#include "tests/replay/ImportShapes.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

QJsonObject hourAndMinute(const ImportedEntry::Time& time) {
    return {{QStringLiteral("hour"), time.hour}, {QStringLiteral("minute"), time.minute}};
}

QJsonValue dateLine(const QJsonObject& in) {
    const std::optional<DateLine::Match> match = DateLine::match(text(in, "line"));
    if (!match) return QJsonObject{{QStringLiteral("match"), QJsonValue()}};
    return QJsonObject{
        {QStringLiteral("match"),
         QJsonObject{
             {QStringLiteral("year"), match->year ? QJsonValue(*match->year) : QJsonValue()},
             {QStringLiteral("month"), match->month},
             {QStringLiteral("day"), match->day},
             {QStringLiteral("time"), match->time ? hourAndMinute(*match->time) : QJsonValue()},
             {QStringLiteral("rest"), match->rest},
             {QStringLiteral("isAmbiguousOrder"), match->isAmbiguousOrder}}}};
}

QJsonValue clockTime(const QJsonObject& in) {
    return hourAndMinute(DateLine::clockTime(in[QLatin1String("hour")].toInt(),
                                             in[QLatin1String("minute")].toInt(),
                                             text(in, "marker")));
}

QJsonValue orNull(const std::optional<QString>& text) {
    return text ? QJsonValue(*text) : QJsonValue();
}

QJsonValue swappedOrderEvidence(const QJsonObject& in) {
    const std::optional<bool> dayFirst = DatedTextSplit::swappedOrderEvidence(text(in, "line"));
    return QJsonObject{
        {QStringLiteral("dayFirst"), dayFirst ? QJsonValue(*dayFirst) : QJsonValue()}};
}

QJsonValue splitWeather(const QJsonObject& in) {
    const DatedTextSplit::WeatherAndTitle found = DatedTextSplit::splitWeather(text(in, "text"));
    return QJsonObject{{QStringLiteral("weather"), orNull(found.weather)},
                       {QStringLiteral("title"), orNull(found.title)}};
}

QJsonValue datedTextSplit(const QJsonObject& in) {
    const DatedTextSplit::Options options = splitOptions(in[QLatin1String("options")].toObject());
    const ImportBatch batch = DatedTextSplit::split(text(in, "text"), text(in, "name"), options);
    return QJsonObject{{QStringLiteral("batch"), json(batch)}};
}

QJsonValue pdfPages(const QJsonObject& in) {
    QStringList pages;
    const QJsonArray texts = in[QLatin1String("pages")].toArray();
    for (const auto& page : texts) pages << page.toString();
    return QJsonObject{{QStringLiteral("text"), DatedTextSource::pdfText(pages)}};
}

}  // namespace

void addDatedTextFunctions(Table& table) {
    table[QStringLiteral("dateLine")] = dateLine;
    table[QStringLiteral("clockTime")] = clockTime;
    table[QStringLiteral("swappedOrderEvidence")] = swappedOrderEvidence;
    table[QStringLiteral("splitWeather")] = splitWeather;
    table[QStringLiteral("datedTextSplit")] = datedTextSplit;
    table[QStringLiteral("pdfPages")] = pdfPages;
}

}  // namespace diary::replay
