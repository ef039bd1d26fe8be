// The draft as it is saved, kept in step with the document that shows it. A text document folds
// some characters into line breaks (CR, U+2029, U+FDD0, U+FDD1), so it never holds the draft itself
// but a display form of the same length, with stand-ins for those. Changes come back as stretches
// of the document; the draft is altered only where such a stretch differs from what was shown, so
// all that the user didn't touch stays as it was loaded, character by character.
#pragma once

#include <QtCore/QString>
#include <array>
#include <optional>

namespace velmar {

class DraftText {
public:
    // `removed` units of the draft at `at` became `added` other ones.
    struct Edit {
        qsizetype at = 0;
        qsizetype removed = 0;
        qsizetype added = 0;

        bool operator==(const Edit&) const = default;
    };

    // Takes the draft over and returns its display form, of the same length in UTF-16 units.
    QString load(const QString& draft);

    // `removed` units at `position` of the display form became `shown`, which is what the document
    // now has there, with LF for its line breaks. The stretch may be wider than the change. Returns
    // what became of the draft; nothing if it is the same.
    std::optional<Edit> replace(qsizetype position, qsizetype removed, const QString& shown);

    [[nodiscard]] const QString& text() const { return m_text; }

    // The display form of a text that is about to be put into the document.
    [[nodiscard]] QString shown(QString text) const;

    // A foreign text as it is pasted: CR LF and CR become LF.
    [[nodiscard]] static QString pasted(QString text);

private:
    static constexpr std::array<char16_t, 4> kFolded = {u'\r', u'\u2029', u'\uFDD0', u'\uFDD1'};

    [[nodiscard]] QChar display(QChar character) const;
    [[nodiscard]] QChar exact(QChar character) const;

    QString m_text;
    // For each folded character the one that is shown in its place.
    std::array<char16_t, kFolded.size()> m_standIns = {u'\uFFF0', u'\uFFF1', u'\uFFF2', u'\uFFF3'};
};

}  // namespace velmar
