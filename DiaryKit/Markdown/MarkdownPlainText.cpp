// A text in one line, for previews.
#include <QtCore/QList>
#include <QtCore/QStringBuilder>

#include "DiaryKit/Markdown/MarkdownEditing.h"
#include "DiaryKit/Markdown/MarkdownInline.h"
#include "DiaryKit/Markdown/MarkdownLinePrefix.h"

namespace diary::MarkdownEditing {

namespace {

QString withTitlesOfLinks(QStringView text) {
    QString plain;
    qsizetype at = 0;
    for (const auto& link : markdowninline::links(text, markdowninline::EmptyAddress::Allowed)) {
        plain += text.sliced(at, link.range.location - at);
        plain += text.sliced(link.title.location, link.title.length);
        at = link.range.end();
    }
    return plain % text.sliced(at);
}

QString withoutItalicMarks(QStringView text) {
    QString plain;
    qsizetype at = 0;
    for (const TextRange& match : markdowninline::starItalic(text)) {
        plain += text.sliced(at, match.location - at);
        plain += text.sliced(match.location + 1, match.length - 2);
        at = match.end();
    }
    return plain % text.sliced(at);
}

// Only the two blanks of the ASCII range: an ideographic space is the writer's.
QStringView trimmedOfSpacesAndTabs(QStringView text) {
    const auto isSpaceOrTab = [](QChar unit) { return unit == u' ' || unit == u'\t'; };
    while (!text.isEmpty() && isSpaceOrTab(text.front())) text = text.sliced(1);
    while (!text.isEmpty() && isSpaceOrTab(text.back())) text.chop(1);
    return text;
}

QString plainLine(QStringView line) {
    const MarkdownLinePrefix prefix = MarkdownLinePrefix::parse(line);
    if (prefix.kind == MarkdownLinePrefix::Kind::rule) return {};
    QString plain = withTitlesOfLinks(line.sliced(prefix.length));
    for (const QLatin1String mark :
         {QLatin1String("**"), QLatin1String("__"), QLatin1String("~~"), QLatin1String("`")}) {
        plain.remove(mark);
    }
    return trimmedOfSpacesAndTabs(withoutItalicMarks(plain)).toString();
}

}  // namespace

QString plainText(QStringView markdown) {
    QString plain;
    for (const QStringView line : markdown.split(u'\n', Qt::SkipEmptyParts)) {
        const QString one = plainLine(line);
        if (one.isEmpty()) continue;
        if (!plain.isEmpty()) plain += QLatin1String("  ");
        plain += one;
    }
    return plain;
}

}  // namespace diary::MarkdownEditing
