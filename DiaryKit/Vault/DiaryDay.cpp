#include "DiaryKit/Vault/DiaryDay.h"

#include <QtCore/QTimeZone>

namespace diary {

namespace {

const QTimeZone& calendarZone() {
    static const QTimeZone zone = [] {
        const QTimeZone current = QTimeZone::systemTimeZone();
        return current.isValid() ? current : QTimeZone::utc();
    }();
    return zone;
}

QDate rolledDate(const DiaryDay& day) {
    return QDate(day.year, 1, 1).addMonths(day.month - 1).addDays(day.day - 1);
}

}  // namespace

DiaryDay DiaryDay::today(const Clock& clock) {
    return of(clock.now());
}

DiaryDay DiaryDay::of(const QDateTime& moment) {
    const QDate date = moment.toTimeZone(calendarZone()).date();
    if (!date.isValid()) return {};
    return {date.year(), date.month(), date.day()};
}

QDateTime DiaryDay::date() const {
    return {rolledDate(*this), QTime(12, 0), calendarZone()};
}

DiaryDay DiaryDay::advanced(int days) const {
    const QDate date = rolledDate(*this).addDays(days);
    if (!date.isValid()) return *this;
    return {date.year(), date.month(), date.day()};
}

int DiaryDay::weekday() const {
    return rolledDate(*this).dayOfWeek() % 7 + 1;
}

}  // namespace diary
