// The first elements of some classes below others: the time and the content of each memo of a page.
// Asking each memo by itself would search the same elements again for every memo around them, and
// pages that forget to close their tags nest thousands of memos in one another. One walk answers
// for all of them.
#pragma once

#include <QtCore/QStringView>
#include <array>
#include <deque>
#include <optional>
#include <vector>

#include "DiaryKit/Import/MiniHTML.h"

namespace diary {

// An element of a page. Its descendants, and only they, are at positions from `begin` to before
// `end`, in document order.
struct HTMLPart {
    const HTMLNode* node = nullptr;
    qsizetype begin = 0;
    qsizetype end = 0;
};

class HTMLParts {
public:
    static constexpr std::size_t kClasses = 3;
    using Classes = std::array<QStringView, kClasses>;

    // An element of the kind that was asked for, and its first part of each class, if it has one.
    struct Holder {
        const HTMLNode* node = nullptr;
        std::array<const HTMLPart*, kClasses> parts = {};
    };

    // Whether a holder that has the class is its own part of that class.
    enum class OwnClass : uint8_t { Counts, DoesNotCount };

    // Looks through all below `root`, in time linear in its nodes. Valid while the document lives.
    HTMLParts(const HTMLNode& root, const HTMLNode::Test& isHolder, const Classes& classes,
              OwnClass ownClass);
    HTMLParts(const HTMLParts&) = delete;
    HTMLParts& operator=(const HTMLParts&) = delete;
    ~HTMLParts() = default;

    // In document order.
    [[nodiscard]] const std::vector<Holder>& holders() const { return m_holders; }
    // The positions of all elements of a tag, ascending.
    [[nodiscard]] static std::vector<qsizetype> positions(const HTMLNode& root, QStringView tag);

private:
    void enter(const HTMLNode& node, const HTMLNode::Test& isHolder, OwnClass ownClass);
    void leave(const HTMLNode& node);
    void openHolder(const HTMLNode& node);
    void giveParts(const HTMLNode& node);

    Classes m_classes;
    qsizetype m_position = 0;
    std::vector<Holder> m_holders;
    // A deque, since holders point into it.
    std::deque<HTMLPart> m_parts;
    std::vector<std::size_t> m_openHolders;
    std::vector<HTMLPart*> m_openParts;
    // For each class the open holders that still lack a part of it.
    std::array<std::vector<std::size_t>, kClasses> m_lacking;
};

// Keeps parts within one another from repeating the same text for each of them: a part that lies
// within kMost others is turned away, and its text stands in theirs.
class NestingBound {
public:
    static constexpr std::size_t kMost = 8;

    // Parts come in document order. The ones turned away don't count as being around later ones.
    [[nodiscard]] bool admits(const HTMLPart& part);

private:
    std::vector<qsizetype> m_ends;
};

}  // namespace diary
