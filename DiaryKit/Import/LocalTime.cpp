#include "DiaryKit/Import/LocalTime.h"

#include <QtCore/QFileInfo>
#include <algorithm>
#include <array>

namespace diary::LocalTime {

namespace {

struct Abbreviation {
    QLatin1String name;
    const char* identifier;
};

// Some abbreviations are used in several zones; each stands for one of them here.
constexpr std::array kAbbreviations = {
    Abbreviation{QLatin1String("ADT"), "America/Halifax"},
    Abbreviation{QLatin1String("AKDT"), "America/Juneau"},
    Abbreviation{QLatin1String("AKST"), "America/Juneau"},
    Abbreviation{QLatin1String("ART"), "America/Argentina/Buenos_Aires"},
    Abbreviation{QLatin1String("AST"), "America/Halifax"},
    Abbreviation{QLatin1String("BDT"), "Asia/Dhaka"},
    Abbreviation{QLatin1String("BRST"), "America/Sao_Paulo"},
    Abbreviation{QLatin1String("BRT"), "America/Sao_Paulo"},
    Abbreviation{QLatin1String("BST"), "Europe/London"},
    Abbreviation{QLatin1String("CAT"), "Africa/Harare"},
    Abbreviation{QLatin1String("CDT"), "America/Chicago"},
    Abbreviation{QLatin1String("CEST"), "Europe/Paris"},
    Abbreviation{QLatin1String("CLST"), "America/Santiago"},
    Abbreviation{QLatin1String("CLT"), "America/Santiago"},
    Abbreviation{QLatin1String("COT"), "America/Bogota"},
    Abbreviation{QLatin1String("CST"), "America/Chicago"},
    Abbreviation{QLatin1String("EAT"), "Africa/Addis_Ababa"},
    Abbreviation{QLatin1String("EDT"), "America/New_York"},
    Abbreviation{QLatin1String("EEST"), "Europe/Istanbul"},
    Abbreviation{QLatin1String("GST"), "Asia/Dubai"},
    Abbreviation{QLatin1String("HKT"), "Asia/Hong_Kong"},
    Abbreviation{QLatin1String("ICT"), "Asia/Bangkok"},
    Abbreviation{QLatin1String("IRST"), "Asia/Tehran"},
    Abbreviation{QLatin1String("IST"), "Asia/Kolkata"},
    Abbreviation{QLatin1String("JST"), "Asia/Tokyo"},
    Abbreviation{QLatin1String("KST"), "Asia/Seoul"},
    Abbreviation{QLatin1String("MDT"), "America/Denver"},
    Abbreviation{QLatin1String("MSD"), "Europe/Moscow"},
    Abbreviation{QLatin1String("MSK"), "Europe/Moscow"},
    Abbreviation{QLatin1String("NDT"), "America/St_Johns"},
    Abbreviation{QLatin1String("NST"), "America/St_Johns"},
    Abbreviation{QLatin1String("NZDT"), "Pacific/Auckland"},
    Abbreviation{QLatin1String("NZST"), "Pacific/Auckland"},
    Abbreviation{QLatin1String("PDT"), "America/Los_Angeles"},
    Abbreviation{QLatin1String("PET"), "America/Lima"},
    Abbreviation{QLatin1String("PHT"), "Asia/Manila"},
    Abbreviation{QLatin1String("PKT"), "Asia/Karachi"},
    Abbreviation{QLatin1String("PST"), "America/Los_Angeles"},
    Abbreviation{QLatin1String("SGT"), "Asia/Singapore"},
    Abbreviation{QLatin1String("TRT"), "Europe/Istanbul"},
    Abbreviation{QLatin1String("WAT"), "Africa/Lagos"},
    Abbreviation{QLatin1String("WEST"), "Europe/Lisbon"},
    Abbreviation{QLatin1String("WIB"), "Asia/Jakarta"},
};

bool isIdentifierCharacter(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
           c == u'/' || c == u'_' || c == u'-' || c == u'+';
}

// QTimeZone also takes rules such as "XYZ3", and any three letters, for a zone of their own. So
// only names that the zone database holds are passed on to it.
bool isInZoneDatabase(QStringView name) {
    if (name.startsWith(u'/') || !std::all_of(name.begin(), name.end(), isIdentifierCharacter)) {
        return false;
    }
    const auto holds = [&](QLatin1String folder) {
        return QFileInfo(folder + name.toString()).isFile();
    };
    return holds(QLatin1String("/usr/share/zoneinfo/")) ||
           holds(QLatin1String("/usr/lib/zoneinfo/"));
}

std::optional<QTimeZone> ifValid(const QTimeZone& zone) {
    return zone.isValid() ? std::optional(zone) : std::nullopt;
}

}  // namespace

std::optional<QTimeZone> namedZone(QStringView name) {
    if (name.isEmpty()) return std::nullopt;
    if (isInZoneDatabase(name)) {
        if (auto zone = ifValid(QTimeZone(name.toLatin1()))) return zone;
    }
    for (const Abbreviation& abbreviation : kAbbreviations) {
        if (abbreviation.name == name) return ifValid(QTimeZone(abbreviation.identifier));
    }
    return std::nullopt;
}

QTimeZone zone(QStringView name) {
    if (const auto named = namedZone(name)) return *named;
    const QTimeZone current = QTimeZone::systemTimeZone();
    return current.isValid() ? current : QTimeZone::utc();
}

DayAndTime split(const QDateTime& moment, const QTimeZone& zone) {
    const QDateTime local = moment.toTimeZone(zone);
    const QDate date = local.date();
    const QTime time = local.time();
    DayAndTime result;
    if (date.isValid()) result.day = {date.year(), date.month(), date.day()};
    if (time.isValid()) result.time = {time.hour(), time.minute()};
    return result;
}

bool isValid(int year, int month, int day) {
    if (month < 1 || month > 12 || day < 1) return false;
    if (day > MonthDay::daysInCycleMonth[static_cast<std::size_t>(month - 1)]) return false;
    return month != 2 || day != 29 || MonthDay::isLeapYear(year);
}

}  // namespace diary::LocalTime
