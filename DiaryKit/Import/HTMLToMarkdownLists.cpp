// Lists, with what HTML has of to-do lists.
#include <QtCore/QStringBuilder>
#include <algorithm>
#include <limits>
#include <optional>

#include "DiaryKit/Import/HTMLToMarkdownParts.h"

namespace diary::HTMLToMarkdown {

namespace {

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

}  // namespace

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

QString itemOutsideList(const HTMLNode& item, Nesting nesting) {
    QStringList lines;
    ListItem(item, QStringLiteral("- "), QString(), nesting.deeper()).appendTo(lines);
    return lines.join(u'\n');
}

}  // namespace diary::HTMLToMarkdown
