#include "DiaryKit/Vault/MonthDay.h"

#include "DiaryKit/Vault/DiaryDay.h"

namespace diary {

namespace {

constexpr MonthDay kLeapDay{2, 29};

// Two ASCII digits as a number, or -1.
int twoDigits(QStringView text) {
    const auto digit = [](QChar c) { return c >= u'0' && c <= u'9' ? c.unicode() - u'0' : -1; };
    const int tens = digit(text[0]);
    const int units = digit(text[1]);
    return tens < 0 || units < 0 ? -1 : tens * 10 + units;
}

}  // namespace

std::optional<MonthDay> MonthDay::parse(QStringView fileName) {
    if (fileName.size() != 8 || !fileName.endsWith(u".md") || fileName[2] != u'-') {
        return std::nullopt;
    }
    const MonthDay key{twoDigits(fileName.first(2)), twoDigits(fileName.sliced(3, 2))};
    if (key.month < 1 || key.month > 12 || key.day < 1 || key.day > 31) return std::nullopt;
    return key;
}

bool MonthDay::isLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

QString MonthDay::fileName() const {
    return headerTitle() + QLatin1String(".md");
}

QString MonthDay::headerTitle() const {
    const auto digit = [](int value) { return QChar(u'0' + value % 10); };
    const QChar title[] = {digit(month / 10), digit(month), u'-', digit(day / 10), digit(day)};
    return QString(title, 5);
}

int MonthDay::ordinalInCycle() const {
    int ordinal = day;
    for (int earlier = 1; earlier < month; ++earlier) ordinal += daysInCycleMonth[earlier - 1];
    return ordinal;
}

int MonthDay::ordinal(int year) const {
    return isLeapYear(year) || month <= 2 ? ordinalInCycle() : ordinalInCycle() - 1;
}

int MonthDay::daysInYear(int year) const {
    return *this == kLeapDay || isLeapYear(year) ? 366 : 365;
}

std::optional<int> MonthDay::weekday(int year) const {
    if (*this == kLeapDay && !isLeapYear(year)) return std::nullopt;
    return DiaryDay{year, month, day}.weekday();
}

MonthDay MonthDay::advanced(int days) const {
    int position = (ordinalInCycle() - 1 + days % cycleLength + cycleLength) % cycleLength;
    MonthDay result{1, 1};
    while (position >= daysInCycleMonth[result.month - 1]) {
        position -= daysInCycleMonth[result.month - 1];
        ++result.month;
    }
    result.day = position + 1;
    return result;
}

}  // namespace diary
