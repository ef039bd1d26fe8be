#include "DiaryApp/Editor/MarkdownHighlighter.h"

#include <tuple>

namespace velmar {

namespace {

using diary::MarkdownAttributes;
using diary::MarkdownRun;
using diary::MarkdownStyling;
using diary::TextRange;
using Fence = BlockStyle::Fence;
namespace highlighting = diary::MarkdownHighlighting;

constexpr QStringView kFence = u"```";

// All that a format depends on. The indent isn't part of it.
quint32 key(const MarkdownAttributes& look) {
    quint32 key = static_cast<quint32>(look.font) | static_cast<quint32>(look.color) << 4U;
    for (const bool flag :
         {look.isBold, look.isOblique, look.isStruck, look.hasCodeBackground, look.isHidden}) {
        key = key << 1U | static_cast<quint32>(flag);
    }
    return key;
}

// Where a text grew or shrank at one place since its look was computed.
struct Shift {
    int at = 0;
    int removed = 0;
    int added = 0;

    [[nodiscard]] int start(int offset) const {
        if (offset < at) return offset;
        return qMax(at, offset - removed) + added;
    }
    [[nodiscard]] int end(int offset, bool grows) const {
        if (offset < at || (offset == at && !grows)) return offset;
        return qMax(at, offset - removed) + added;
    }
};

QStringView textOf(const QTextBlock& block, QStringView draft) {
    return draft.sliced(block.position(), block.length() - 1);
}

// The committed part of a composition stands right ahead of the part that is still composed.
Shift shiftOf(const QTextBlock& block, const BlockStyle& style) {
    const QTextLayout* layout = block.layout();
    const int grown = block.length() - 1 - style.length;
    const int position = layout->preeditAreaPosition();
    const int composed = static_cast<int>(layout->preeditAreaText().size());
    return {position - qMax(0, grown), qMax(0, -grown), qMax(0, grown) + composed};
}

}  // namespace

MarkdownHighlighter::MarkdownHighlighter(QTextDocument* document, const RhythmStyle& style)
    : m_document(document), m_style(&style) {}

void MarkdownHighlighter::setStyle(const RhythmStyle& style) {
    m_style = &style;
    m_made.clear();
}

const QTextCharFormat& MarkdownHighlighter::format(const MarkdownAttributes& attributes) const {
    const auto found = m_made.constFind(key(attributes));
    if (found != m_made.cend()) return *found;
    return *m_made.insert(key(attributes), m_style->format(attributes));
}

MarkdownHighlighter::Formats MarkdownHighlighter::formats(const MarkdownStyling& styling) const {
    Formats formats;
    formats.reserve(static_cast<qsizetype>(styling.runs.size()));
    for (const MarkdownRun& run : styling.runs) {
        QTextLayout::FormatRange range;
        range.start = static_cast<int>(run.range.location);
        range.length = static_cast<int>(run.range.length);
        range.format = format(run.attributes);
        formats.append(range);
    }
    return formats;
}

bool MarkdownHighlighter::follow(const QTextBlock& block, QStringView draft, Fence& fence) {
    const QStringView text = textOf(block, draft);
    BlockStyle* style = BlockStyle::of(block);
    if (style == nullptr) {
        style = new BlockStyle;
        QTextBlock(block).setUserData(style);
    }
    const auto part = [style] {
        return std::tuple(style->isFenced, style->fenceAhead, style->fenceBehind);
    };
    const auto before = part();
    style->fenceAhead = fence;
    style->fenceBehind = highlighting::fenceBehind(text, fence);
    style->isFenced = fence == Fence::Open || text.startsWith(kFence);
    fence = style->fenceBehind;
    return part() != before;
}

void MarkdownHighlighter::style(const QTextBlock& block, QStringView draft) {
    const QStringView text = textOf(block, draft);
    BlockStyle* style = BlockStyle::of(block);
    style->styling = highlighting::paragraph(text, style->fenceAhead, m_style->metrics());
    style->fenceOfLook = style->fenceAhead;
    style->length = static_cast<int>(text.size());
    // The layout is what counts: an input method may have put formats of its own there.
    const Formats wanted = formats(style->styling);
    if (block.layout()->formats() != wanted) block.layout()->setFormats(wanted);
}

bool MarkdownHighlighter::restyle(QStringView draft, int position, int added) {
    // What was unsettled may have come nearer to the text's start.
    if (!isSettled()) m_unsettled = qMin(m_unsettled, position);
    QTextBlock block = m_document->findBlock(position);
    const BlockStyle* before = BlockStyle::of(block.previous());
    Fence fence = before != nullptr ? before->fenceBehind : Fence::Closed;
    const int end = position + added;
    bool hasChanged = false;
    for (; block.isValid(); block = block.next()) {
        const BlockStyle* known = BlockStyle::of(block);
        const bool isBehind = block.position() > end;
        if (isBehind && known != nullptr && known->fenceAhead == fence) break;
        hasChanged = follow(block, draft, fence) || hasChanged;
        if (!isBehind || known == nullptr) {
            style(block, draft);
        } else if (isSettled()) {
            m_unsettled = block.position();
        }
    }
    return hasChanged;
}

void MarkdownHighlighter::restyleAll(QStringView draft) {
    Fence fence = Fence::Closed;
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        follow(block, draft, fence);
        style(block, draft);
    }
    m_unsettled = -1;
}

TextRange MarkdownHighlighter::settle(QStringView draft, int position, int atMost) {
    if (isSettled()) return {};
    TextRange changed;
    int left = atMost;
    QTextBlock block = m_document->findBlock(m_unsettled);
    for (; block.isValid() && block.position() <= position && left > 0; block = block.next()) {
        if (!BlockStyle::of(block)->hasOldLook()) continue;
        style(block, draft);
        if (changed.length == 0) changed.location = block.position();
        changed.length = block.position() + block.length() - 1 - changed.location;
        left -= block.length();
    }
    m_unsettled = block.isValid() ? block.position() : -1;
    return changed;
}

MarkdownHighlighter::Formats MarkdownHighlighter::formatsAround(const QTextBlock& composed,
                                                                const BlockStyle& style) const {
    const Shift shift = shiftOf(composed, style);
    const bool isAtEnd = shift.at + shift.removed >= style.length;
    Formats kept;
    for (const MarkdownRun& run : style.styling.runs) {
        const bool isHidden = run.attributes.isHidden;
        const int end = static_cast<int>(run.range.end());
        const int start = shift.start(static_cast<int>(run.range.location));
        const int length = shift.end(end, isAtEnd && !isHidden) - start;
        if (length > 0) kept.append({start, length, format(run.attributes)});
        // A line that is only a marker lends its look to the text composed behind it.
        if (!isHidden || !isAtEnd || end != shift.at) continue;
        MarkdownAttributes shown = run.attributes;
        shown.isHidden = false;
        kept.append({shift.at, shift.added, format(shown)});
    }
    return kept;
}

void MarkdownHighlighter::keepLook(const QTextBlock& composed) const {
    QTextLayout* layout = composed.layout();
    const BlockStyle* style = BlockStyle::of(composed);
    Formats kept = style != nullptr ? formatsAround(composed, *style) : Formats();
    for (const QTextLayout::FormatRange& range : layout->formats()) {
        if (!range.format.hasProperty(RhythmStyle::kOwn)) kept.append(range);
    }
    if (layout->formats() != kept) layout->setFormats(kept);
}

}  // namespace velmar
