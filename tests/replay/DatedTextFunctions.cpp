// Date lines, and the text that is cut at them.
#include <QtCore/QJsonObject>

#include "DiaryKit/DatedText/DateLine.h"
#include "tests/replay/Replay.h"

namespace diary::replay {

namespace {

QString text(const QJsonObject& in, const char* key) {
    return in[QLatin1String(key)].toString();
}

QJsonObject json(const ImportedEntry::Time& time) {
    return {{QStringLiteral("hour"), time.hour}, {QStringLiteral("minute"), time.minute}};
}

QJsonValue dateLine(const QJsonObject& in) {
    const std::optional<DateLine::Match> match = DateLine::match(text(in, "line"));
    if (!match) return QJsonObject{{QStringLiteral("match"), QJsonValue()}};
    return QJsonObject{
        {QStringLiteral("match"),
         QJsonObject{{QStringLiteral("year"), match->year ? QJsonValue(*match->year) : QJsonValue()},
                     {QStringLiteral("month"), match->month},
                     {QStringLiteral("day"), match->day},
                     {QStringLiteral("time"), match->time ? json(*match->time) : QJsonValue()},
                     {QStringLiteral("rest"), match->rest},
                     {QStringLiteral("isAmbiguousOrder"), match->isAmbiguousOrder}}}};
}

QJsonValue clockTime(const QJsonObject& in) {
    return json(DateLine::clockTime(in[QLatin1String("hour")].toInt(),
                                    in[QLatin1String("minute")].toInt(), text(in, "marker")));
}

}  // namespace

void addDatedTextFunctions(Table& table) {
    table[QStringLiteral("dateLine")] = dateLine;
    table[QStringLiteral("clockTime")] = clockTime;
}

}  // namespace diary::replay
