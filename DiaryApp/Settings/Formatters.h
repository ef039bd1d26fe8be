// Calendar texts in the interface's language. Names and patterns come from ICU and are made when
// they are first asked for. Main thread only.
#pragma once

#include <QtCore/QDate>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include "DiaryApp/Settings/Localization.h"
#include "DiaryKit/Vault/MonthDay.h"

namespace velmar {

class Formatters {
public:
    // One instance a language, kept for the process.
    [[nodiscard]] static const Formatters& of(Language language);

    // Makes what the first page needs, in the background. Returns at once.
    static void warmUp(Language language);

    // The day's date in that year under an ICU skeleton: "EEEEMMMMd" -> "Saturday, November 21".
    // Where the day has no weekday in that year, the skeleton `withoutWeekday` is used, and the
    // year doesn't count. Empty in Chinese and Japanese, whose pages show the weekday alone.
    [[nodiscard]] QString written(diary::MonthDay day, int year, const QString& skeleton,
                                  const QString& withoutWeekday) const;

    // "十一月二十一日", "November 21". 29 February has a name like every day.
    [[nodiscard]] QString dayName(int month, int day) const;

    // "Saturday", "星期六", "土曜日"; 1 is Sunday.
    [[nodiscard]] QString weekdayName(int weekday) const;

    // "November", "十一月", "11月"; 1 is January.
    [[nodiscard]] QString monthName(int month) const;

    // The short weekday names over a month, from the first day of the week on:
    // "Su Mo Tu …", "日 一 二 …".
    [[nodiscard]] QStringList weekdayColumns() const;

    // The weekday that a week begins with; 1 is Sunday. That of the place that the desktop's dates
    // are set to (LC_TIME), and of the language where they are set to none.
    [[nodiscard]] int firstWeekday() const;

    // Today, yesterday, or the number of days ago. A date ahead of `today`, which a clock that was
    // wrong may leave behind, reads as today.
    [[nodiscard]] static QString relativeDay(QDate date, QDate today);

    // 1 to 99 in Chinese numerals: 10 -> 十, 11 -> 十一, 21 -> 二十一, 30 -> 三十.
    [[nodiscard]] static QString chineseNumber(int number);

private:
    explicit Formatters(Language language) : m_language(language) {}
    [[nodiscard]] QString formatted(QDate date, const QString& skeleton) const;

    Language m_language;
};

}  // namespace velmar
