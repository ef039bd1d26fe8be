// 100,000 random steps of hostile typing, saved after every step, while a second session with a
// store of its own writes other years of the same day, refreshes come in between, and copies that a
// sync service left are taken in. After each step: the draft stands in the file as typed, every
// other section is as its writer left it, and nothing stands there that nobody wrote.
#include <gtest/gtest.h>

#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <algorithm>
#include <map>
#include <set>

#include "DiaryApp/Session/WritingSession.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/support/HostileText.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/Printing.h"

namespace velmar::test {
namespace {

using diary::YearSectionParser::YearBody;
namespace YearSectionParser = diary::YearSectionParser;

constexpr diary::MonthDay kDay{11, 21};
constexpr int kSteps = 100000;
constexpr qsizetype kLongestDraft = 300;

using Sections = std::multimap<int, QString>;

void add(Sections& sections, const QString& text) {
    for (const YearBody& one : YearSectionParser::sectionBodies(text)) {
        sections.emplace(one.year, one.body);
    }
}

// In memory where the machine has it: syncing a disk 200,000 times proves nothing more here.
QString vaultTemplate() {
    const QString memory = QStringLiteral("/dev/shm");
    const QString base = QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
    return base + QLatin1String("/velmar words XXXXXX");
}

// No editor puts its caret inside a surrogate pair.
qsizetype outsidePair(const QString& text, qsizetype at) {
    return at < text.size() && text[at].isLowSurrogate() ? at + 1 : at;
}

class WordsAreNeverLost : public testing::Test {
protected:
    WordsAreNeverLost() : writer(makeSession(store)), other(makeSession(otherStore)) {
        writer->open(kDay, Focus::Unchanged);
        other->open(kDay, Focus::Unchanged);
        other->pickYear(2015, Focus::Unchanged);
    }

    std::unique_ptr<WritingSession> makeSession(diary::DiaryStore& in) {
        WritingSession::Environment environment;
        environment.clock = &clock;
        environment.makeTimer = timers.maker();
        SessionView view;
        view.flash = [this](SessionNotice notice) {
            if (notice != SessionNotice::MergedRemote) ++notices;
        };
        view.showSaveError = [this](const diary::FileError&) { ++errors; };
        return std::make_unique<WritingSession>(in, view, environment);
    }

    // One edit of the kinds that hands make: typing, pasting, deleting, clearing.
    void edit() {
        QString draft = writer->draft();
        const qsizetype at = outsidePair(draft, hostile.below(static_cast<int>(draft.size()) + 1));
        const int kind = hostile.below(20);
        if (kind == 0) {
            draft.clear();
        } else if (kind < 6 || draft.size() > kLongestDraft) {
            const int length = 1 + hostile.below(kind < 2 ? 120 : 6);
            draft.remove(at,
                         outsidePair(draft, std::min<qsizetype>(at + length, draft.size())) - at);
        } else if (kind < 10) {
            draft.append(hostile.piece());
        } else {
            draft.insert(at, hostile.piece());
        }
        writer->draftChanged(draft);
        if (hostile.below(40) == 0) writer->performRemoteRefresh();
        writer->flushSaveIfDirty();
        if (hostile.below(40) == 0) writer->performRemoteRefresh();
        ASSERT_EQ(writer->draft(), draft);
    }

    // The second session never types a year header, so each of its texts is one section.
    void editElsewhere() {
        const int year = 2011 + hostile.below(5);
        other->pickYear(year, Focus::Unchanged);
        QString text = hostile.text(8);
        if (!YearSectionParser::sections(diary::text::trimmed(text)).empty()) return;
        other->draftChanged(text);
        other->flushSaveIfDirty();
        others.erase(year);
        others.emplace(year, YearSectionParser::closingFence(diary::text::trimmed(text)));
    }

    // Closes the day and opens it again: years typed into the draft are years of their own now.
    void reopen() {
        add(others, written());
        leaveCopy();
        writer->open(kDay, Focus::Unchanged);
    }

