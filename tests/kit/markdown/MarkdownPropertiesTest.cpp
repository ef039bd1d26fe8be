// What holds of every command on every text, tried on random ones.
#include <gtest/gtest.h>

#include "DiaryKit/Markdown/MarkdownEditing.h"
#include "DiaryKit/Markdown/MarkdownLine.h"
#include "tests/kit/markdown/MarkedText.h"
#include "tests/kit/markdown/RandomMarkdown.h"

namespace diary {
namespace {

using Style = MarkdownBlockStyle::Kind;

constexpr int kRounds = 10000;
constexpr Style kStyles[] = {Style::heading, Style::plain,   Style::bullet,
                             Style::task,    Style::ordered, Style::quote};
constexpr QStringView kMarkers[] = {u"**", u"*", u"~~", u"`"};

bool liesIn(TextRange range, const QString& text) {
    return range.location >= 0 && range.length >= 0 && range.end() <= text.size();
}

bool splitsPair(qsizetype at, const QString& text) {
    return at > 0 && at < text.size() && text[at].isLowSurrogate() &&
           text[at - 1].isHighSurrogate();
}

void expectSound(const std::optional<MarkdownChange>& change, const QString& before) {
    if (!change) return;
    ASSERT_FALSE(change->steps.empty());
    QString text = before;
    for (const MarkdownChange::Step& step : change->steps) {
        ASSERT_TRUE(liesIn(step.range, text));
        ASSERT_FALSE(splitsPair(step.range.location, text) || splitsPair(step.range.end(), text));
        text.replace(step.range.location, step.range.length, step.replacement);
        ASSERT_TRUE(liesIn(step.selection, text));
        ASSERT_FALSE(splitsPair(step.selection.location, text) ||
                     splitsPair(step.selection.end(), text));
        ASSERT_EQ(step.changesText(), step.range.length > 0 || !step.replacement.isEmpty());
    }
}

TEST(EveryCommand, StaysInTheTextAndSplitsNoCharacter) {
    test::RandomMarkdown random(3);
    for (int round = 0; round < kRounds; ++round) {
        const QString text = random.text(20);
        const TextRange selection = random.selection(text);
        SCOPED_TRACE(text.toStdString());
        expectSound(MarkdownEditing::newline(text, selection), text);
        expectSound(MarkdownEditing::backspace(text, selection), text);
        expectSound(MarkdownEditing::space(u"\u3000", text, selection), text);
        expectSound(MarkdownEditing::overtype(u"*", text, selection), text);
        expectSound(MarkdownEditing::link(text, selection), text);
        expectSound(MarkdownEditing::pasteLink(u"https://e.org", text, selection), text);
        expectSound(MarkdownEditing::indent(text, selection), text);
        expectSound(MarkdownEditing::outdent(text, selection), text);
        expectSound(MarkdownEditing::toggleTask(random.position(text), text, selection), text);
        for (const QStringView marker : kMarkers) {
            expectSound(MarkdownEditing::wrap(marker, text, selection), text);
        }
        for (const Style style : kStyles) {
            expectSound(MarkdownEditing::setBlock({style, 2}, text, selection), text);
        }
        ASSERT_FALSE(HasFatalFailure());
    }
}

// Backspace takes back what the second step of Return put in, except the indentation.
TEST(ReturnThenBackspace, LeavesTheLineBreakAndTheIndentation) {
    test::RandomMarkdown random(5);
    int tried = 0;
    for (int round = 0; round < kRounds; ++round) {
        const QString text = random.text(12) + QStringLiteral("\n  - one");
        const auto change = MarkdownEditing::newline(text, {text.size(), 0});
        if (!change) continue;
        ASSERT_EQ(change->steps.size(), 2U);
        const TextWithSelection item = applied(change, text);
        const auto back = MarkdownEditing::backspace(item.text, item.selection);
        ASSERT_TRUE(back);
        const TextWithSelection result = applied(back, item.text);
        ASSERT_EQ(result.text, text + QStringLiteral("\n  "));
        ASSERT_EQ(result.selection, (TextRange{result.text.size(), 0}));
        ++tried;
    }
    EXPECT_GT(tried, 1000);
}

TEST(FirstStepOfReturn, IsThePlainLineBreak) {
    test::RandomMarkdown random(6);
    int tried = 0;
    for (int round = 0; round < kRounds; ++round) {
        const QString text = random.text(16);
        const TextRange selection = random.selection(text);
        const auto change = MarkdownEditing::newline(text, selection);
        if (!change || change->steps.size() < 2) continue;
        QString broken = text;
        broken.replace(selection.location, selection.length, u'\n');
        ASSERT_EQ(applied(MarkdownChange{{change->steps.front()}}, text).text, broken);
        ++tried;
    }
    EXPECT_GT(tried, 100);
}

TEST(IndentThenOutdent, IsNothing) {
    test::RandomMarkdown random(8);
    int tried = 0;
    for (int round = 0; round < kRounds; ++round) {
        const QString text = random.text(12);
        const TextRange selection = random.selection(text);
        const auto in = MarkdownEditing::indent(text, selection);
        if (!in) continue;
        const TextWithSelection indented = applied(in, text);
        const auto out = MarkdownEditing::outdent(indented.text, indented.selection);
        ASSERT_TRUE(out);
        ASSERT_EQ(applied(out, indented.text), (TextWithSelection{text, selection}));
        ++tried;
    }
    EXPECT_GT(tried, 100);
}

TEST(WrapTwice, IsNothing) {
    test::RandomMarkdown random(9);
    int tried = 0;
    for (int round = 0; round < kRounds; ++round) {
        const QString text = random.text(12);
        const TextRange selection = random.selection(text);
        if (selection.length == 0) continue;
        for (const QStringView marker : {u"**", u"~~", u"`"}) {
            const MarkdownChange change = MarkdownEditing::wrap(marker, text, selection);
            const TextWithSelection wrapped = applied(change, text);
            if (wrapped.text.size() < text.size()) continue;
            const MarkdownChange back =
                MarkdownEditing::wrap(marker, wrapped.text, wrapped.selection);
            ASSERT_EQ(applied(back, wrapped.text), (TextWithSelection{text, selection}));
            ++tried;
        }
    }
    EXPECT_GT(tried, 1000);
}

TEST(AskedForBlock, IsWhatTheLineThenIs) {
    const std::pair<Style, MarkdownLinePrefix::Kind> rows[] = {
        {Style::heading, MarkdownLinePrefix::Kind::heading},
        {Style::task, MarkdownLinePrefix::Kind::task},
        {Style::ordered, MarkdownLinePrefix::Kind::ordered},
        {Style::quote, MarkdownLinePrefix::Kind::quote},
    };
    test::RandomMarkdown random(10);
    for (int round = 0; round < kRounds; ++round) {
        const QString text = random.text(12);
        const TextRange selection = random.selection(text);
        const MarkdownLine line = MarkdownLine::at(text, selection.location);
        for (const auto& [style, kind] : rows) {
            // Asking for what the line has takes it away.
            if (line.prefix.kind == kind) continue;
            const auto change = MarkdownEditing::setBlock({style, 3}, text, selection);
            ASSERT_TRUE(change);
            const TextWithSelection result = applied(change, text);
            const MarkdownLine now = MarkdownLine::at(result.text, line.range.location);
            ASSERT_EQ(now.prefix.kind, kind) << text.toStdString();
            ASSERT_GE(result.selection.location, now.range.location + now.prefix.length);
        }
    }
}

TEST(ToggleTwice, FlipsAndFlipsBack) {
    test::RandomMarkdown random(12);
    for (int round = 0; round < kRounds / 10; ++round) {
        const QString text = random.text(10) + QStringLiteral("\n - [ ] a");
        const TextRange selection = random.selection(text);
        const qsizetype at = text.size() - random.below(9);
        const auto checking = MarkdownEditing::toggleTask(at, text, selection);
        ASSERT_TRUE(checking);
        const TextWithSelection checked = applied(checking, text);
        ASSERT_TRUE(MarkdownLine::at(checked.text, at).prefix.isChecked());
        const auto opening = MarkdownEditing::toggleTask(at, checked.text, checked.selection);
        ASSERT_TRUE(opening);
        ASSERT_EQ(applied(opening, checked.text), (TextWithSelection{text, selection}));
    }
}

// Line by line, as the rule is told.
bool isInsideFenceSlowly(const QString& text, qsizetype position) {
    const qsizetype start = markdownLineRange(text, position).location;
    bool isInside = false;
    for (qsizetype at = 0; at >= 0 && at < start;) {
        const TextRange line = markdownLineRange(text, at);
        QStringView units = QStringView(text).sliced(line.location, line.length);
        while (units.startsWith(u' ')) units = units.sliced(1);
        if (units.startsWith(u"```")) isInside = !isInside;
        at = markdownNextLine(text, line).value_or(-1);
    }
    return isInside;
}

TEST(InsideFence, IsWhatCountingTheLinesGives) {
    test::RandomMarkdown random(14);
    int inside = 0;
    for (int round = 0; round < kRounds; ++round) {
        QString text = random.text(20);
        if (round % 2 == 0) text.replace(QLatin1String("word"), QLatin1String("\n  ```"));
        const qsizetype position = random.position(text);
        ASSERT_EQ(MarkdownEditing::isInsideFence(text, position),
                  isInsideFenceSlowly(text, position))
            << text.toStdString();
        if (MarkdownEditing::isInsideFence(text, position)) ++inside;
    }
    EXPECT_GT(inside, 500);
}

}  // namespace
}  // namespace diary
