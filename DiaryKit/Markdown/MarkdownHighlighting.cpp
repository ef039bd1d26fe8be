#include "DiaryKit/Markdown/MarkdownHighlighting.h"

#include <unicode/uchar.h>

#include <QtCore/QList>
#include <QtCore/QVarLengthArray>
#include <algorithm>

#include "DiaryKit/Markdown/MarkdownInline.h"
#include "DiaryKit/Markdown/MarkdownLine.h"

namespace diary::MarkdownHighlighting {

namespace {

using Attributes = MarkdownAttributes;
using Kind = MarkdownLinePrefix::Kind;

constexpr QStringView kFence = u"```";

// The paragraph's characters as they are painted over, one layer after another. Most paragraphs
// have no marks at all and are never spread out.
class Canvas {
public:
    explicit Canvas(qsizetype size) : m_size(size) {}

    template <typename Change>
    void paint(TextRange range, Change change) {
        if (m_units.isEmpty()) m_units.resize(m_size);
        for (qsizetype at = range.location; at < range.end(); ++at) change(m_units[at]);
    }

    void color(TextRange range, MarkdownColor color) {
        paint(range, [color](Attributes& unit) { unit.color = color; });
    }

    // The marks at both ends of a match stay visible, but step back.
    void fadeEnds(TextRange match, qsizetype width) {
        color({match.location, width}, MarkdownColor::faint);
        color({match.end() - width, width}, MarkdownColor::faint);
    }

    [[nodiscard]] std::vector<MarkdownRun> runs() const {
        std::vector<MarkdownRun> runs;
        for (qsizetype start = 0; start < m_units.size();) {
            qsizetype end = start + 1;
            while (end < m_units.size() && m_units[end] == m_units[start]) ++end;
            if (m_units[start] != Attributes())
                runs.push_back({{start, end - start}, m_units[start]});
            start = end;
        }
        return runs;
    }

private:
    qsizetype m_size;
    QVarLengthArray<Attributes, 512> m_units;
};

using Ranges = QVarLengthArray<TextRange, 4>;

// The stretches are in order and none overlaps another.
bool touches(const Ranges& fenced, TextRange match) {
    const auto next =
        std::upper_bound(fenced.begin(), fenced.end(), match.location,
                         [](qsizetype at, const TextRange& range) { return at < range.end(); });
    return next != fenced.end() && next->location < match.end();
}

// Calls `visit(line)` for each line of the paragraph; a CR, U+0085, U+2028 and U+2029 end one too.
template <typename Visit>
void forEachLine(QStringView paragraph, Visit visit) {
    constexpr qsizetype kNone = -1;
    for (qsizetype start = 0; start != kNone;) {
        const TextRange line = markdownLineRange(paragraph, start);
        visit(line);
        start = markdownNextLine(paragraph, line).value_or(kNone);
    }
}

// The fenced stretches of the paragraph and the fence behind it. `visit` gets the other lines.
template <typename Visit>
Fence walkFences(QStringView paragraph, Fence ahead, Ranges& fenced, Visit visit) {
    Fence fence = ahead;
    qsizetype opened = 0;
    forEachLine(paragraph, [&](TextRange line) {
        const bool isMark = paragraph.sliced(line.location, line.length).startsWith(kFence);
        if (fence == Fence::Open) {
            if (!isMark) return;
            fenced.append({opened, line.end() - opened});
            fence = Fence::Closed;
        } else if (isMark) {
            opened = line.location;
            fence = Fence::Open;
        } else if (line.length > 0) {
            visit(line);
        }
    });
    if (fence == Fence::Open) fenced.append({opened, paragraph.size() - opened});
    return fence;
}

bool isSpaceOrTab(QChar unit) {
    return unit == u' ' || unit == u'\t';
}

struct YearHeading {
    // Absent if the digits aren't those of ASCII: such a line looks like a year and heads none.
    std::optional<int> year;
};

// ^## +(\d{4})[ \t]*$ in ICU's syntax, where \d is any decimal digit and $ also matches ahead of
// one last line end.
std::optional<YearHeading> yearHeading(QStringView line) {
    if (!line.startsWith(u"## ")) return std::nullopt;
    if (endsMarkdownLine(line.back())) line.chop(1);
    while (!line.isEmpty() && isSpaceOrTab(line.back())) line.chop(1);
    QStringView rest = line.sliced(qMin(qsizetype{3}, line.size()));
    while (!rest.isEmpty() && rest.front() == u' ') rest = rest.sliced(1);
    const QList<uint> digits = rest.toUcs4();
    if (digits.size() != 4) return std::nullopt;
    int year = 0;
    bool isAscii = true;
    for (const uint digit : digits) {
        if (u_charType(static_cast<UChar32>(digit)) != U_DECIMAL_DIGIT_NUMBER) return std::nullopt;
        isAscii = isAscii && digit < 0x80;
        year = year * 10 + u_charDigitValue(static_cast<UChar32>(digit));
    }
    return YearHeading{isAscii ? std::optional(year) : std::nullopt};
}

// Paints one paragraph's blocks and marks.
class ParagraphPainter {
public:
    ParagraphPainter(QStringView paragraph, const MarkdownBlockMetrics& metrics)
        : m_paragraph(paragraph), m_metrics(metrics), m_canvas(paragraph.size()) {}

