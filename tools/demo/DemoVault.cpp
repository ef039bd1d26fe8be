#include "tools/demo/DemoVault.h"

#include <cstdlib>

#include "DiaryKit/Vault/YearSectionParser.h"
#include "tools/demo/Deck.h"
#include "tools/demo/Texts.h"

namespace demo {
namespace {

constexpr int kYears = 9;

// From March on, three months each.
int season(const QDate& date) {
    return (date.month() + 9) % 12 / 3;
}

// One language's pieces, dealt out over the years.
class Writer {
public:
    Writer(const Texts& texts, std::uint64_t seed)
        : m_openings{Deck(texts.openings[0], seed + 1), Deck(texts.openings[1], seed + 2),
                     Deck(texts.openings[2], seed + 3), Deck(texts.openings[3], seed + 4)},
          m_events(texts.events, seed + 5),
          m_closings(texts.closings, seed + 6),
          m_forms(texts.forms, seed + 7),
          m_separator(&texts == &englishTexts() ? QStringLiteral(" ") : QString()) {}

    QString entry(const QDate& date, Chance& chance) {
        const QString opening = m_openings.at(static_cast<std::size_t>(season(date))).draw();
        const QString blankLine = QStringLiteral("\n\n");
        switch (chance.below(6)) {
            case 0:
                return opening + blankLine + m_forms.draw();
            case 1:
                return m_events.draw() + m_separator + m_closings.draw();
            case 2:
                return opening + m_separator + m_events.draw() + blankLine + m_events.draw() +
                       blankLine + m_closings.draw();
            case 3:
                return m_events.draw();
            default:
                return opening + m_separator + m_events.draw();
        }
    }

private:
    std::array<Deck, 4> m_openings;
    Deck m_events;
    Deck m_closings;
    Deck m_forms;
    QString m_separator;
};

// How many of a hundred days have writing: more in later years, most around the day itself.
int share(const QDate& date, const QDate& today) {
    const int yearsAgo = today.year() - date.year();
    const int distance = std::abs(date.dayOfYear() - today.dayOfYear());
    return (distance <= 10 ? 60 : 20) + 2 * (kYears - yearsAgo);
}

class Diary {
public:
    void write(const QDate& date, const QString& body) {
        const diary::MonthDay day{date.month(), date.day()};
        QString& text = m_files[day.fileName()];
        text = diary::YearSectionParser::replacingBody(body, date.year(), day, text);
    }

    [[nodiscard]] std::map<QString, QString> files() && { return std::move(m_files); }

private:
    std::map<QString, QString> m_files;
};

// Each year is written in one language, as if the writer had moved. This year and the last are in
// English.
const Texts& textsOf(int yearsAgo) {
    if (yearsAgo % 3 == 2) return japaneseTexts();
    return yearsAgo == 0 || yearsAgo % 3 == 1 ? englishTexts() : chineseTexts();
}

}  // namespace

std::map<QString, QString> dayFiles(const QDate& today) {
    Diary diary;
    Chance chance(0x56656c6d6172U);
    for (int yearsAgo = kYears - 1; yearsAgo >= 0; --yearsAgo) {
        const int year = today.year() - yearsAgo;
        const Texts& texts = textsOf(yearsAgo);
        Writer writer(texts, static_cast<std::uint64_t>(year));
        const QDate end = yearsAgo == 0 ? today : QDate(year + 1, 1, 1);
        for (QDate date(year, 1, 1); date < end; date = date.addDays(1)) {
            const bool anniversary = date.month() == today.month() && date.day() == today.day();
            if (anniversary) {
                const qsizetype turn = (kYears - 1 - yearsAgo) / 3;
                diary.write(date, texts.anniversaries.at(turn % texts.anniversaries.size()));
            } else if (chance.below(100) < share(date, today)) {
                diary.write(date, writer.entry(date, chance));
            }
        }
    }
    return std::move(diary).files();
}

}  // namespace demo
