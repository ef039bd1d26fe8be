// A small, tolerant HTML reader: any text gives a tree, none is refused. It knows what a diary's
// export needs (which tags are void, which open blocks, which close one another) and no more of
// the HTML standard. What becomes of a tree in Markdown is HTMLToMarkdown.h.
//
// Nodes lie in their document one after the other, so neither parsing nor freeing recurses, and a
// tree may be as deep as the input is long.
#pragma once

#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QStringView>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <vector>

namespace diary {

// What a tag means to the converter. Everything from Division on opens a block.
enum class HTMLRole : uint8_t {
    Text,
    Plain,
    LineBreak,
    Media,
    Bold,
    Italic,
    Strikethrough,
    Code,
    Link,
    Input,
    Todo,
    Division,
    Heading,
    UnorderedList,
    OrderedList,
    ListItem,
    Quote,
    Preformatted,
    Rule,
    Table,
    Row,
    Cell,
};

// An attribute of a tag; the ones ahead of it in the tag follow by `previous`.
struct HTMLAttribute {
    QStringView name;
    QStringView value;
    const HTMLAttribute* previous = nullptr;
};

// An element, a text, or the root of a document. It belongs to its document and is only valid while
// that lives; the views that it gives out are too. Any number of threads may read it.
class HTMLNode {
public:
    using Test = std::function<bool(const HTMLNode&)>;

    // The tag in lower case; empty for a text and for the root.
    [[nodiscard]] QStringView tag() const { return m_tag; }
    [[nodiscard]] HTMLRole role() const { return m_role; }
    [[nodiscard]] bool isText() const { return m_role == HTMLRole::Text; }
    [[nodiscard]] bool isBlock() const { return m_role >= HTMLRole::Division; }
    // The number of table rows at and above this node, at most 255.
    [[nodiscard]] int rowDepth() const { return m_rowDepth; }

    // A text node's text, entities decoded; empty for all others.
    [[nodiscard]] QStringView text() const { return m_text; }

    // The attribute's value, entities decoded; of a repeated attribute the last. `name` in lower
    // case. An attribute without a value has the empty one.
    [[nodiscard]] std::optional<QStringView> attribute(QStringView name) const;
    [[nodiscard]] bool hasAttribute(QStringView name) const { return attribute(name).has_value(); }
    [[nodiscard]] QMap<QString, QString> attributes() const;

    // The `class` attribute, split at blanks; in its order.
    [[nodiscard]] QStringList classes() const;
    [[nodiscard]] bool hasClass(QStringView name) const;

    [[nodiscard]] const HTMLNode* parent() const { return m_parent; }
    [[nodiscard]] const HTMLNode* firstChild() const { return m_firstChild; }
    [[nodiscard]] const HTMLNode* nextSibling() const { return m_nextSibling; }
    // The node that follows in document order below `top`, or nothing at the end. `Into::No` passes
    // over this node's own descendants.
    enum class Into : uint8_t { Yes, No };
    [[nodiscard]] const HTMLNode* next(const HTMLNode& top, Into into = Into::Yes) const;

    // The text below this node, with a line end for each "br".
    //   "<p>a<br>b <i>c</i></p>" -> "a\nb c"
    [[nodiscard]] QString textContent() const;

    // The descendants that pass the test, in document order; the node itself isn't looked at.
    [[nodiscard]] std::vector<const HTMLNode*> all(const Test& test) const;
    [[nodiscard]] std::vector<const HTMLNode*> allOfTag(QStringView tag) const;
    [[nodiscard]] std::vector<const HTMLNode*> allOfClass(QStringView name) const;
    // The first of them, or nothing.
    [[nodiscard]] const HTMLNode* first(const Test& test) const;
    [[nodiscard]] const HTMLNode* firstOfClass(QStringView name) const;

private:
    friend class HTMLTreeBuilder;

    QStringView m_tag;
    QStringView m_text;
    const HTMLAttribute* m_lastAttribute = nullptr;
    HTMLNode* m_parent = nullptr;
    HTMLNode* m_firstChild = nullptr;
    HTMLNode* m_lastChild = nullptr;
    HTMLNode* m_nextSibling = nullptr;
    HTMLRole m_role = HTMLRole::Division;
    uint8_t m_rowDepth = 0;
};

// A parsed text and all nodes of its tree.
class HTMLDocument {
public:
    HTMLDocument(HTMLDocument&&) = default;
    HTMLDocument& operator=(HTMLDocument&&) = default;
    HTMLDocument(const HTMLDocument&) = delete;
    HTMLDocument& operator=(const HTMLDocument&) = delete;
    ~HTMLDocument() = default;

    // The node above all others. Its tag is empty.
    [[nodiscard]] const HTMLNode& root() const { return m_nodes.front(); }

private:
    friend class HTMLTreeBuilder;
    explicit HTMLDocument(const QString& source) : m_source(source) { m_nodes.emplace_back(); }

    // What views look into: the source itself, and whatever had to be rewritten.
    QString m_source;
    std::deque<QString> m_rewritten;
    std::deque<HTMLAttribute> m_attributes;
    std::deque<HTMLNode> m_nodes;
};

namespace MiniHTML {

// The tree of a text. Never fails; what is broken gives a smaller tree. Linear in time and memory,
// whatever the input. Pure; any thread.
[[nodiscard]] HTMLDocument parse(const QString& html);

// The text with its entities decoded, once. Unknown ones stay as they are.
//   "&amp;lt; &unknown; &#x41;" -> "&lt; &unknown; A"
[[nodiscard]] QString decodeEntities(QStringView text);

}  // namespace MiniHTML
}  // namespace diary
