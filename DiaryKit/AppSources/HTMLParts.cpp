#include "DiaryKit/AppSources/HTMLParts.h"

namespace diary {

HTMLParts::HTMLParts(const HTMLNode& root, const HTMLNode::Test& isHolder, const Classes& classes,
                     OwnClass ownClass)
    : m_classes(classes) {
    const HTMLNode* node = root.firstChild();
    while (node) {
        ++m_position;
        enter(*node, isHolder, ownClass);
        if (node->firstChild()) {
            node = node->firstChild();
            continue;
        }
        leave(*node);
        while (!node->nextSibling() && node->parent() != &root) {
            node = node->parent();
            leave(*node);
        }
        node = node->nextSibling();
    }
}

std::vector<qsizetype> HTMLParts::positions(const HTMLNode& root, QStringView tag) {
    std::vector<qsizetype> found;
    qsizetype position = 0;
    for (const HTMLNode* node = root.next(root); node; node = node->next(root)) {
        ++position;
        if (!node->isText() && node->tag() == tag) found.push_back(position);
    }
    return found;
}

void HTMLParts::enter(const HTMLNode& node, const HTMLNode::Test& isHolder, OwnClass ownClass) {
    if (node.isText()) return;
    const bool opensHolder = isHolder(node);
    if (opensHolder && ownClass == OwnClass::Counts) openHolder(node);
    giveParts(node);
    if (opensHolder && ownClass == OwnClass::DoesNotCount) openHolder(node);
}

void HTMLParts::openHolder(const HTMLNode& node) {
    for (std::vector<std::size_t>& lacking : m_lacking) lacking.push_back(m_holders.size());
    m_openHolders.push_back(m_holders.size());
    m_holders.push_back({.node = &node});
}

// All open holders are around the node, so it is the first part of each that still lacks one.
void HTMLParts::giveParts(const HTMLNode& node) {
    HTMLPart* part = nullptr;
    for (std::size_t index = 0; index < kClasses; ++index) {
        std::vector<std::size_t>& lacking = m_lacking[index];
        if (lacking.empty() || !node.hasClass(m_classes[index])) continue;
        if (!part) {
            part = &m_parts.emplace_back(HTMLPart{.node = &node, .begin = m_position + 1});
            m_openParts.push_back(part);
        }
        for (const std::size_t holder : lacking) m_holders[holder].parts[index] = part;
        lacking.clear();
    }
}

void HTMLParts::leave(const HTMLNode& node) {
    if (!m_openParts.empty() && m_openParts.back()->node == &node) {
        m_openParts.back()->end = m_position + 1;
        m_openParts.pop_back();
    }
    if (m_openHolders.empty() || m_holders[m_openHolders.back()].node != &node) return;
    for (std::vector<std::size_t>& lacking : m_lacking) {
        if (!lacking.empty() && lacking.back() == m_openHolders.back()) lacking.pop_back();
    }
    m_openHolders.pop_back();
}

bool NestingBound::admits(const HTMLPart& part) {
    while (!m_ends.empty() && m_ends.back() < part.begin) m_ends.pop_back();
    if (m_ends.size() >= kMost) return false;
    m_ends.push_back(part.end);
    return true;
}

}  // namespace diary