    MarkdownStyling styled(Fence ahead) {
        walkFences(m_paragraph, ahead, m_fenced, [this](TextRange line) { block(line); });
        for (const TextRange& range : m_fenced) fencedBlock(range);
        inlineMarks();
        return {m_canvas.runs(), std::move(m_decorations)};
    }

private:
    void fencedBlock(TextRange range) {
        m_canvas.paint(range, [](Attributes& unit) {
            unit.font = MarkdownFont::mono;
            unit.color = MarkdownColor::inkSource;
            unit.hasCodeBackground = true;
        });
    }

    void block(TextRange line) {
        const QStringView text = m_paragraph.sliced(line.location, line.length);
        const MarkdownLinePrefix prefix = MarkdownLinePrefix::parse(text);
        if (prefix.kind == Kind::plain) return;
        std::optional<int> year;
        switch (prefix.kind) {
            case Kind::heading:
                year = heading(line, text, prefix.value);
                break;
            case Kind::task:
                task(line, prefix);
                break;
            case Kind::ordered:
                item(line, prefix, m_metrics.orderedWidth());
                break;
            case Kind::bullet:
                item(line, prefix, m_metrics.bulletWidth());
                break;
            case Kind::quote:
                quote(line);
                break;
            case Kind::rule:
            case Kind::plain:
                break;
        }
        const qsizetype hidden = prefix.kind == Kind::rule ? line.length : prefix.length;
        m_canvas.paint({line.location, hidden}, [](Attributes& unit) { unit.isHidden = true; });
        m_decorations.push_back(
            {line.location, prefix.kind, prefix.value, prefix.level(), year, line.length});
    }

    std::optional<int> heading(TextRange line, QStringView text, int level) {
        const auto font =
            static_cast<MarkdownFont>(static_cast<int>(MarkdownFont::heading1) + level - 1);
        m_canvas.paint(line, [font](Attributes& unit) {
            unit.font = font;
            unit.isBold = true;
        });
        const std::optional<YearHeading> year = yearHeading(text);
        if (!year) return std::nullopt;
        m_canvas.color(line, MarkdownColor::accent);
        return year->year;
    }

    void item(TextRange line, const MarkdownLinePrefix& prefix, int width) {
        const int level = static_cast<int>(prefix.level());
        const int indent = width + m_metrics.indentStep() * level + MarkdownBlockMetrics::kTextEdge;
        m_canvas.paint(line, [indent](Attributes& unit) { unit.indent = indent; });
    }

    void task(TextRange line, const MarkdownLinePrefix& prefix) {
        item(line, prefix, m_metrics.taskWidth());
        if (!prefix.isChecked()) return;
        const TextRange text{line.location + prefix.length, line.length - prefix.length};
        m_canvas.paint(text, [](Attributes& unit) {
            unit.color = MarkdownColor::faint;
            unit.isStruck = true;
        });
    }

    void quote(TextRange line) {
        m_canvas.paint(line, [](Attributes& unit) {
            unit.indent = MarkdownBlockMetrics::kQuoteIndent;
            unit.color = MarkdownColor::daySubText;
        });
    }

