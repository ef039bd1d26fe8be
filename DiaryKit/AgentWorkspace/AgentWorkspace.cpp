#include "DiaryKit/AgentWorkspace/AgentWorkspace.h"

#include <QtCore/QStringList>

#include "DiaryKit/AgentWorkspace/AgentWorkspaceTexts.h"

namespace diary::AgentWorkspace {

using namespace Qt::StringLiterals;

namespace {

// One placeholder after another, so one inside an earlier replacement is filled too.
QString fill(QString text, const Names& names, const QString& app, const QString& timeZone) {
    return text.replace(u"{src}"_s, names.source)
        .replace(u"{out}"_s, names.output)
        .replace(u"{diary}"_s, names.diary)
        .replace(u"{report}"_s, names.report)
        .replace(u"{word}"_s, names.wordFile)
        .replace(u"{app}"_s, app)
        .replace(u"{tz}"_s, timeZone);
}

QString identifier(const QTimeZone& timeZone) {
    return QString::fromLatin1(timeZone.id());
}

QString fixLine(const ImportIssue& issue, const Texts& texts) {
    using Kind = ImportIssue::Kind;
    const bool isFolder = issue.kind == Kind::ignoredFile && issue.file.endsWith(u'/');
    QString line = isFolder ? texts.fixFolderLine : texts.fixLines[issue.kind];
    // "2020 · # Title" holds the year and the line that it is about.
    const QStringList pieces = issue.detail.value_or(QString()).split(u" · "_s);
    line.replace(u"{file}"_s, issue.file)
        .replace(u"{year}"_s, pieces.value(0))
        .replace(u"{line}"_s, pieces.value(1));
    if (issue.kind == Kind::invalidDate) {
        QString inYear;
        if (issue.detail) inYear = QString(texts.inYear).replace(u"{year}"_s, *issue.detail);
        line.replace(u"{inYear}"_s, inYear);
    }
    return line;
}

}  // namespace

QString code(Language language) {
    switch (language) {
        case Language::chinese:
            return u"zh-Hans"_s;
        case Language::english:
            return u"en"_s;
        case Language::japanese:
            return u"ja"_s;
    }
    return {};
}

Language language(QStringView code) {
    if (code.startsWith(u"zh")) return Language::chinese;
    if (code.startsWith(u"ja")) return Language::japanese;
    return Language::english;
}

const Names& names(Language language) {
    static const Names chinese = {u"Velmar 导入"_s, u"Velmar 导出"_s, u"原始导出"_s,     u"输出"_s,
                                  u"日记"_s,        u"报告.md"_s,     u"日记合集.docx"_s};
    static const Names english = {u"Velmar Import"_s, u"Velmar Export"_s, u"source"_s,
                                  u"output"_s,        u"diary"_s,         u"report.md"_s,
                                  u"Diary.docx"_s};
    static const Names japanese = {
        u"Velmar 取り込み"_s, u"Velmar 書き出し"_s, u"元データ"_s, u"出力"_s, u"日記"_s,
        u"レポート.md"_s,     u"日記集.docx"_s};
    switch (language) {
        case Language::chinese:
            return chinese;
        case Language::japanese:
            return japanese;
        case Language::english:
            break;
    }
    return english;
}

const Texts& texts(Language language) {
    static const Texts chinese = chineseTexts();
    static const Texts english = englishTexts();
    static const Texts japanese = japaneseTexts();
    switch (language) {
        case Language::chinese:
            return chinese;
        case Language::japanese:
            return japanese;
        case Language::english:
            break;
    }
    return english;
}

QString importSpec(const QString& appName, const QTimeZone& timeZone, Language language) {
    return fill(texts(language).importSpec, names(language), appName, identifier(timeZone));
}

QString importPrompt(const QString& appName, Language language) {
    return fill(texts(language).importPrompt, names(language), appName, {});
}

QString exportSpec(Target target, const QTimeZone& timeZone, Language language) {
    QString text = texts(language).exportSpec;
    text.replace(u"{targetSpec}"_s, texts(language).targetSpecs[target])
        .replace(u"{target}"_s, targetName(target, language));
    return fill(text, names(language), {}, identifier(timeZone));
}

QString exportPrompt(Target target, Language language) {
    QString text = texts(language).exportPrompt;
    text.replace(u"{target}"_s, targetName(target, language));
    return fill(text, names(language), {}, {});
}

QString targetName(Target target, Language language) {
    return texts(language).targetNames[target];
}

QString fixPrompt(const std::vector<ImportIssue>& issues, Language language) {
    const Texts& texts = AgentWorkspace::texts(language);
    QStringList lines = {texts.fixHeader, QString()};
    for (const ImportIssue& issue : issues) lines << fixLine(issue, texts);
    return fill(lines.join(u'\n'), names(language), {}, {});
}

}  // namespace diary::AgentWorkspace
