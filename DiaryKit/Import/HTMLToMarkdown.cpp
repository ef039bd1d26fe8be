#include "DiaryKit/Import/HTMLToMarkdown.h"

#include <QtCore/QStringBuilder>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/HTMLToMarkdownParts.h"
#include "DiaryKit/Import/HTMLToMarkdownTrimming.h"

namespace diary::HTMLToMarkdown {

namespace {

// Gathers what stands between two blocks, and makes a block of it.
struct Paragraph {
    QString text;

    void flushInto(QStringList& blocks) {
        if (text.isEmpty()) return;
        QString lines;
        lines.reserve(text.size());
        bool isFirst = true;
        for (const QStringView line : QStringView(text).tokenize(u'\n')) {
            if (!isFirst) lines += u'\n';
            lines += text::trimmedOfBlanks(line);
            isFirst = false;
        }
        const QStringView block = text::trimmed(lines);
        if (!block.isEmpty()) blocks << block.toString();
        text.clear();
    }
};

QString joinedLines(const HTMLNode& list, Nesting nesting) {
    QStringList lines;
    appendListLines(list, QString(), nesting, lines);
    return lines.join(u'\n');
}

QString heading(const HTMLNode& node, Nesting nesting) {
    const QString text = lineOfChildren(node, nesting.deeper());
    if (text.isEmpty()) return {};
    return QString(node.tag().back().unicode() - u'0', u'#') % u' ' % text;
}

QString quote(const HTMLNode& node, Nesting nesting) {
    const QStringList inner = blocksBelow(node, nesting.deeper());
    if (inner.isEmpty()) return {};
    const QString joined = inner.join(QLatin1String("\n\n"));
    QString quoted;
    quoted.reserve(joined.size() + 2 * joined.count(u'\n') + 2);
    for (qsizetype start = 0; start <= joined.size();) {
        const qsizetype found = joined.indexOf(u'\n', start);
        const qsizetype end = found < 0 ? joined.size() : found;
        if (start > 0) quoted += u'\n';
        quoted += end == start ? QLatin1String(">") : QLatin1String("> ");
        quoted += QStringView(joined).sliced(start, end - start);
        start = end + 1;
    }
    return quoted;
}

QString codeBlock(const HTMLNode& node) {
    const QString content = node.textContent();
    const QStringView code = trimmedOfNewlines(content);
    if (code.isEmpty()) return {};
    return QLatin1String("```\n") % code % QLatin1String("\n```");
}

QString rows(const HTMLNode& table, Nesting nesting) {
    QStringList written;
    for (const HTMLNode* node = table.next(table); node; node = node->next(table)) {
        if (node->role() != HTMLRole::Row || node->rowDepth() > kMaxRowDepth) continue;
        QStringList cells;
        for (const HTMLNode* cell = node->firstChild(); cell; cell = cell->nextSibling()) {
            if (cell->role() == HTMLRole::Cell) cells << lineOfChildren(*cell, nesting.deeper());
        }
        const QString row = cells.join(QLatin1String(" | "));
        if (!row.isEmpty()) written << row;
    }
    return written.join(u'\n');
}

// Whether the tag only separates blocks; those inside it stand where it stands.
bool isTransparent(const HTMLNode& node, Nesting nesting) {
    switch (node.role()) {
        case HTMLRole::Division:
        case HTMLRole::Row:
        case HTMLRole::Cell:
            return true;
        case HTMLRole::Rule:
            return false;
        case HTMLRole::Table:
            return nesting.isExhausted() || node.rowDepth() >= kMaxRowDepth;
        default:
            return nesting.isExhausted();
    }
}

// Empty if the node makes no block.
QString block(const HTMLNode& node, Nesting nesting) {
    switch (node.role()) {
        case HTMLRole::Heading:
            return heading(node, nesting);
        case HTMLRole::UnorderedList:
        case HTMLRole::OrderedList:
            return joinedLines(node, nesting);
        case HTMLRole::ListItem:
            return itemOutsideList(node, nesting);
        case HTMLRole::Quote:
            return quote(node, nesting);
        case HTMLRole::Preformatted:
            return codeBlock(node);
        case HTMLRole::Rule:
            return QStringLiteral("---");
        default:
            return rows(node, nesting);
    }
}

// Writes the node and answers whether its children are to be written in its place.
bool appendBlock(const HTMLNode& node, Nesting nesting, Paragraph& pending, QStringList& blocks) {
    if (!node.isBlock()) {
        appendInline(node, nesting, pending.text);
        return false;
    }
    pending.flushInto(blocks);
    if (isTransparent(node, nesting)) return true;
    const QString made = block(node, nesting);
    if (!made.isEmpty()) blocks << made;
    return false;
}

}  // namespace

QStringList blocksBelow(const HTMLNode& top, Nesting nesting) {
    QStringList blocks;
    Paragraph pending;
    const HTMLNode* node = top.firstChild();
    while (node) {
        if (appendBlock(*node, nesting, pending, blocks) && node->firstChild()) {
            node = node->firstChild();
            continue;
        }
        while (!node->nextSibling() && node->parent() != &top) {
            node = node->parent();
            pending.flushInto(blocks);
        }
        node = node->nextSibling();
    }
    pending.flushInto(blocks);
    return blocks;
}

QStringList blocks(const HTMLNode& node) {
    return blocksBelow(node, {});
}

QString inlineText(const HTMLNode& node) {
    return lineOfChildren(node, {});
}

QString markdown(const HTMLNode& node) {
    return tidy(blocks(node).join(QLatin1String("\n\n")));
}

QString markdown(const QString& html) {
    return markdown(MiniHTML::parse(html).root());
}

}  // namespace diary::HTMLToMarkdown