    // Calls `visit` for the matches outside of fenced blocks.
    template <typename Visit>
    void outsideFences(const std::vector<TextRange>& matches, Visit visit) {
        for (const TextRange& match : matches) {
            if (!touches(m_fenced, match)) visit(match);
        }
    }

    // The order counts: where two marks overlap, the later one's colour and font stay.
    void inlineMarks() {
        bool hasStar = false;
        bool hasUnderscore = false;
        bool hasTilde = false;
        bool hasTick = false;
        bool hasBracket = false;
        for (const QChar unit : m_paragraph) {
            hasStar |= unit == u'*';
            hasUnderscore |= unit == u'_';
            hasTilde |= unit == u'~';
            hasTick |= unit == u'`';
            hasBracket |= unit == u'[';
        }
        if (hasStar || hasUnderscore) emphasis();
        if (hasTilde) strikes();
        if (hasTick) codes();
        if (hasBracket) links();
    }

    void emphasis() {
        outsideFences(markdowninline::bold(m_paragraph), [this](TextRange match) {
            m_canvas.paint(match, [](Attributes& unit) { unit.isBold = true; });
            m_canvas.fadeEnds(match, 2);
        });
        outsideFences(markdowninline::italic(m_paragraph), [this](TextRange match) {
            m_canvas.paint({match.location + 1, match.length - 2},
                           [](Attributes& unit) { unit.isOblique = true; });
            m_canvas.fadeEnds(match, 1);
        });
    }

    void strikes() {
        outsideFences(markdowninline::strike(m_paragraph), [this](TextRange match) {
            m_canvas.paint(match, [](Attributes& unit) {
                unit.isStruck = true;
                unit.color = MarkdownColor::daySubText;
            });
            m_canvas.fadeEnds(match, 2);
        });
    }

    void codes() {
        outsideFences(markdowninline::code(m_paragraph), [this](TextRange match) {
            m_canvas.paint(match, [](Attributes& unit) {
                // Another font has its own weight, so bold and headings end here.
                unit.font = MarkdownFont::mono;
                unit.isBold = false;
                unit.color = MarkdownColor::accent;
                unit.hasCodeBackground = true;
            });
            m_canvas.fadeEnds(match, 1);
        });
    }

    void links() {
        using markdowninline::EmptyAddress;
        for (const auto& link : markdowninline::links(m_paragraph, EmptyAddress::Refused)) {
            if (touches(m_fenced, link.range)) continue;
            m_canvas.color(link.title, MarkdownColor::accent);
            m_canvas.color(link.address, MarkdownColor::faint);
        }
    }

    QStringView m_paragraph;
    MarkdownBlockMetrics m_metrics;
    Canvas m_canvas;
    Ranges m_fenced;
    std::vector<MarkdownDecoration> m_decorations;
};

}  // namespace

Fence fenceBehind(QStringView paragraph, Fence ahead) {
    if (!paragraph.contains(kFence)) return ahead;
    Ranges fenced;
    return walkFences(paragraph, ahead, fenced, [](TextRange) {});
}

MarkdownStyling paragraph(QStringView paragraph, Fence ahead, const MarkdownBlockMetrics& metrics) {
    return ParagraphPainter(paragraph, metrics).styled(ahead);
}

MarkdownStyling highlight(QStringView text, const MarkdownBlockMetrics& metrics) {
    MarkdownStyling all;
    Fence fence = Fence::Closed;
    for (qsizetype start = 0; start <= text.size();) {
        const qsizetype lineEnd = text.indexOf(u'\n', start);
        const qsizetype end = lineEnd < 0 ? text.size() : lineEnd;
        const QStringView one = text.sliced(start, end - start);
        MarkdownStyling styling = paragraph(one, fence, metrics);
        for (MarkdownRun& run : styling.runs) {
            run.range.location += start;
            all.runs.push_back(run);
        }
        for (MarkdownDecoration& decoration : styling.decorations) {
            decoration.at += start;
            all.decorations.push_back(decoration);
        }
        fence = fenceBehind(one, fence);
        start = end + 1;
    }
    return all;
}

}  // namespace diary::MarkdownHighlighting
