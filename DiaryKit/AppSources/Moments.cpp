#include "DiaryKit/AppSources/Moments.h"

#include <algorithm>
#include <cmath>

#include "DiaryKit/DatedText/LineCursor.h"

namespace diary {

namespace {

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

// Whether the text has the shape of the pattern, in which '0' stands for a digit.
bool hasShape(QStringView text, QStringView pattern) {
    return text.size() == pattern.size() &&
           std::equal(text.begin(), text.end(), pattern.begin(),
                      [](QChar c, QChar p) { return p == u'0' ? isDigit(c) : c == p; });
}

int number(QStringView digits) {
    return numberOf(digits).value_or(0);
}

// The seconds by which a zone is ahead of UTC.
std::optional<int> zoneOffset(QStringView zone) {
    if (zone == u"Z") return 0;
    if (!hasShape(zone, u"+00:00") && !hasShape(zone, u"-00:00")) return std::nullopt;
    const int hours = number(zone.sliced(1, 2));
    const int minutes = number(zone.sliced(4, 2));
    if (hours > 23 || minutes > 59) return std::nullopt;
    const int seconds = (hours * 60 + minutes) * 60;
    return zone.startsWith(u'-') ? -seconds : seconds;
}

// How many units of the text are a dot and digits, 0 if it doesn't begin with these.
qsizetype fractionLength(QStringView text) {
    if (!text.startsWith(u'.')) return 0;
    const auto* const end = std::find_if_not(text.begin() + 1, text.end(), isDigit);
    const qsizetype length = end - text.begin();
    return length > 1 ? length : 0;
}

}  // namespace

std::optional<QDateTime> isoMoment(QStringView text) {
    static constexpr QStringView kShape = u"0000-00-00T00:00:00";
    if (text.size() < kShape.size() || !hasShape(text.first(kShape.size()), kShape)) {
        return std::nullopt;
    }
    const QDate date(number(text.first(4)), number(text.sliced(5, 2)), number(text.sliced(8, 2)));
    const QTime time(number(text.sliced(11, 2)), number(text.sliced(14, 2)),
                     number(text.sliced(17, 2)));
    const QStringView behind = text.sliced(kShape.size());
    const std::optional<int> offset = zoneOffset(behind.sliced(fractionLength(behind)));
    if (!date.isValid() || !time.isValid() || !offset) return std::nullopt;
    return QDateTime(date, time, Qt::UTC).addSecs(-*offset);
}

QDateTime momentSince1970(double milliseconds) {
    constexpr double kMost = 8.64e15;
    if (!(std::abs(milliseconds) <= kMost)) return {};
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(std::floor(milliseconds)), Qt::UTC);
}

}  // namespace diary
