#include "DiaryKit/Import/HTMLToMarkdown.h"

#include <QtCore/QStringBuilder>
#include <limits>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/HTMLToMarkdownTrimming.h"

namespace diary::HTMLToMarkdown {

namespace {

using Into = HTMLNode::Into;

const QLatin1String kTodoDone("[x] ");
const QLatin1String kTodoOpen("[ ] ");

// How many constructs are around the one being written. Only they cost a step of the program's own
// stack; plain tags are walked through.
struct Nesting {
    int depth = 0;

    [[nodiscard]] bool isExhausted() const { return depth >= kMaxNesting; }
    [[nodiscard]] Nesting deeper() const { return {depth + 1}; }
};

void appendInline(const HTMLNode& node, Nesting nesting, QString& out);
QString inlineOfChildren(const HTMLNode& node, Nesting nesting);
QStringList blocksBelow(const HTMLNode& top, Nesting nesting);
void appendListLines(const HTMLNode& list, const QString& indent, Nesting nesting,
                     QStringList& lines);

QString onOneLine(QString text) {
    text.replace(u'\n', u' ');
    return text::trimmedOfBlanks(text).toString();
}

QString lineOfChildren(const HTMLNode& node, Nesting nesting) {
    return onOneLine(inlineOfChildren(node, nesting));
}

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

bool isCheckbox(const HTMLNode& node) {
    return node.role() == HTMLRole::Input && node.attribute(u"type") == u"checkbox";
}

QLatin1String todo(bool isDone) {
    return isDone ? kTodoDone : kTodoOpen;
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

void appendInline(const HTMLNode& node, Nesting nesting, QString& out) {
    if (!appendOpening(node, nesting, out)) return;
    appendOpened(node, nesting, out);
    if (node.isBlock()) out += u'\n';
}

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

// The to-do state that a list item's own attributes tell.
std::optional<bool> todoStateOf(const HTMLNode& item) {
    const auto checked = item.attribute(u"data-checked");
    if (item.hasClass(u"checked") || checked == u"true") return true;
    if (item.hasClass(u"unchecked") || checked == u"false") return false;
    return std::nullopt;
}

class ListItem {
public:
    ListItem(const HTMLNode& item, const QString& marker, const QString& indent, Nesting nesting)
        : m_marker(marker), m_indent(indent), m_nesting(nesting), m_isDone(todoStateOf(item)) {
        const bool isTooWide = indent.size() + marker.size() > kMaxIndent;
        m_nestedIndent = isTooWide ? indent : indent + QString(marker.size(), u' ');
        for (const HTMLNode* child = item.firstChild(); child; child = child->nextSibling()) {
            add(*child);
        }
    }

    void appendTo(QStringList& lines) const {
        const QLatin1String state = m_isDone ? todo(*m_isDone) : QLatin1String();
        lines << m_indent % m_marker % state % onOneLine(m_text);
        lines += m_nested;
    }

private:
    void add(const HTMLNode& child) {
        const bool isList =
            child.role() == HTMLRole::UnorderedList || child.role() == HTMLRole::OrderedList;
        if (isList && !m_nesting.isExhausted()) {
            appendListLines(child, m_nestedIndent, m_nesting, m_nested);
        } else if (isCheckbox(child)) {
            m_isDone = child.hasAttribute(u"checked");
        } else if (child.isBlock()) {
            addBlock(child);
        } else {
            appendInline(child, m_nesting, m_text);
        }
    }

    void addBlock(const HTMLNode& child) {
        if (!m_text.isEmpty()) m_text += u' ';
        m_text += blocksBelow(child, m_nesting.deeper()).join(u' ');
        const HTMLNode* checkbox = child.first(isCheckbox);
        if (checkbox) m_isDone = checkbox->hasAttribute(u"checked");
    }

    QString m_marker;
    QString m_indent;
    QString m_nestedIndent;
    Nesting m_nesting;
    std::optional<bool> m_isDone;
    QString m_text;
    QStringList m_nested;
};

// A whole number with an optional sign, in ASCII digits.
qint64 firstNumber(const HTMLNode& list) {
    const QStringView start = list.attribute(u"start").value_or(QStringView());
    const bool isNumber = !start.isEmpty() && std::all_of(start.begin(), start.end(), [](QChar c) {
        return (c >= u'0' && c <= u'9') || c == u'-' || c == u'+';
    });
    bool isValid = false;
    const qint64 number = start.toLongLong(&isValid);
    return isNumber && isValid ? number : 1;
}

void appendListLines(const HTMLNode& list, const QString& indent, Nesting nesting,
                     QStringList& lines) {
    const bool isOrdered = list.role() == HTMLRole::OrderedList;
    qint64 number = isOrdered ? firstNumber(list) : 0;
    for (const HTMLNode* child = list.firstChild(); child; child = child->nextSibling()) {
        if (child->role() != HTMLRole::ListItem) continue;
        const QString marker =
            isOrdered ? QString::number(number) + QLatin1String(". ") : QStringLiteral("- ");
        ListItem(*child, marker, indent, nesting.deeper()).appendTo(lines);
        if (number < std::numeric_limits<qint64>::max()) ++number;
    }
}

QString joinedLines(const HTMLNode& list, Nesting nesting) {
    QStringList lines;
    appendListLines(list, QString(), nesting, lines);
    return lines.join(u'\n');
}

QString itemOutsideList(const HTMLNode& item, Nesting nesting) {
    QStringList lines;
    ListItem(item, QStringLiteral("- "), QString(), nesting.deeper()).appendTo(lines);
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

}  // namespace

QStringList blocks(const HTMLNode& node) {
    return blocksBelow(node, {});
}

QString inlineText(const HTMLNode& node) {
    return lineOfChildren(node, {});
}

QString markdown(const HTMLNode& node) {
    return tidy(blocks(node).join(QLatin1String("\n\n")));
}

}  // namespace diary::HTMLToMarkdown
