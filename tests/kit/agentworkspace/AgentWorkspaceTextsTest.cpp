#include "DiaryKit/AgentWorkspace/AgentWorkspaceTexts.h"

#include <gtest/gtest.h>

#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

#include "tests/support/Printing.h"

namespace diary {
namespace {

using AgentWorkspace::Language;
using AgentWorkspace::Target;
using AgentWorkspace::Texts;
using Kind = ImportIssue::Kind;

constexpr Target kTargets[] = {Target::obsidian, Target::dayOne, Target::word};

// All texts of a language under names that tell where a test failed.
QMap<QString, QString> allTexts(Language language) {
    const Texts& texts = AgentWorkspace::texts(language);
    QMap<QString, QString> all = {
        {QStringLiteral("importSpec"), texts.importSpec},
        {QStringLiteral("importPrompt"), texts.importPrompt},
        {QStringLiteral("exportSpec"), texts.exportSpec},
        {QStringLiteral("exportPrompt"), texts.exportPrompt},
        {QStringLiteral("pointer"), texts.pointer},
        {QStringLiteral("fixHeader"), texts.fixHeader},
        {QStringLiteral("fixFolderLine"), texts.fixFolderLine},
        {QStringLiteral("inYear"), texts.inYear},
    };
    for (Target target : kTargets) {
        const QString number = QString::number(static_cast<int>(target));
        all[QStringLiteral("targetName") + number] = texts.targetNames[target];
        all[QStringLiteral("targetSpec") + number] = texts.targetSpecs[target];
    }
    for (int kind = 0; kind <= static_cast<int>(Kind::unreadable); ++kind) {
        all[QStringLiteral("fixLine") + QString::number(kind)] =
            texts.fixLines[static_cast<Kind>(kind)];
    }
    return all;
}

QStringList placeholders(const QString& line) {
    static const QRegularExpression placeholder(QStringLiteral("\\{[a-zA-Z]+\\}"));
    QStringList found;
    for (auto match = placeholder.globalMatch(line); match.hasNext();) {
        found << match.next().captured();
    }
    found.sort();
    return found;
}

// "## ", "3. ", "- ", "    " and the like: what a line is.
QString opening(const QString& line) {
    static const QRegularExpression mark(QStringLiteral("^(?:    )?(?:#+ |\\d+\\. |- )?"));
    return mark.match(line).captured();
}

TEST(AgentWorkspaceTexts, StandInEveryLanguageLineForLineWithTheSamePlaceholders) {
    const QMap<QString, QString> english = allTexts(Language::english);
    for (Language language : {Language::chinese, Language::japanese}) {
        const QMap<QString, QString> texts = allTexts(language);
        for (auto text = english.begin(); text != english.end(); ++text) {
            const QStringList lines = text.value().split(QLatin1Char('\n'));
            const QStringList theirs = texts[text.key()].split(QLatin1Char('\n'));
            ASSERT_EQ(theirs.size(), lines.size()) << text.key().toStdString();
            for (qsizetype line = 0; line < lines.size(); ++line) {
                EXPECT_EQ(placeholders(theirs[line]), placeholders(lines[line]))
                    << lines[line].toStdString();
                EXPECT_EQ(opening(theirs[line]), opening(lines[line])) << lines[line].toStdString();
                EXPECT_EQ(theirs[line].isEmpty(), lines[line].isEmpty())
                    << lines[line].toStdString();
            }
        }
    }
}

TEST(AgentWorkspaceTexts, AreTranslatedAndEndWithoutALineEnd) {
    const QMap<QString, QString> english = allTexts(Language::english);
    const QMap<QString, QString> chinese = allTexts(Language::chinese);
    const QMap<QString, QString> japanese = allTexts(Language::japanese);
    for (auto text = english.begin(); text != english.end(); ++text) {
        EXPECT_NE(chinese[text.key()], text.value());
        EXPECT_NE(japanese[text.key()], text.value());
        for (const auto& texts : {english, chinese, japanese}) {
            EXPECT_FALSE(texts[text.key()].isEmpty()) << text.key().toStdString();
            EXPECT_FALSE(texts[text.key()].endsWith(QLatin1Char('\n'))) << text.key().toStdString();
        }
    }
}

TEST(AgentWorkspaceTexts, KeepWhatAnAgentTypesLiterallyAlikeInAllLanguages) {
    for (Language language : AgentWorkspace::kLanguages) {
        const Texts& texts = AgentWorkspace::texts(language);
        for (const char* literal :
             {"MM-DD.md",    "08-11.md", "02-29.md", "366",    "`# MM-DD`", "`## YYYY`",
              "`### HH:MM`", "`---`",    "```",      "######", "`# `",      "`## `",
              "`![](…)`",    "`![[…]]`", "`<img>`",  " · ",    "UTF-8",     "LF",
              "convert.py",  "check.py", "VELMAR",   "Velmar"}) {
            const bool isInPointer = QLatin1String(literal) == QLatin1String("VELMAR");
            const QString& text = isInPointer ? texts.pointer : texts.importSpec;
            EXPECT_TRUE(text.contains(QString::fromUtf8(literal))) << literal;
        }
        for (const char* literal : {"Journal.zip", "Journal.json", "\"metadata\"", "\"1.0\"",
                                    "\"entries\"", "2020-08-11T13:40:00Z", "creationDate"}) {
            EXPECT_TRUE(texts.targetSpecs[Target::dayOne].contains(QLatin1String(literal)))
                << literal;
        }
    }
}

TEST(AgentWorkspaceTexts, LeaveNoPlaceholderUnfilled) {
    const QTimeZone zone("Asia/Tokyo");
    for (Language language : AgentWorkspace::kLanguages) {
        QStringList filled = {AgentWorkspace::importSpec(QStringLiteral("Old"), zone, language),
                              AgentWorkspace::importPrompt(QStringLiteral("Old"), language)};
        for (Target target : kTargets) {
            filled << AgentWorkspace::exportSpec(target, zone, language)
                   << AgentWorkspace::exportPrompt(target, language);
        }
        for (const QString& text : filled)
            EXPECT_EQ(placeholders(text), QStringList()) << text.toStdString();
        EXPECT_TRUE(filled[0].contains(QLatin1String("Asia/Tokyo")));
        EXPECT_TRUE(filled[0].contains(AgentWorkspace::names(language).output + u'/'));
    }
}

TEST(AgentWorkspaceFixPrompt, TellsASubfolderFromAFile) {
    const QString prompt = AgentWorkspace::fixPrompt(
        {{.kind = Kind::ignoredFile, .file = QStringLiteral("2021/")},
         {.kind = Kind::ignoredFile, .file = QStringLiteral("notes.txt")}},
        Language::english);
    EXPECT_EQ(
        prompt.section(QLatin1Char('\n'), 1),
        QStringLiteral("\n- 2021/: remove the subfolder; all files go directly in output/."
                       "\n- notes.txt: not an MM-DD.md; output/ should only hold day files."));
}

TEST(AgentWorkspaceFixPrompt, NamesTheYearOfAnImpossibleDateOnlyIfThereIsOne) {
    const QString prompt =
        AgentWorkspace::fixPrompt({{.kind = Kind::invalidDate, .file = QStringLiteral("02-30.md")},
                                   {.kind = Kind::invalidDate,
                                    .file = QStringLiteral("02-29.md"),
                                    .detail = QStringLiteral("2023")}},
                                  Language::english);
    EXPECT_TRUE(prompt.endsWith(
        QLatin1String("- 02-30.md: this date doesn't exist; check how the dates were worked out."
                      "\n- 02-29.md: this date doesn't exist (in 2023); check how the dates were "
                      "worked out.")));
}

TEST(AgentWorkspaceFixPrompt, ListsEveryFileAndCutsAHeadingAtItsMiddleDot) {
    std::vector<ImportIssue> issues;
    for (int day = 1; day <= 5; ++day) {
        issues.push_back(
            {.kind = Kind::titleMismatch, .file = QStringLiteral("01-0%1.md").arg(day)});
    }
    issues.push_back({.kind = Kind::undemotedHeading,
                      .file = QStringLiteral("03-04.md"),
                      .detail = QStringLiteral("2020 · # Walk · again")});
    const QStringList lines =
        AgentWorkspace::fixPrompt(issues, Language::japanese).split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 8);
    EXPECT_TRUE(lines[0].contains(QStringLiteral("出力/")));
    EXPECT_TRUE(lines[0].contains(QStringLiteral("レポート.md")));
    EXPECT_TRUE(lines[6].startsWith(QStringLiteral("- 01-05.md")));
    EXPECT_TRUE(lines[7].contains(QStringLiteral("「# Walk」")));
    EXPECT_TRUE(lines[7].contains(QStringLiteral("2020 年")));
}

}  // namespace
}  // namespace diary
