#include "DiaryKit/Search/SearchQuery.h"

namespace diary {

namespace {

constexpr int kFirstYear = 1900;
constexpr int kLastYear = 2200;

// The integer that the text writes in ASCII digits, a sign ahead of them or not.
std::optional<int> integer(QStringView text) {
    const bool isSigned = text.startsWith(u'+') || text.startsWith(u'-');
    const QStringView digits = text.sliced(isSigned ? 1 : 0);
    if (digits.isEmpty()) return std::nullopt;
    int value = 0;
    for (const QChar digit : digits) {
        if (digit < u'0' || digit > u'9') return std::nullopt;
        value = value * 10 + (digit.unicode() - u'0');
    }
    return text.startsWith(u'-') ? -value : value;
}

std::optional<int> integerWithin(int low, int high, QStringView text) {
    const std::optional<int> value = integer(text);
    return value && *value >= low && *value <= high ? value : std::nullopt;
}

bool isSeparator(QChar unit) {
    return unit == u' ' || unit == u'\t' || unit == u'\u3000';
}

// Whether the token is a date, which then is noted. Dates are ASCII, so units count its characters.
bool takesAsDate(QStringView token, SearchQuery& query) {
    if (token.size() == 4) {
        const auto year = integerWithin(kFirstYear, kLastYear, token);
        if (year) query.year = year;
        return year.has_value();
    }
    if (token.size() == 7 && token[4] == u'-') {
        const auto year = integerWithin(kFirstYear, kLastYear, token.first(4));
        const auto month = integerWithin(1, 12, token.last(2));
        if (!year || !month) return false;
        query.year = year;
        query.month = month;
        return true;
    }
    if (token.size() != 5) return false;
    const auto monthDay = MonthDay::parse(QString(token.toString() + QLatin1String(".md")));
    if (monthDay) query.monthDay = monthDay;
    return monthDay.has_value();
}

}  // namespace

SearchQuery SearchQuery::parsing(QStringView text) {
    SearchQuery query;
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = start;
        while (end < text.size() && !isSeparator(text[end])) ++end;
        const QStringView token = text.sliced(start, end - start);
        if (!token.isEmpty() && !takesAsDate(token, query)) query.terms << token.toString();
        start = end + 1;
    }
    return query;
}

bool SearchQuery::isEmpty() const {
    return terms.isEmpty() && !isDateOnly();
}

bool SearchQuery::isDateOnly() const {
    return terms.isEmpty() && (year || month || monthDay);
}

}  // namespace diary
