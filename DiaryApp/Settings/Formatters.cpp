#include "DiaryApp/Settings/Formatters.h"

#include <unicode/dtfmtsym.h>
#include <unicode/dtptngen.h>
#include <unicode/gregocal.h>
#include <unicode/smpdtfmt.h>

#include <QtCore/QDateTime>
#include <QtCore/QHash>
#include <array>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>

#include "DiaryKit/Foundation/Background.h"

namespace velmar {

namespace {

icu::UnicodeString toICU(const QString& text) {
    return {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<int32_t>(text.size())};
}

QString fromICU(const icu::UnicodeString& text) {
    return QString::fromUtf16(text.getBuffer(), text.length());
}

icu::Locale icuLocale(Language language) {
    return icu::Locale(localization::code(language).toLatin1().constData());
}

// The locale of the desktop's dates (POSIX: LC_ALL over LC_TIME over LANG). None where it is "C",
// which has no region.
std::optional<icu::Locale> dateLocale() {
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        const QByteArray value = qgetenv(variable);
        if (value.isEmpty()) continue;
        if (value == "C" || value == "POSIX" || value.startsWith("C.")) return std::nullopt;
        return icu::Locale::createCanonical(value.constData());
    }
    return std::nullopt;
}

// A Gregorian calendar without a change from the Julian one, as the diary counts its days, in UTC,
// so that the machine's zone never moves a date.
std::unique_ptr<icu::GregorianCalendar> calendar(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    auto result =
        std::make_unique<icu::GregorianCalendar>(icu::TimeZone::getGMT()->clone(), locale, status);
    result->setGregorianChange(-std::numeric_limits<double>::max(), status);
    return U_SUCCESS(status) ? std::move(result) : nullptr;
}

// Formats of one language, by skeleton. Making the first takes several milliseconds, so each is
// made once, and the first ones in the background while the application starts.
struct Cache {
    // Held while something is made; whoever needs it meanwhile waits.
    std::recursive_mutex mutex;
    QHash<QString, std::shared_ptr<icu::SimpleDateFormat>> formats;
    std::unique_ptr<icu::DateTimePatternGenerator> generator;
    std::unique_ptr<icu::DateFormatSymbols> symbols;
};

Cache& cache(Language language) {
    static std::array<Cache, 3> caches;
    return caches[static_cast<std::size_t>(language)];
}

std::shared_ptr<icu::SimpleDateFormat> makeFormat(Language language, const QString& skeleton) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale = icuLocale(language);
    auto& generator = cache(language).generator;
    if (!generator) {
        generator.reset(icu::DateTimePatternGenerator::createInstance(locale, status));
        if (U_FAILURE(status)) return nullptr;
    }
    const icu::UnicodeString pattern = generator->getBestPattern(toICU(skeleton), status);
    auto format = std::make_shared<icu::SimpleDateFormat>(pattern, locale, status);
    if (U_FAILURE(status)) return nullptr;
    if (auto gregorian = calendar(locale)) format->adoptCalendar(gregorian.release());
    return format;
}

std::shared_ptr<icu::SimpleDateFormat> format(Language language, const QString& skeleton) {
    const std::lock_guard lock(cache(language).mutex);
    auto& formats = cache(language).formats;
    const auto found = formats.constFind(skeleton);
    if (found != formats.constEnd()) return *found;
    return *formats.insert(skeleton, makeFormat(language, skeleton));
}

const icu::DateFormatSymbols& symbols(Language language) {
    const std::lock_guard lock(cache(language).mutex);
    auto& kept = cache(language).symbols;
    if (!kept) {
        UErrorCode status = U_ZERO_ERROR;
        kept = std::make_unique<icu::DateFormatSymbols>(icuLocale(language), status);
    }
    return *kept;
}

// A leap year, so that 29 February is a date of it.
constexpr int kYearWithEveryDay = 2024;

}  // namespace

const Formatters& Formatters::of(Language language) {
    static const std::array<Formatters, 3> instances = {
        Formatters(Language::en), Formatters(Language::zhHans), Formatters(Language::ja)};
    return instances[static_cast<std::size_t>(language)];
}

void Formatters::warmUp(Language language) {
    diary::background::start(diary::background::Urgency::UserWaits, [language] {
        (void)symbols(language);
        if (language == Language::en) (void)format(language, QStringLiteral("EEEEMMMMd"));
    });
}

QString Formatters::written(diary::MonthDay day, int year, const QString& skeleton,
                            const QString& withoutWeekday) const {
    if (m_language != Language::en) return {};
    if (day.weekday(year)) return formatted(QDate(year, day.month, day.day), skeleton);
    return formatted(QDate(kYearWithEveryDay, day.month, day.day), withoutWeekday);
}

QString Formatters::dayName(int month, int day) const {
    if (m_language == Language::zhHans) {
        return chineseNumber(month) + u'月' + chineseNumber(day) + u'日';
    }
    const QString name = formatted(QDate(kYearWithEveryDay, month, day), QStringLiteral("MMMMd"));
    return name.isEmpty() ? monthName(month) + u' ' + QString::number(day) : name;
}

QString Formatters::weekdayName(int weekday) const {
    int32_t count = 0;
    const icu::UnicodeString* names =
        symbols(m_language)
            .getWeekdays(count, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::WIDE);
    return weekday > 0 && weekday < count ? fromICU(names[weekday]) : QString();
}

QString Formatters::monthName(int month) const {
    int32_t count = 0;
    const icu::UnicodeString* names =
        symbols(m_language)
            .getMonths(count, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::WIDE);
    return month > 0 && month <= count ? fromICU(names[month - 1]) : QString();
}

QStringList Formatters::weekdayColumns() const {
    // A single character is enough in Chinese and Japanese; in English it takes two.
    const auto width =
        m_language == Language::en ? icu::DateFormatSymbols::SHORT : icu::DateFormatSymbols::NARROW;
    int32_t count = 0;
    const icu::UnicodeString* names =
        symbols(m_language).getWeekdays(count, icu::DateFormatSymbols::STANDALONE, width);
    QStringList columns;
    const int first = firstWeekday() - 1;
    for (int i = 0; i < 7; ++i) columns.append(fromICU(names[(first + i) % 7 + 1]));
    return columns;
}

int Formatters::firstWeekday() const {
    // A German who reads the interface in English still has a week that begins on Monday.
    const auto gregorian = calendar(dateLocale().value_or(icuLocale(m_language)));
    UErrorCode status = U_ZERO_ERROR;
    return gregorian ? gregorian->getFirstDayOfWeek(status) : 1;
}

QString Formatters::relativeDay(QDate date, QDate today) {
    const qint64 days = date.daysTo(today);
    if (days <= 0) return qtTrId("RelativeToday");
    if (days == 1) return qtTrId("RelativeYesterday");
    return qtTrId("RelativeDaysAgo", static_cast<int>(days));
}

QString Formatters::chineseNumber(int number) {
    static const QString digits = QStringLiteral("一二三四五六七八九");
    const int tens = number / 10;
    const int units = number % 10;
    QString text;
    if (tens > 1) text += digits[tens - 1];
    if (tens > 0) text += u'十';
    if (units > 0) text += digits[units - 1];
    return text;
}

QString Formatters::formatted(QDate date, const QString& skeleton) const {
    const auto made = format(m_language, skeleton);
    if (!made || !date.isValid()) return {};
    const qint64 noon = QDateTime(date, QTime(12, 0), Qt::UTC).toMSecsSinceEpoch();
    icu::UnicodeString text;
    made->format(static_cast<UDate>(noon), text);
    return fromICU(text);
}

}  // namespace velmar
