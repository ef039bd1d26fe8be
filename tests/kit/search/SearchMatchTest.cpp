#include "DiaryKit/Search/SearchMatch.h"

#include <gmock/gmock.h>
#include <unicode/uchar.h>

#include <algorithm>
#include <random>
#include <utility>

#include "tests/support/HostileText.h"
#include "tests/support/Printing.h"

namespace diary {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::Pair;

using Pairs = std::vector<std::pair<int, int>>;

Pairs pairs(const std::vector<TextRange>& ranges) {
    Pairs list;
    for (const TextRange& one : ranges) {
        list.emplace_back(static_cast<int>(one.location), static_cast<int>(one.length));
    }
    return list;
}

std::optional<Pairs> matches(const QStringList& terms, const QString& text) {
    const auto ranges = matchRanges(terms, text);
    return ranges ? std::optional(pairs(*ranges)) : std::nullopt;
}

TEST(MatchRanges, MatchEverythingWithoutTerms) {
    EXPECT_THAT(matches({}, QStringLiteral("a")), Optional(IsEmpty()));
    EXPECT_THAT(matches({}, QString()), Optional(IsEmpty()));
}

TEST(MatchRanges, NeedEveryTermInAnyOrder) {
    const QStringList terms = {QStringLiteral("foo"), QStringLiteral("bar")};
    EXPECT_THAT(matches(terms, QStringLiteral("bar foo")),
                Optional(ElementsAre(Pair(0, 3), Pair(4, 3))));
    EXPECT_EQ(matches(terms, QStringLiteral("foo")), std::nullopt);
    EXPECT_EQ(matches(terms, QString()), std::nullopt);
    EXPECT_EQ(matches({QString()}, QStringLiteral("foo")), std::nullopt);
}

TEST(MatchRanges, OverlapOnlyBetweenTerms) {
    EXPECT_THAT(matches({QStringLiteral("aa")}, QStringLiteral("aaaaa")),
                Optional(ElementsAre(Pair(0, 2), Pair(2, 2))));
    EXPECT_THAT(matches({QStringLiteral("ab"), QStringLiteral("b")}, QStringLiteral("abb")),
                Optional(ElementsAre(Pair(0, 2), Pair(1, 1), Pair(2, 1))));
}

TEST(MatchRanges, KeepTheOrderOfTermsAtOnePlace) {
    EXPECT_THAT(matches({QStringLiteral("ab"), QStringLiteral("a")}, QStringLiteral("ab")),
                Optional(ElementsAre(Pair(0, 2), Pair(0, 1))));
    EXPECT_THAT(matches({QStringLiteral("a"), QStringLiteral("ab")}, QStringLiteral("ab")),
                Optional(ElementsAre(Pair(0, 1), Pair(0, 2))));
}

struct CaseRow {
    const char* name;
    QString term;
    QString text;
    bool matches;
};

void PrintTo(const CaseRow& row, std::ostream* stream) {
    *stream << row.name;
}

class Cases : public testing::TestWithParam<CaseRow> {};

TEST_P(Cases, AreOneIfTheyFoldAlike) {
    EXPECT_EQ(matches({GetParam().term}, GetParam().text).has_value(), GetParam().matches);
}

INSTANTIATE_TEST_SUITE_P(
    MatchRanges, Cases,
    testing::Values(
        CaseRow{"Ascii", QStringLiteral("FoO"), QStringLiteral("fOo"), true},
        CaseRow{"Accents", QStringLiteral("ÉTÉ"), QStringLiteral("été"), true},
        CaseRow{"AccentsCount", QStringLiteral("ete"), QStringLiteral("été"), false},
        CaseRow{"FinalSigma", QStringLiteral("ΣΟΦΟΣ"), QStringLiteral("σοφος"), true},
        CaseRow{"LongS", QStringLiteral("Last"), QStringLiteral("la\u017Ft"), true},
        CaseRow{"KelvinSign", QStringLiteral("5 k"), QStringLiteral("5 \u212A"), true},
        CaseRow{"SharpS", QStringLiteral("ß"), QStringLiteral("\u1E9E"), true},
        CaseRow{"SharpSIsNoDoubleS", QStringLiteral("STRASSE"), QStringLiteral("Straße"), false},
        CaseRow{"DottedCapitalI", QStringLiteral("istanbul"), QStringLiteral("İstanbul"), false},
        CaseRow{"OtherPlane", QStringLiteral("\U00010400"), QStringLiteral("\U00010428"), true},
        CaseRow{"AheadOfACombiningMark", QStringLiteral("e"), QStringLiteral("e\u0301"), true},
        CaseRow{"Decomposed", QStringLiteral("é"), QStringLiteral("e\u0301"), false}),
    [](const testing::TestParamInfo<CaseRow>& row) { return std::string(row.param.name); });

TEST(MatchRanges, NeverTakeHalfOfASurrogatePair) {
    const QString face = QStringLiteral("😀");
    const QString text = face + face[1] + face[0];
    EXPECT_THAT(matches({QString(face[1])}, text), Optional(ElementsAre(Pair(2, 1))));
    EXPECT_THAT(matches({QString(face[0])}, text), Optional(ElementsAre(Pair(3, 1))));
    EXPECT_EQ(matches({QString(face[0])}, face), std::nullopt);
}

// The same by code points, one after the other.
std::optional<Pairs> plainMatches(const QStringList& terms, const QString& text) {
    const auto foldedPoints = [](const QString& from) {
        std::vector<UChar32> points;
        for (const char32_t one : from.toUcs4()) {
            points.push_back(u_foldCase(static_cast<UChar32>(one), U_FOLD_CASE_DEFAULT));
        }
        return points;
    };
    const std::vector<UChar32> points = foldedPoints(text);
    std::vector<int> units = {0};
    for (const UChar32 one : points) units.push_back(units.back() + U16_LENGTH(one));
    Pairs found;
    for (const QString& term : terms) {
        const std::vector<UChar32> wanted = foldedPoints(term);
        bool isFound = false;
        for (auto at = points.begin();; at += std::ssize(wanted)) {
            at = std::search(at, points.end(), wanted.begin(), wanted.end());
            if (at == points.end() || wanted.empty()) break;
            isFound = true;
            const auto start = static_cast<std::size_t>(at - points.begin());
            found.emplace_back(units[start], units[start + wanted.size()] - units[start]);
        }
        if (!isFound) return std::nullopt;
    }
    std::ranges::stable_sort(found, {}, &std::pair<int, int>::first);
    return found;
}

TEST(MatchRanges, AreThoseOfAComparisonByCodePoints) {
    constexpr int kRounds = 20000;
    test::HostileText hostile(11);
    static const QString oddities[] = {
        QStringLiteral("\u017F"), QStringLiteral("S"), QStringLiteral("\u212A"),
        QStringLiteral("K"),      QStringLiteral("ς"), QStringLiteral("Σ"),
        QStringLiteral("\u1E9E"), QStringLiteral("ß"), QStringLiteral("\U00010400"),
        QStringLiteral("WORD"),   QStringLiteral("İ"), QStringLiteral("\U0001F600"),
    };
    int matched = 0;
    for (int round = 0; round < kRounds; ++round) {
        QString text;
        for (int i = hostile.below(12); i > 0; --i) {
            text +=
                hostile.below(2) ? hostile.piece() : oddities[hostile.below(std::size(oddities))];
        }
        QStringList terms;
        for (int i = hostile.below(3); i >= 0; --i) {
            const auto size = static_cast<int>(text.size());
            const int from = hostile.below(size + 1);
            const QString piece = text.mid(from, 1 + hostile.below(3));
            terms << (hostile.below(3) ? piece.toUpper() : oddities[hostile.below(12)]);
        }
        const auto found = matches(terms, text);
        // toUcs4() repairs half pairs, which the rule above tells about.
        const bool hasHalf =
            std::ranges::any_of(terms, [](const QString& term) { return !term.isValidUtf16(); });
        if (hasHalf) continue;
        ASSERT_EQ(found, plainMatches(terms, text))
            << text.toUtf8().toPercentEncoding().constData();
        if (found) ++matched;
    }
    EXPECT_GT(matched, kRounds / 5);
}

QString shown(const QString& text, std::optional<TextRange> around) {
    return snippet(text, {}, around).text;
}

TEST(Snippet, BeginsTheTextWhereThereIsNoMatch) {
    const QString fifty(50, u'x');
    EXPECT_EQ(shown(fifty, {}), fifty);
    EXPECT_EQ(shown(fifty + u'y', {}), fifty + u'…');
    EXPECT_EQ(shown(QStringLiteral("a\nb"), {}), u"a b");
    EXPECT_EQ(shown(QString(), {}), u"");
}

TEST(Snippet, LeavesAPairOutThatStandsAcrossTheCut) {
    const QString text = QString(49, u'x') + QStringLiteral("😀y");
    EXPECT_EQ(shown(text, {}), QString(49, u'x') + u'…');
}

TEST(Snippet, ShowsFourteenUnitsAheadAndThirtyBehind) {
    const QString text = QString(20, u'a') + QStringLiteral("foo") + QString(40, u'b');
    const SearchSnippet made = snippet(text, {QStringLiteral("FOO")}, TextRange{20, 3});
    EXPECT_EQ(made.text,
              u'…' + QString(14, u'a') + QStringLiteral("foo") + QString(30, u'b') + u'…');
    EXPECT_EQ(pairs(made.ranges), (Pairs{{15, 3}}));
}

TEST(Snippet, HasNoEllipsisWhereNothingIsLeftOut) {
    const SearchSnippet made =
        snippet(u"line\nfoo\nline", {QStringLiteral("foo")}, TextRange{5, 3});
    EXPECT_EQ(made.text, u"line foo line");
    EXPECT_EQ(pairs(made.ranges), (Pairs{{5, 3}}));
}

TEST(Snippet, WidensToWholeCharacters) {
    const QString family = QStringLiteral("👨‍👩‍👧");
    const QString text = u'a' + family + QString(13, u'b') + QStringLiteral("foo") +
                         QString(29, u'c') + family + u'd';
    const TextRange match{1 + family.size() + 13, 3};
    EXPECT_EQ(shown(text, match), u'…' + text.sliced(1, text.size() - 2) + u'…');
}

TEST(Snippet, StartsAtAPairThatStandsAcrossItsStart) {
    const QString text = QStringLiteral("aa😀") + QString(13, u'b') + QStringLiteral("foo");
    EXPECT_EQ(shown(text, TextRange{17, 3}), u'…' + text.sliced(2));
}

TEST(Snippet, MarksNothingWhereATermIsCutOff) {
    const QString text = QStringLiteral("foo") + QString(60, u'x') + QStringLiteral("bar");
    EXPECT_THAT(
        snippet(text, {QStringLiteral("foo"), QStringLiteral("bar")}, TextRange{0, 3}).ranges,
        IsEmpty());
}

TEST(Snippet, MarksNoTermAcrossALineEnd) {
    const SearchSnippet made = snippet(u"a\nb", {QStringLiteral("a\nb")}, TextRange{0, 3});
    EXPECT_EQ(made.text, u"a b");
    EXPECT_THAT(made.ranges, IsEmpty());
}

}  // namespace
}  // namespace diary
