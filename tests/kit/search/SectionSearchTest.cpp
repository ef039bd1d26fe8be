#include "DiaryKit/Search/SectionSearch.h"

#include <gmock/gmock.h>

#include <climits>

#include "tests/kit/search/PlainSearch.h"
#include "tests/support/HostileText.h"
#include "tests/support/Printing.h"

namespace diary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr MonthDay kDay{3, 7};

std::vector<SearchHit> hits(QStringView line, const QByteArray& bytes, int limit = INT_MAX) {
    return SectionSearch(SearchQuery::parsing(line)).hits(kDay, bytes, limit);
}

std::vector<int> years(const std::vector<SearchHit>& hits) {
    std::vector<int> list;
    list.reserve(hits.size());
    for (const SearchHit& hit : hits) list.push_back(hit.year);
    return list;
}

TEST(SectionSearch, FindsTheSectionsThatHoldEveryTerm) {
    const QByteArray bytes = "# 03-07\n\n## 2022\n\nfoo\n\n## 2023\n\nbar\nFOO\n\n## 2024\n\nbar\n";
    const auto found = hits(u"foo bar", bytes);
    ASSERT_THAT(years(found), ElementsAre(2023));
    EXPECT_EQ(found[0].snippet, u"bar FOO");
    EXPECT_EQ(found[0].monthDay, kDay);
    EXPECT_EQ(found[0].matchCount(), 2);
    EXPECT_EQ(found[0].ranges, (std::vector<TextRange>{{0, 3}, {4, 3}}));
    EXPECT_EQ(found[0].snippetRanges, found[0].ranges);
}

TEST(SectionSearch, FindsWritingOfADateAndNoEmptyYear) {
    const auto found = hits(u"2024", "## 2024\n\nfirst\n\n## 2023\n\nother\n");
    ASSERT_THAT(years(found), ElementsAre(2024));
    EXPECT_EQ(found[0].snippet, u"first");
    EXPECT_THAT(found[0].ranges, IsEmpty());
    EXPECT_EQ(found[0].matchCount(), 1);
    EXPECT_THAT(hits(u"2024", "## 2024\n\n \u3000\n\n## 2023\n\nother\n"), IsEmpty());
}

TEST(SectionSearch, TakesTheFirstOfARepeatedYear) {
    const QByteArray bytes = "## 2024\n\nfoo\n\n## 2024\n\nfoo bar\n";
    EXPECT_THAT(years(hits(u"foo", bytes)), ElementsAre(2024));
    EXPECT_THAT(hits(u"bar", bytes), IsEmpty());
    EXPECT_THAT(hits(u"2024", "## 2024\n\n## 2024\n\nfoo\n"), IsEmpty());
}

TEST(SectionSearch, DoesNotFindThePreambleNorHeaders) {
    const QByteArray bytes = "# 03-07\n\nfoo\n\n## 1234\n\nbar\n";
    EXPECT_THAT(hits(u"foo", bytes), IsEmpty());
    EXPECT_THAT(hits(u"1234", bytes), IsEmpty());
}

TEST(SectionSearch, StopsAtTheLimit) {
    const QByteArray bytes = "## 2022\nfoo\n## 2023\nfoo\n## 2024\nfoo\n";
    EXPECT_THAT(years(hits(u"foo", bytes, 2)), ElementsAre(2022, 2023));
}

TEST(SectionSearch, FindsWhatBadBytesAreRepairedTo) {
    const auto found = hits(u"caf\uFFFD", "## 2024\ncaf\xE9 noir\n");
    ASSERT_THAT(years(found), ElementsAre(2024));
    EXPECT_EQ(found[0].snippet, u"caf\uFFFD noir");
}

// Bytes of a day file made of what the fast road could stumble over.
class HostileFile {
public:
    explicit HostileFile(unsigned seed) : m_text(seed) {}

    QByteArray bytes() {
        QByteArray all = m_text.below(3) ? "## 2025\n" : "";
        for (int i = m_text.below(40); i > 0; --i) all += piece();
        return all;
    }

    QString term(const QByteArray& bytes) {
        static const QString odd[] = {
            QStringLiteral("s"),    QStringLiteral("K"),      QStringLiteral("ask"),
            QStringLiteral("ß"),    QStringLiteral("ς"),      QStringLiteral("å"),
            QStringLiteral("Ω"),    QStringLiteral("\uFFFD"), QStringLiteral("caf\uFFFD"),
            QStringLiteral("ORD"),  QStringLiteral("日"),     QStringLiteral("\U00010428"),
            QStringLiteral("2024"), QString(QChar(0xD83D)),   QStringLiteral("\n\nw"),
            QStringLiteral("İ"),    QStringLiteral("quince"), QString(),
        };
        if (m_text.below(3) == 0) return odd[m_text.below(std::size(odd))];
        const QString text = utf8::decodedWithRepair(bytes);
        const QString piece =
            text.mid(m_text.below(static_cast<int>(text.size()) + 1), 1 + m_text.below(8));
        const int kind = m_text.below(3);
        return kind == 0 ? piece : kind == 1 ? piece.toUpper() : piece.toLower();
    }

    int below(int bound) { return m_text.below(bound); }

private:
    QByteArray piece() {
        static const QByteArray odd[] = {
            "\u017F",
            "S",
            "\u212A",
            "k",
            "wa\u017Fk",
            "\u1E9E",
            "ß",
            "ς",
            "Σσ",
            "Å",
            "\u212B",
            "Ω\u2126ω",
            "\U00010400",
            "\U00010428",
            "\xFF",
            "\xE3\x81",
            "\xC3",
            "caf\xE9",
            "\xED\xA0\x80",
            "\xF0\x9F\x98",
            "\x80",
            "\uFFFD",
            "\n## 2024\n",
            "\n## 2024\r\n",
            "\n## 0000\n",
            "## 9999",
            "\xEF\xBB\xBF",
            "İi\u0131",
            "quince",
            QByteArray("\0", 1),
        };
        return m_text.below(2) ? m_text.piece().toUtf8() : odd[m_text.below(std::size(odd))];
    }

    test::HostileText m_text;
};

TEST(SectionSearch, FindsWhatAPlainSearchFinds) {
    constexpr int kRounds = 60000;
    HostileFile hostile(5);
    int found = 0;
    for (int round = 0; round < kRounds; ++round) {
        const QByteArray bytes = hostile.bytes();
        SearchQuery query;
        for (int i = hostile.below(4); i > 0; --i) query.terms << hostile.term(bytes);
        if (hostile.below(4) == 0) query.year = 2023 + hostile.below(4);
        const std::vector<SearchHit> expected = test::plainHits(query, kDay, bytes);
        const std::vector<SearchHit> actual = SectionSearch(query).hits(kDay, bytes, INT_MAX);
        ASSERT_EQ(actual, expected) << "round " << round << "\n"
                                    << query.terms.join(u'|').toStdString() << "\n"
                                    << bytes.toPercentEncoding(" \n#").constData();
        if (!expected.empty() && !query.terms.isEmpty()) ++found;
    }
    // Enough of them must be about finding something.
    EXPECT_GT(found, kRounds / 10);
}

}  // namespace
}  // namespace diary
