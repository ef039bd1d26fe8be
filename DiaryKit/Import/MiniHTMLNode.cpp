#include "DiaryKit/Import/MiniHTML.h"

namespace diary {

std::optional<QStringView> HTMLNode::attribute(QStringView name) const {
    for (const HTMLAttribute* one = m_lastAttribute; one; one = one->previous) {
        if (one->name == name) return one->value;
    }
    return std::nullopt;
}

QMap<QString, QString> HTMLNode::attributes() const {
    QMap<QString, QString> all;
    for (const HTMLAttribute* one = m_lastAttribute; one; one = one->previous) {
        const QString name = one->name.toString();
        if (!all.contains(name)) all.insert(name, one->value.toString());
    }
    return all;
}

QStringList HTMLNode::classes() const {
    const QStringView value = attribute(u"class").value_or(QStringView());
    return value.toString().split(u' ', Qt::SkipEmptyParts);
}

bool HTMLNode::hasClass(QStringView name) const {
    const QStringView value = attribute(u"class").value_or(QStringView());
    for (const QStringView one : value.tokenize(u' ', Qt::SkipEmptyParts)) {
        if (one == name) return true;
    }
    return false;
}

const HTMLNode* HTMLNode::next(const HTMLNode& top, Into into) const {
    if (into == Into::Yes && m_firstChild) return m_firstChild;
    for (const HTMLNode* node = this; node != &top; node = node->m_parent) {
        if (node->m_nextSibling) return node->m_nextSibling;
    }
    return nullptr;
}

QString HTMLNode::textContent() const {
    if (isText()) return m_text.toString();
    QString content;
    for (const HTMLNode* node = next(*this); node; node = node->next(*this)) {
        if (node->isText()) content += node->m_text;
        if (node->m_role == HTMLRole::LineBreak) content += u'\n';
    }
    return content;
}

std::vector<const HTMLNode*> HTMLNode::all(const Test& test) const {
    std::vector<const HTMLNode*> found;
    for (const HTMLNode* node = next(*this); node; node = node->next(*this)) {
        if (test(*node)) found.push_back(node);
    }
    return found;
}

std::vector<const HTMLNode*> HTMLNode::allOfTag(QStringView tag) const {
    return all([&](const HTMLNode& node) { return !node.isText() && node.m_tag == tag; });
}

std::vector<const HTMLNode*> HTMLNode::allOfClass(QStringView name) const {
    return all([&](const HTMLNode& node) { return node.hasClass(name); });
}

const HTMLNode* HTMLNode::first(const Test& test) const {
    const HTMLNode* node = next(*this);
    while (node && !test(*node)) node = node->next(*this);
    return node;
}

const HTMLNode* HTMLNode::firstOfClass(QStringView name) const {
    return first([&](const HTMLNode& node) { return node.hasClass(name); });
}

}  // namespace diary
