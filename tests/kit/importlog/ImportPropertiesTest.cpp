// Random vaults, batches and edits: an import that is undone leaves the same bytes, importing again
// adds nothing, and an undo takes no line away that the import didn't bring.
#include <gtest/gtest.h>

#include <set>

#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/fuzz/UndoneLines.h"
#include "tests/kit/importlog/Imports.h"
#include "tests/support/HostileText.h"
#include "tests/support/Printing.h"

namespace diary::test {
namespace {

constexpr int kRounds = 100;
constexpr int kDays = 3;

class RandomStory {
public:
    explicit RandomStory(unsigned seed) : m_random(seed) {}

    void fill(const TemporaryVault& vault) {
        for (int day = 1; day <= kDays; ++day) {
            const MonthDay monthDay{1, day};
            if (m_random.below(3) == 0) continue;
            QString text = dayfile::blankTemplate(monthDay);
            for (int year = 2023; year <= 2025; ++year) {
                text = YearSectionParser::appendingBody(m_random.text(6) + word(u'o'), u"---", year,
                                                        monthDay, text);
            }
            vault.write(monthDay.fileName(), text.toUtf8());
        }
    }

    ImportBatch batch() {
        std::vector<ImportedEntry> entries;
        for (int i = m_random.below(6); i >= 0; --i) entries.push_back(randomEntry());
        return batchOf(std::move(entries));
    }

    // Types, deletes and repeats in the text, with words of the user's own.
    QString edited(QString text) {
        for (int i = m_random.below(4); i >= 0; --i) {
            const qsizetype place = below(text.size() + 1);
            switch (m_random.below(5)) {
                case 0:
                    text.insert(place, word(u'u'));
                    break;
                case 1:
                    text.insert(lineEnd(text, place), u'\n' + m_random.text(4) + word(u'u'));
                    break;
                case 2:
                    text.remove(place, m_random.below(25));
                    break;
                case 3:
                    text.insert(below(text.size() + 1), text.sliced(place).left(40));
                    break;
                default:
                    text += u'\n' + word(u'u') + u'\n';
            }
        }
        return text;
    }

private:
    qsizetype below(qsizetype bound) { return m_random.below(static_cast<int>(bound)); }

    // A word that stands nowhere else.
    QString word(QChar kind) { return kind + QString::number(++m_words); }

    static qsizetype lineEnd(const QString& text, qsizetype place) {
        const qsizetype end = text.indexOf(u'\n', place);
        return end < 0 ? text.size() : end;
    }

    ImportedEntry randomEntry() {
        constexpr int kYears[] = {2022, 2023, 2024, 2025, 2026, 999, 10000};
        ImportedEntry entry{.day = {kYears[m_random.below(7)], 1, 1 + m_random.below(kDays)},
                            .body = m_random.text(8) + word(u'i'),
                            .isVelmarSection = m_random.below(6) == 0};
        if (m_random.below(2) == 0) entry.time = {m_random.below(24), m_random.below(60)};
        if (m_random.below(3) == 0) entry.title = m_random.piece();
        if (entry.isVelmarSection) entry.body = YearSectionParser::closingFence(entry.body);
        return entry;
    }

    HostileText m_random;
    int m_words = 0;
};

void expectOnlyTheImportIsGone(const QString& before, const QString& after,
                               const ImportRecord& record, const QString& fileName) {
    for (const auto& [line, count] : fuzz::linesLost(before, after, record, fileName)) {
        ADD_FAILURE() << count << " of " << line.toStdString() << "\nof\n"
                      << before.toStdString() << "\nafter\n"
                      << after.toStdString();
    }
}

void expectOtherYearsStay(const QString& before, const QString& after, const std::set<int>& years) {
    // A line that becomes a header once white space goes has always been one in waiting.
    if (fuzz::hasHeaderInWaiting(before) || !fuzz::staysWholeWhenTrimmed(before)) return;
    for (const YearSectionParser::YearBody& one : YearSectionParser::sectionBodies(before)) {
        if (years.contains(one.year)) continue;
        EXPECT_EQ(YearSectionParser::body(one.year, after),
                  YearSectionParser::body(one.year, before))
            << "year " << one.year << " of\n"
            << before.toStdString();
    }
}

TEST(ImportProperties, AnUndoneImportLeavesTheSameBytes) {
    int restored = 0;
    for (unsigned seed = 0; seed < kRounds && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        RandomStory story(seed);
        const TemporaryVault vault;
        story.fill(vault);
        const DayFiles before = dayFilesOf(vault);
        const ImportRecord record = importInto(vault.path(), story.batch());
        const ImportLog::UndoResult result = ImportLog::undo(record, vault.path(), moment(9));
        EXPECT_EQ(result, (ImportLog::UndoResult{.restored = record.days}));
        EXPECT_EQ(dayFilesOf(vault), before);
        restored += result.restored;
    }
    EXPECT_GT(restored, kRounds / 2);
}

TEST(ImportProperties, ASecondImportAddsNothing) {
    for (unsigned seed = 0; seed < kRounds && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        RandomStory story(seed);
        const TemporaryVault vault;
        story.fill(vault);
        const ImportBatch batch = story.batch();
        importInto(vault.path(), batch);
        const DayFiles before = dayFilesOf(vault);
        EXPECT_EQ(importInto(vault.path(), batch, 60).entries, 0);
        EXPECT_EQ(dayFilesOf(vault), before);
    }
}

TEST(ImportProperties, AnUndoTakesNothingThatTheUserWrote) {
    int cut = 0;
    for (unsigned seed = 0; seed < kRounds && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        RandomStory story(seed);
        const TemporaryVault vault;
        story.fill(vault);
        const ImportRecord record = importInto(vault.path(), story.batch());
        const DayFiles imported = dayFilesOf(vault);
        for (const auto& [name, bytes] : imported) {
            vault.write(name, story.edited(QString::fromUtf8(bytes)).toUtf8());
        }
        const DayFiles edited = dayFilesOf(vault);
        cut += ImportLog::undo(record, vault.path(), moment(9)).edited;
        for (const auto& [name, bytes] : edited) {
            // Some edits change nothing; the whole file is the import's then.
            if (bytes == imported.at(name)) continue;
            const QString before = QString::fromUtf8(bytes);
            const QString after = QString::fromUtf8(vault.read(name));
            const std::set<int> years = fuzz::yearsOfImport(record, name);
            expectOnlyTheImportIsGone(before, after, record, name);
            expectOtherYearsStay(before, after, years);
            if (years.empty()) {
                EXPECT_EQ(vault.read(name), bytes);
            }
        }
    }
    EXPECT_GT(cut, kRounds / 3);
}

}  // namespace
}  // namespace diary::test
