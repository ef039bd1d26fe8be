// What the demo diary is made of: one person's writing in three languages, in pieces that fit
// together. The pieces are Markdown; those of one language never need another's.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <array>

namespace demo {

struct Texts {
    // The first sentence of a day: weather and light, by season from spring on.
    std::array<QStringList, 4> openings;
    // What happened.
    QStringList events;
    // What stays of it.
    QStringList closings;
    // Whole paragraphs with a form: lists, to-dos, quotes, headings, links.
    QStringList forms;
    // Long entries for the very day that the demo is opened on, the oldest first.
    QStringList anniversaries;
};

[[nodiscard]] const Texts& englishTexts();
[[nodiscard]] const Texts& chineseTexts();
[[nodiscard]] const Texts& japaneseTexts();

}  // namespace demo
