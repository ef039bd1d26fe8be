#include "DiaryApp/Editor/DraftText.h"

#include <gtest/gtest.h>

namespace velmar {
namespace {

TEST(DraftText, ShowsFoldedCharactersByStandInsOfTheSameLength) {
    DraftText draft;
    const QString text = QStringLiteral("a\r\nb\u2029c\uFDD0d\uFDD1e\u00A0f\u2028g");
    const QString shown = draft.load(text);
    EXPECT_EQ(shown.size(), text.size());
    for (const QChar folded :
         {QChar(u'\r'), QChar(u'\u2029'), QChar(u'\uFDD0'), QChar(u'\uFDD1')}) {
        EXPECT_FALSE(shown.contains(folded));
    }
    EXPECT_TRUE(shown.contains(QChar(u'\u00A0')));
    EXPECT_TRUE(shown.contains(QChar(u'\u2028')));
    EXPECT_EQ(draft.text(), text);
}

TEST(DraftText, TouchesOnlyWhatDiffers) {
    DraftText draft;
    QString shown = draft.load(QStringLiteral("one\r\ntwo\r\nthree"));
    shown.insert(5, QLatin1Char('X'));
    // The whole text is reported as changed, though one letter was typed.
    EXPECT_TRUE(draft.replace(0, 15, shown));
    EXPECT_EQ(draft.text(), QStringLiteral("one\r\nXtwo\r\nthree"));
}

TEST(DraftText, AnEqualStretchIsNoChange) {
    DraftText draft;
    const QString shown = draft.load(QStringLiteral("one\rtwo"));
    EXPECT_FALSE(draft.replace(0, 7, shown));
    EXPECT_FALSE(draft.replace(3, 1, shown.mid(3, 1)));
    EXPECT_FALSE(draft.replace(7, 0, QString()));
}

TEST(DraftText, BringsBackWhatAnUndoBringsBack) {
    DraftText draft;
    const QString shown = draft.load(QStringLiteral("one\r\ntwo"));
    EXPECT_TRUE(draft.replace(2, 3, QString()));
    EXPECT_EQ(draft.text(), QStringLiteral("ontwo"));
    EXPECT_TRUE(draft.replace(2, 0, shown.mid(2, 3)));
    EXPECT_EQ(draft.text(), QStringLiteral("one\r\ntwo"));
}

TEST(DraftText, DoesNotTakeTheTextsOwnCharactersForStandIns) {
    DraftText draft;
    const QString text = QStringLiteral("\uFFF0\r\uFFF1\u2029");
    const QString shown = draft.load(text);
    EXPECT_TRUE(draft.replace(0, 4, QString()));
    EXPECT_TRUE(draft.replace(0, 0, shown));
    EXPECT_EQ(draft.text(), text);
}

TEST(DraftText, SurvivesAStretchBeyondTheEnd) {
    DraftText draft;
    const QString shown = draft.load(QStringLiteral("abc"));
    EXPECT_FALSE(draft.replace(0, 4, shown));
    EXPECT_EQ(draft.text(), QStringLiteral("abc"));
}

TEST(DraftText, PastesWithPlainLineEnds) {
    EXPECT_EQ(DraftText::pasted(QStringLiteral("a\r\nb\rc\nd")), QStringLiteral("a\nb\nc\nd"));
}

}  // namespace
}  // namespace velmar
