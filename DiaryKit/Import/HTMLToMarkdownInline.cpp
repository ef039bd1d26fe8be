// Text within a line: emphasis, code, links, to-do boxes and line breaks.
#include <QtCore/QStringBuilder>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/HTMLToMarkdownParts.h"

namespace diary::HTMLToMarkdown {

namespace {

const QLatin1String kTodoDone("[x] ");
const QLatin1String kTodoOpen("[ ] ");

QString inlineOfChildren(const HTMLNode& node, Nesting nesting);

// Runs of tabs, line ends and blanks become one blank.
void appendCollapsed(QStringView text, QString& out) {
    bool isBehindBlank = false;
    for (const QChar unit : text) {
        const bool isBlank = unit == u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r';
        if (isBlank && !isBehindBlank) out += u' ';
        if (!isBlank) out += unit;
        isBehindBlank = isBlank;
    }
}

// Blanks at the ends stay outside of the marks, so that these close tightly on the text.
void appendWrapped(const HTMLNode& node, QLatin1String mark, Nesting nesting, QString& out) {
    const QString content = inlineOfChildren(node, nesting.deeper());
    if (text::trimmedOfBlanks(content).isEmpty()) {
        out += content;
        return;
    }
    qsizetype start = 0;
    qsizetype end = content.size();
    while (start < end && content[start] == u' ') ++start;
    while (end > start && content[end - 1] == u' ') --end;
    const QStringView whole(content);
    out += whole.first(start) % mark % whole.sliced(start, end - start) % mark % whole.sliced(end);
}

void appendLink(const HTMLNode& node, Nesting nesting, QString& out) {
    const QString content = inlineOfChildren(node, nesting.deeper());
    const QStringView text = text::trimmedOfBlanks(content);
    const QStringView target = node.attribute(u"href").value_or(QStringView());
    const bool leadsNowhere = target.isEmpty() || target.startsWith(u'#') ||
                              target.startsWith(u"javascript:", Qt::CaseInsensitive);
    if (leadsNowhere || text == target) {
        out += text;
    } else if (text.isEmpty()) {
        out += target;
    } else {
        out += u'[' % text % QLatin1String("](") % target % u')';
    }
}

void appendBlockInline(const HTMLNode& node, Nesting nesting, QString& out) {
    out += u'\n' % blocksBelow(node, nesting.deeper()).join(u'\n') % u'\n';
}

// Writes the node and answers whether its children are still to be written: those of a tag that
// means nothing here, and of one that lies too deep.
bool appendOpening(const HTMLNode& node, Nesting nesting, QString& out) {
    switch (node.role()) {
        case HTMLRole::Text:
            appendCollapsed(node.text(), out);
            return false;
        case HTMLRole::LineBreak:
            out += u'\n';
            return false;
        case HTMLRole::Media:
            return false;
        case HTMLRole::Input:
            if (isCheckbox(node)) out += todo(node.hasAttribute(u"checked"));
            return false;
        case HTMLRole::Todo:
            out += todo(node.attribute(u"checked") == u"true");
            return false;
        case HTMLRole::Plain:
            return true;
        default:
            break;
    }
    if (nesting.isExhausted()) {
        if (node.isBlock()) out += u'\n';
        return true;
    }
    switch (node.role()) {
        case HTMLRole::Bold:
            appendWrapped(node, QLatin1String("**"), nesting, out);
            break;
        case HTMLRole::Italic:
            appendWrapped(node, QLatin1String("*"), nesting, out);
            break;
        case HTMLRole::Strikethrough:
            appendWrapped(node, QLatin1String("~~"), nesting, out);
            break;
        case HTMLRole::Code:
            appendWrapped(node, QLatin1String("`"), nesting, out);
            break;
        case HTMLRole::Link:
            appendLink(node, nesting, out);
            break;
        default:
            appendBlockInline(node, nesting, out);
            break;
    }
    return false;
}

// Walks all that `appendOpening` leaves open, from `node` on, and not beyond `top`. Blocks that lie
// too deep end their line as they began it.
void appendOpened(const HTMLNode& top, Nesting nesting, QString& out) {
    const HTMLNode* node = top.firstChild();
    while (node) {
        if (appendOpening(*node, nesting, out) && node->firstChild()) {
            node = node->firstChild();
            continue;
        }
        while (!node->nextSibling() && node->parent() != &top) {
            node = node->parent();
            if (node->isBlock()) out += u'\n';
        }
        node = node->nextSibling();
    }
}

QString inlineOfChildren(const HTMLNode& node, Nesting nesting) {
    QString content;
    appendOpened(node, nesting, content);
    return content;
}

}  // namespace

void appendInline(const HTMLNode& node, Nesting nesting, QString& out) {
    if (!appendOpening(node, nesting, out)) return;
    appendOpened(node, nesting, out);
    if (node.isBlock()) out += u'\n';
}

QString onOneLine(QString text) {
    text.replace(u'\n', u' ');
    return text::trimmedOfBlanks(text).toString();
}

QString lineOfChildren(const HTMLNode& node, Nesting nesting) {
    return onOneLine(inlineOfChildren(node, nesting));
}

bool isCheckbox(const HTMLNode& node) {
    return node.role() == HTMLRole::Input && node.attribute(u"type") == u"checkbox";
}

QLatin1String todo(bool isDone) {
    return isDone ? kTodoDone : kTodoOpen;
}

}  // namespace diary::HTMLToMarkdown
