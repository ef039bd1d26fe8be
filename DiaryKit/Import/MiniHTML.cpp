#include "DiaryKit/Import/MiniHTML.h"

#include <QtCore/QHash>
#include <algorithm>

#include "DiaryKit/Import/MiniHTMLTags.h"

namespace diary {

namespace {

using minihtml::TagEnd;

constexpr int kNone = -1;

bool isNameUnit(QChar unit) {
    const char16_t code = unit.unicode();
    return (code >= u'a' && code <= u'z') || (code >= u'A' && code <= u'Z') ||
           (code >= u'0' && code <= u'9') || code == u':' || code == u'-';
}

bool isSpace(QChar unit) {
    const char16_t code = unit.unicode();
    return code == u' ' || code == u'\n' || code == u'\t' || code == u'\r' || code == u'\f';
}

bool isUpperOrBeyondAscii(QChar unit) {
    return (unit >= u'A' && unit <= u'Z') || unit >= u'\x80';
}

// The behind-the-end of the first "</" + name at or behind `from`, in any ASCII case; -1 if none.
qsizetype endOfRawText(QStringView html, QStringView name, qsizetype from) {
    for (qsizetype at = html.indexOf(u"</", from); at >= 0; at = html.indexOf(u"</", at + 2)) {
        const QStringView found = html.sliced(at + 2).left(name.size());
        if (minihtml::knownTagNumber(found) == minihtml::knownTagNumber(name)) return at;
    }
    return kNone;
}

}  // namespace

// Reads the source from its start to its end, once. For each tag it knows the topmost open node, so
// that closing one never searches the stack: a stack of a hundred thousand stays linear.
class HTMLTreeBuilder {
public:
    explicit HTMLTreeBuilder(const QString& source)
        : m_document(source),
          m_html(m_document.m_source),
          m_topmost(static_cast<size_t>(minihtml::knownTagCount()), kNone) {
        m_open.push_back({&m_document.m_nodes.front(), kNone, kNone});
    }

    HTMLDocument build() {
        while (m_at + 1 < m_html.size()) {
            const qsizetype sign = m_html.indexOf(u'<', m_at);
            if (sign < 0 || sign + 1 == m_html.size()) break;
            consumeMarkup(sign);
        }
        flushText(m_html.size());
        return std::move(m_document);
    }

private:
    struct OpenNode {
        HTMLNode* node = nullptr;
        int tag = kNone;
        // Where in the stack the next node of the same tag lies below this one.
        int below = kNone;
    };

    struct Tag {
        QStringView name;
        bool isSelfClosed = false;
        const HTMLAttribute* lastAttribute = nullptr;
    };

    void consumeMarkup(qsizetype sign) {
        const QChar behind = m_html[sign + 1];
        if (behind == u'?' || behind == u'!') return consumeDeclaration(sign);
        const bool isClosing = behind == u'/';
        const qsizetype start = sign + (isClosing ? 2 : 1);
        if (start >= m_html.size() || !isNameUnit(m_html[start])) {
            m_at = sign + 1;
            return;
        }
        flushText(sign);
        const Tag tag = consumeTag(start);
        if (isClosing) {
            close(numberOf(tag.name));
        } else {
            open(tag);
        }
        m_textStart = m_at;
    }

    void consumeDeclaration(qsizetype sign) {
        flushText(sign);
        constexpr QStringView kComment = u"<!--";
        constexpr QStringView kCommentEnd = u"-->";
        if (m_html.sliced(sign).startsWith(kComment)) {
            skipBehind(m_html.indexOf(kCommentEnd, sign + kComment.size()), kCommentEnd.size());
        } else {
            skipBehind(m_html.indexOf(u'>', sign), 1);
        }
    }

    // Goes on behind what was found, or drops the rest of the source if it wasn't.
    void skipBehind(qsizetype found, qsizetype length) {
        m_at = found < 0 ? m_html.size() : found + length;
        m_textStart = m_at;
    }

    Tag consumeTag(qsizetype start) {
        Tag tag;
        m_at = start;
        while (m_at < m_html.size() && isNameUnit(m_html[m_at])) ++m_at;
        tag.name = m_html.sliced(start, m_at - start);
        while (m_at < m_html.size()) {
            const QChar unit = m_html[m_at];
            if (unit == u'>') {
                ++m_at;
                break;
            }
            if (unit == u'/' || isSpace(unit)) {
                ++m_at;
                tag.isSelfClosed = unit == u'/' && m_at < m_html.size() && m_html[m_at] == u'>';
            } else {
                tag.lastAttribute = consumeAttribute(tag.lastAttribute);
            }
        }
        return tag;
    }

    const HTMLAttribute* consumeAttribute(const HTMLAttribute* previous) {
        const qsizetype start = m_at;
        while (m_at < m_html.size() && !isSpace(m_html[m_at]) && m_html[m_at] != u'=' &&
               m_html[m_at] != u'>' && m_html[m_at] != u'/') {
            ++m_at;
        }
        const QStringView name = m_html.sliced(start, m_at - start);
        skipSpaces();
        QStringView value;
        if (m_at < m_html.size() && m_html[m_at] == u'=') {
            ++m_at;
            skipSpaces();
            value = consumeValue();
        }
        return &m_document.m_attributes.emplace_back(
            HTMLAttribute{lowered(name), decoded(value), previous});
    }