    // A copy with a year that nobody else writes. Merging joins a year that stands twice, which the
    // sections expected here can't tell, so it is left for files where none does.
    void leaveCopy() {
        std::set<int> years{2026};
        const bool isPlain = std::all_of(others.begin(), others.end(), [&](const auto& section) {
            return years.insert(section.first).second;
        });
        const QString text = diary::text::trimmed(hostile.text(6)).toString();
        if (!isPlain || !YearSectionParser::sections(text).empty()) return;
        const int year = 1900 + copies++ % 90;
        if (years.contains(year)) return;
        QFile copy(folder.filePath(QStringLiteral("11-21.sync-conflict-20261121-%1-ABCDEFG.md")
                                       .arg(copies, 6, 10, QLatin1Char('0'))));
        ASSERT_TRUE(copy.open(QIODevice::WriteOnly));
        copy.write(QStringLiteral("# 11-21\n\n## %1\n\n%2\n").arg(year).arg(text).toUtf8());
        others.emplace(year, YearSectionParser::closingFence(text));
    }

    [[nodiscard]] QString written() const {
        return YearSectionParser::closingFence(diary::text::trimmed(writer->draft()));
    }

    [[nodiscard]] QString file() const {
        QFile day(store.fileURL(kDay));
        if (!day.open(QIODevice::ReadOnly)) return {};
        return QString::fromUtf8(day.readAll());
    }

    // The sections that must be there: the others', the draft's own, and those typed into it.
    [[nodiscard]] Sections expected() const {
        Sections sections = others;
        const QString text = written();
        const auto typed = YearSectionParser::sections(text);
        const qsizetype own = typed.empty() ? text.size() : typed.front().headerRange.location;
        sections.emplace(2026, diary::text::trimmed(QStringView(text).first(own)).toString());
        add(sections, text);
        return sections;
    }

    diary::FixedClock clock{QDateTime(QDate(2026, 11, 21), QTime(12, 0), Qt::UTC)};
    ManualTimers timers;
    QTemporaryDir folder{vaultTemplate()};
    diary::DiaryStore store{folder.path(), {}, clock};
    diary::DiaryStore otherStore{folder.path(), {}, clock};
    int copies = 0;
    diary::test::HostileText hostile{20261121};
    Sections others;
    int notices = 0;
    int errors = 0;
    std::unique_ptr<WritingSession> writer;
    std::unique_ptr<WritingSession> other;
};

std::map<std::pair<int, QString>, int> counted(const Sections& sections) {
    std::map<std::pair<int, QString>, int> counts;
    for (const auto& section : sections) ++counts[section];
    return counts;
}

TEST_F(WordsAreNeverLost, InAHundredThousandSavesBesideAnotherWriter) {
    for (int step = 0; step < kSteps; ++step) {
        if (hostile.below(10) == 0) editElsewhere();
        if (hostile.below(300) == 0) reopen();
        edit();
        const QString text = file();
        if (text.isEmpty()) {
            ASSERT_TRUE(written().isEmpty()) << "step " << step;
            continue;
        }
        ASSERT_TRUE(text.contains(written()))
            << "step " << step << "\n"
            << text.toUtf8().toPercentEncoding(" \n#").constData() << "\nlacks\n"
            << written().toUtf8().toPercentEncoding(" \n#").constData();
        Sections found;
        add(found, text);
        ASSERT_EQ(counted(found), counted(expected()))
            << "step " << step << "\n"
            << text.toUtf8().toPercentEncoding(" \n#").constData();
        // What was typed into a stay long ago would make every file longer than the last.
        if (others.size() > 30) {
            others.clear();
            QFile::remove(store.fileURL(kDay));
            writer = makeSession(store);
            other = makeSession(otherStore);
            writer->open(kDay, Focus::Unchanged);
            other->open(kDay, Focus::Unchanged);
            other->pickYear(2015, Focus::Unchanged);
        }
    }
    EXPECT_EQ(errors, 0);
    EXPECT_EQ(notices, 0);
    EXPECT_GT(copies, 10);
}

}  // namespace
}  // namespace velmar::test
