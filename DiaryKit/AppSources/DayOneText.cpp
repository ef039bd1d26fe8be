// The cleaning of an entry's text. Links are sought by hand rather than by regular expressions,
// whose time grows with the square of a text full of opening brackets.
#include "DiaryKit/AppSources/DayOneSource.h"
#include "DiaryKit/Foundation/LineEnds.h"
#include "DiaryKit/Import/HTMLToMarkdown.h"

namespace diary::DayOneSource {

namespace {

enum class LinkKind {
    // ![…](dayone-moment:…), with or without the exclamation mark: an entry's own media.
    Media,
    // […](dayone://…) or […](dayone2://…), with a text: another entry.
    Entry
};

// The length of "(" and the address's beginning, if the text begins with one of that kind.
qsizetype openingLength(QStringView text, LinkKind kind) {
    static constexpr QStringView kMedia = u"(dayone-moment:";
    static constexpr QStringView kEntry = u"(dayone://";
    static constexpr QStringView kEntry2 = u"(dayone2://";
    if (kind == LinkKind::Media) return text.startsWith(kMedia) ? kMedia.size() : 0;
    if (text.startsWith(kEntry)) return kEntry.size();
    return text.startsWith(kEntry2) ? kEntry2.size() : 0;
}

// Replaces the links of the kind: media by nothing, links to entries by their texts. A link's text
// reaches from the first '[' behind the last ']' to the next ']', so each ']' is looked at once.
QString withoutLinks(QStringView text, LinkKind kind) {
    QString kept;
    qsizetype copied = 0;
    qsizetype open = -1;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] == u'[' && open < 0) open = at;
        if (text[at] != u']' || open < 0) continue;
        const QStringView label = text.sliced(open + 1, at - open - 1);
        const qsizetype opening = openingLength(text.sliced(at + 1), kind);
        qsizetype start = open;
        open = -1;
        if (opening == 0 || (kind == LinkKind::Entry && label.isEmpty())) continue;
        const qsizetype close = text.indexOf(u')', at + 1 + opening);
        // Without a bracket to close this one, no later link can be closed either.
        if (close < 0) break;
        if (kind == LinkKind::Media && start > copied && text[start - 1] == u'!') --start;
        kept.append(text.sliced(copied, start - copied));
        if (kind == LinkKind::Entry) kept.append(label);
        copied = close + 1;
        at = close;
    }
    return kept.append(text.sliced(copied));
}

bool isEscapable(QChar c) {
    return QStringView(u".()!-+{}=~|,:?'\"").contains(c);
}

// Where the run of number characters that begins at `from` ends.
qsizetype endOfNumbers(QStringView line, qsizetype from) {
    qsizetype at = from;
    while (at < line.size()) {
        const bool isPair = line[at].isHighSurrogate() && at + 1 < line.size();
        const char32_t character =
            isPair ? QChar::surrogateToUcs4(line[at], line[at + 1]) : char32_t(line[at].unicode());
        const QChar::Category category = QChar::category(character);
        if (category != QChar::Number_DecimalDigit && category != QChar::Number_Letter &&
            category != QChar::Number_Other) {
            break;
        }
        at += isPair ? 2 : 1;
    }
    return at;
}

// Without the backslash "1\." would begin a numbered list and "\-" a plain one.
void appendUnescaped(QString& out, QStringView line) {
    qsizetype start = 0;
    while (start < line.size() && line[start] == u' ') ++start;
    const qsizetype numbersEnd = endOfNumbers(line, start);
    for (qsizetype at = 0; at < line.size(); ++at) {
        const bool isEscape =
            line[at] == u'\\' && at + 1 < line.size() && isEscapable(line[at + 1]);
        if (isEscape) {
            const QChar escaped = line[at + 1];
            const bool keepsNumber = escaped == u'.' && numbersEnd > start && at == numbersEnd;
            const bool keepsBullet = (escaped == u'-' || escaped == u'+') && at == start;
            if (keepsNumber || keepsBullet) out.append(line[at]);
            out.append(escaped);
            ++at;
            continue;
        }
        out.append(line[at]);
    }
}

}  // namespace

QString cleanText(QStringView text) {
    QString linked = text::withoutCarriageReturnPairs(text.toString());
    linked = withoutLinks(withoutLinks(linked, LinkKind::Media), LinkKind::Entry);
    QString unescaped;
    unescaped.reserve(linked.size());
    qsizetype lineStart = 0;
    for (const QStringView line : QStringView(linked).tokenize(u'\n')) {
        if (lineStart > 0) unescaped.append(u'\n');
        appendUnescaped(unescaped, line);
        lineStart += line.size() + 1;
    }
    return HTMLToMarkdown::tidy(unescaped);
}

}  // namespace diary::DayOneSource