    void skipSpaces() {
        while (m_at < m_html.size() && isSpace(m_html[m_at])) ++m_at;
    }

    QStringView consumeValue() {
        if (m_at == m_html.size()) return {};
        const QChar quote = m_html[m_at];
        const qsizetype size = m_html.size();
        if (quote == u'"' || quote == u'\'') {
            const qsizetype start = m_at + 1;
            const qsizetype found = m_html.indexOf(quote, start);
            m_at = found < 0 ? size : found + 1;
            return m_html.sliced(start, (found < 0 ? size : found) - start);
        }
        const qsizetype start = m_at;
        while (m_at < size && !isSpace(m_html[m_at]) && m_html[m_at] != u'>') ++m_at;
        return m_html.sliced(start, m_at - start);
    }

    void open(const Tag& tag) {
        const int number = numberOf(tag.name, Unknown::Number);
        const bool isKnown = number < minihtml::knownTagCount();
        const minihtml::KnownTag known =
            isKnown ? minihtml::knownTag(number) : minihtml::KnownTag{lowered(tag.name)};
        if (known.end == TagEnd::Raw) return skipRawText(known.name);
        if (known.role >= HTMLRole::Division) close(s_paragraph);
        if (number == s_item) closeItem();
        HTMLNode& node = append(known.role);
        node.m_tag = known.name;
        node.m_lastAttribute = tag.lastAttribute;
        if (tag.isSelfClosed || known.end == TagEnd::Void) return;
        int& topmost = m_topmost[static_cast<size_t>(number)];
        m_open.push_back({&node, number, topmost});
        topmost = static_cast<int>(m_open.size()) - 1;
    }

    void skipRawText(QStringView name) {
        const qsizetype end = endOfRawText(m_html, name, m_at);
        skipBehind(end < 0 ? kNone : m_html.indexOf(u'>', end), 1);
    }

    // A new item closes the open one, but never one of an outer list.
    void closeItem() {
        const int item = topmost(s_item);
        if (item > std::max(topmost(s_unordered), topmost(s_ordered))) popDownTo(item);
    }

    void close(int number) {
        if (number != kNone && topmost(number) != kNone) popDownTo(topmost(number));
    }

    void popDownTo(int place) {
        while (static_cast<int>(m_open.size()) > place) {
            const OpenNode& top = m_open.back();
            m_topmost[static_cast<size_t>(top.tag)] = top.below;
            m_open.pop_back();
        }
    }

    [[nodiscard]] int topmost(int number) const { return m_topmost[static_cast<size_t>(number)]; }

    enum class Unknown : uint8_t { Ignore, Number };

    // Known tags have their fixed numbers; others are numbered as they come.
    int numberOf(QStringView name, Unknown unknown = Unknown::Ignore) {
        const int known = minihtml::knownTagNumber(name);
        if (known != kNone) return known;
        const QString lower = name.toString().toLower();
        const auto found = m_unknown.constFind(lower);
        if (found != m_unknown.constEnd()) return *found;
        if (unknown == Unknown::Ignore) return kNone;
        const int number = static_cast<int>(m_topmost.size());
        m_topmost.push_back(kNone);
        m_unknown.insert(lower, number);
        return number;
    }

    HTMLNode& append(HTMLRole role) {
        HTMLNode& parent = *m_open.back().node;
        HTMLNode& node = m_document.m_nodes.emplace_back();
        node.m_role = role;
        node.m_parent = &parent;
        const int rows = parent.m_rowDepth + (role == HTMLRole::Row ? 1 : 0);
        node.m_rowDepth = static_cast<uint8_t>(std::min(rows, 255));
        (parent.m_lastChild ? parent.m_lastChild->m_nextSibling : parent.m_firstChild) = &node;
        parent.m_lastChild = &node;
        return node;
    }

    void flushText(qsizetype end) {
        if (end > m_textStart) {
            append(HTMLRole::Text).m_text = decoded(m_html.sliced(m_textStart, end - m_textStart));
        }
        m_textStart = end;
    }

    QStringView decoded(QStringView text) {
        if (!text.contains(u'&')) return text;
        return m_document.m_rewritten.emplace_back(MiniHTML::decodeEntities(text));
    }

    QStringView lowered(QStringView name) {
        if (std::none_of(name.begin(), name.end(), isUpperOrBeyondAscii)) return name;
        return m_document.m_rewritten.emplace_back(name.toString().toLower());
    }

    static inline const int s_paragraph = minihtml::knownTagNumber(u"p");
    static inline const int s_item = minihtml::knownTagNumber(u"li");
    static inline const int s_unordered = minihtml::knownTagNumber(u"ul");
    static inline const int s_ordered = minihtml::knownTagNumber(u"ol");

    HTMLDocument m_document;
    QStringView m_html;
    qsizetype m_at = 0;
    qsizetype m_textStart = 0;
    std::vector<OpenNode> m_open;
    std::vector<int> m_topmost;
    QHash<QString, int> m_unknown;
};

HTMLDocument MiniHTML::parse(const QString& html) {
    return HTMLTreeBuilder(html).build();
}

}  // namespace diary
