// Random vaults and batches: what a plan reports as written is in the text, other years stay as
// they are, and importing again adds nothing.
#include <gmock/gmock.h>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/kit/importplan/Entries.h"
#include "tests/support/HostileText.h"
#include "tests/support/Printing.h"

namespace diary::ImportPlanner {
namespace {

using namespace test;

constexpr int kRounds = 400;

class RandomImport {
public:
    explicit RandomImport(unsigned seed) : m_random(seed) {}

    ImportBatch batch() {
        std::vector<ImportedEntry> entries;
        for (int i = m_random.below(8); i >= 0; --i) entries.push_back(randomEntry());
        return batchOf(std::move(entries));
    }

    Files files() {
        Files files;
        for (int day = 1; day <= 3; ++day) {
            if (m_random.below(3) == 0) continue;
            const MonthDay monthDay{1, day};
            QString text = dayfile::blankTemplate(monthDay);
            for (int year = 2023; year <= 2025; ++year) {
                text = YearSectionParser::appendingBody(m_random.text(6), u"---", year, monthDay,
                                                        text);
            }
            files[monthDay] = text;
        }
        return files;
    }

private:
    std::optional<QString> maybe() {
        return m_random.below(3) == 0 ? std::optional(m_random.piece()) : std::nullopt;
    }

    ImportedEntry randomEntry() {
        constexpr int kYears[] = {2022, 2023, 2024, 2025, 2026, 999, 10000};
        ImportedEntry entry{.day = {kYears[m_random.below(7)], 1, 1 + m_random.below(3)},
                            .title = maybe(),
                            .body = m_random.text(10),
                            .place = maybe(),
                            .mood = maybe(),
                            .isVelmarSection = m_random.below(6) == 0};
        if (m_random.below(2) == 0) entry.time = {m_random.below(24), m_random.below(60)};
        // A reader of vaults closes the fence that a section leaves open.
        if (entry.isVelmarSection) entry.body = YearSectionParser::closingFence(entry.body);
        return entry;
    }

    HostileText m_random;
};

// The text of a year's first section with a fence that may have been closed behind it left out.
QString withoutClosing(QString body) {
    while (body.endsWith(QLatin1String("\n```"))) body.chop(4);
    return text::trimmed(body).toString();
}

TEST(PlanProperties, WhatIsReportedIsInTheText) {
    for (unsigned seed = 0; seed < kRounds; ++seed) {
        RandomImport random(seed);
        Files files = random.files();
        const ImportBatch batch = random.batch();
        const ImportPlan plan = planOn(files, batch);
        written(plan, batch.source, files);
        int entries = 0;
        for (const ImportPlan::FileChange& change : plan.changes) {
            for (const ImportPlan::Addition& addition : change.additions) {
                entries += static_cast<int>(addition.entries.size());
                EXPECT_TRUE(YearSectionParser::body(addition.year, files[change.monthDay])
                                .contains(text::trimmed(addition.text)))
                    << seed;
            }
        }
        EXPECT_EQ(plan.stats.entries, entries) << seed;
    }
}

TEST(PlanProperties, YearsWithoutAdditionsStayAsTheyAre) {
    for (unsigned seed = 0; seed < kRounds; ++seed) {
        RandomImport random(seed);
        const Files before = random.files();
        Files files = before;
        const ImportBatch batch = random.batch();
        const ImportPlan plan = planOn(files, batch);
        written(plan, batch.source, files);
        for (const auto& [day, text] : before) {
            // A line that becomes a header once white space goes has always been one in waiting.
            if (fuzz::hasHeaderInWaiting(text)) continue;
            std::set<int> changed;
            for (const ImportPlan::FileChange& change : plan.changes) {
                if (change.monthDay != day) continue;
                for (const auto& addition : change.additions) changed.insert(addition.year);
            }
            for (const YearSectionParser::YearBody& one : YearSectionParser::sectionBodies(text)) {
                if (changed.contains(one.year)) continue;
                EXPECT_EQ(withoutClosing(YearSectionParser::body(one.year, files[day])),
                          withoutClosing(YearSectionParser::body(one.year, text)))
                    << seed;
            }
        }
    }
}

TEST(PlanProperties, ASecondImportAddsNothing) {
    for (unsigned seed = 0; seed < kRounds; ++seed) {
        RandomImport random(seed);
        Files files = random.files();
        const ImportBatch batch = random.batch();
        const ImportPlan first = planOn(files, batch);
        const ImportRecord record = written(first, batch.source, files);
        const Files after = files;
        const ImportPlan second = planOn(files, batch, {record});
        // Entries without text of their own are found nowhere, so they may be offered again.
        for (const ImportPlan::FileChange& change : second.changes) {
            for (const ImportPlan::Addition& addition : change.additions) {
                for (const ImportedEntry& one : addition.entries) {
                    EXPECT_TRUE(text::trimmed(EntryRenderer::prepare(one.body)).isEmpty())
                        << seed << ' ' << one.body.toStdString();
                }
            }
        }
        EXPECT_EQ(files, after);
    }
}

}  // namespace
}  // namespace diary::ImportPlanner
