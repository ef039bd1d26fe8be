// The look of a text made the slow way: over the whole text at once, one attribute a unit, with the
// patterns themselves. The yardstick for the highlighting by paragraphs, at a font size of 17.
#pragma once

#include <algorithm>
#include <vector>

#include "DiaryKit/Markdown/MarkdownHighlighting.h"
#include "DiaryKit/Markdown/MarkdownLine.h"
#include "tests/support/IcuPattern.h"

namespace diary::test {

class SlowHighlighter {
public:
    std::vector<MarkdownAttributes> look(const QString& text) {
        m_units.assign(static_cast<std::size_t>(text.size()), {});
        m_fenced.assign(m_units.size(), false);
        fences(text);
        for (qsizetype at = 0; at >= 0;) {
            const TextRange line = markdownLineRange(text, at);
            if (line.length > 0 && !isFenced(line)) block(text, line);
            at = markdownNextLine(text, line).value_or(-1);
        }
        marks(text);
        return m_units;
    }

private:
    using Kind = MarkdownLinePrefix::Kind;

    template <typename Change>
    void paint(TextRange range, Change change) {
        for (qsizetype at = range.location; at < range.end(); ++at) {
            change(m_units[static_cast<std::size_t>(at)]);
        }
    }

    bool isFenced(TextRange range) const {
        const auto start = m_fenced.begin() + range.location;
        return std::find(start, start + range.length, true) != start + range.length;
    }

    void fences(const QString& text) {
        std::optional<qsizetype> opened;
        const auto fence = [&](qsizetype end) {
            std::fill(m_fenced.begin() + *opened, m_fenced.begin() + end, true);
            paint({*opened, end - *opened}, [](auto& unit) {
                unit.font = MarkdownFont::mono;
                unit.color = MarkdownColor::inkSource;
                unit.hasCodeBackground = true;
            });
            opened.reset();
        };
        for (qsizetype at = 0; at >= 0;) {
            const TextRange line = markdownLineRange(text, at);
            if (QStringView(text).sliced(line.location).startsWith(u"```")) {
                if (opened) {
                    fence(line.end());
                } else {
                    opened = line.location;
                }
            }
            at = markdownNextLine(text, line).value_or(-1);
        }
        if (opened) fence(text.size());
    }

    void block(const QString& text, TextRange line) {
        const QString units = text.sliced(line.location, line.length);
        const MarkdownLinePrefix prefix = MarkdownLinePrefix::parse(units);
        const int base = 22 + static_cast<int>(prefix.level()) * 22;
        switch (prefix.kind) {
            case Kind::plain:
                return;
            case Kind::heading: {
                static const IcuPattern year(u"^## +(\\d{4})[ \\t]*$");
                const bool isYear = !year.matches(units).empty();
                paint(line, [&](auto& unit) {
                    unit.font = static_cast<MarkdownFont>(1 + prefix.value);
                    unit.isBold = true;
                    if (isYear) unit.color = MarkdownColor::accent;
                });
                break;
            }
            case Kind::task:
                paint(line, [&](auto& unit) { unit.indent = base + 25; });
                break;
            case Kind::ordered:
                paint(line, [&](auto& unit) { unit.indent = base + 27; });
                break;
            case Kind::bullet:
                paint(line, [&](auto& unit) { unit.indent = base + 19; });
                break;
            case Kind::quote:
                paint(line, [](auto& unit) {
                    unit.indent = 36;
                    unit.color = MarkdownColor::daySubText;
                });
                break;
            case Kind::rule:
                paint(line, [](auto& unit) { unit.isHidden = true; });
                break;
        }
        paint({line.location, prefix.length}, [](auto& unit) { unit.isHidden = true; });
        if (!prefix.isChecked()) return;
        paint({line.location + prefix.length, line.length - prefix.length}, [](auto& unit) {
            unit.color = MarkdownColor::faint;
            unit.isStruck = true;
        });
    }

    template <typename Visit>
    void each(const QString& text, const char16_t* source, qsizetype width, Visit visit) {
        const IcuPattern pattern(source);
        for (const auto& groups : pattern.matches(text)) {
            const TextRange match = groups.front();
            if (isFenced(match)) continue;
            visit(groups);
            const auto fade = [](auto& unit) { unit.color = MarkdownColor::faint; };
            paint({match.location, width}, fade);
            paint({match.end() - width, width}, fade);
        }
    }

    void marks(const QString& text) {
        each(text, u"\\*\\*[^*\\n]+\\*\\*|__[^_\\n]+__", 2, [this](const auto& groups) {
            paint(groups[0], [](auto& unit) { unit.isBold = true; });
        });
        each(text,
             u"(?<![*\\\\])\\*(?![*\\s])[^*\\n]+?(?<![*\\s])\\*(?!\\*)|"
             u"(?<![\\w_])_[^_\\n]+_(?![\\w_])",
             1, [this](const auto& groups) {
                 paint({groups[0].location + 1, groups[0].length - 2},
                       [](auto& unit) { unit.isOblique = true; });
             });
        each(text, u"~~[^~\\n]+~~", 2, [this](const auto& groups) {
            paint(groups[0], [](auto& unit) {
                unit.isStruck = true;
                unit.color = MarkdownColor::daySubText;
            });
        });
        each(text, u"`[^`\\n]+`", 1, [this](const auto& groups) {
            paint(groups[0], [](auto& unit) {
                unit.font = MarkdownFont::mono;
                unit.isBold = false;
                unit.color = MarkdownColor::accent;
                unit.hasCodeBackground = true;
            });
        });
        each(text, u"\\[([^\\]\\n]*)\\]\\(([^)\\n]+)\\)", 0, [this](const auto& groups) {
            paint(groups[1], [](auto& unit) { unit.color = MarkdownColor::accent; });
            paint(groups[2], [](auto& unit) { unit.color = MarkdownColor::faint; });
        });
    }

    std::vector<MarkdownAttributes> m_units;
    std::vector<bool> m_fenced;
};

}  // namespace diary::test
