// What a search has found in the text, and the match that is stepped to. Marks move with the text
// as it is edited; text that is put in the place of marked text isn't marked. Painted by
// RhythmPainter.
#pragma once

#include <QtCore/QVariantAnimation>
#include <optional>
#include <vector>

#include "DiaryApp/Editor/DraftText.h"
#include "DiaryKit/Foundation/TextRange.h"

namespace velmar {

class MatchMarks : public QObject {
    Q_OBJECT

public:
    struct Mark {
        diary::TextRange range;
        // How far it looks like the current match: 0 is any other one, 1 the current one.
        double weight = 0;

        bool operator==(const Mark&) const = default;
    };

    MatchMarks();

    // `current` is an index of `ranges`, or -1. With `animates` the look of the current match goes
    // over from one to the other, if the ranges are those that are marked already.
    void set(std::vector<diary::TextRange> ranges, int current, bool animates);
    void edit(const DraftText::Edit& edit);

    // The marks that have a part in these positions, in the order they were given.
    [[nodiscard]] std::vector<Mark> marksIn(qsizetype from, qsizetype to) const;
    [[nodiscard]] std::optional<diary::TextRange> range(int index) const;

Q_SIGNALS:
    // Another look of some mark.
    void changed();

private:
    [[nodiscard]] double weight(int index) const;

    std::vector<diary::TextRange> m_ranges;
    int m_current = -1;
    int m_previous = -1;
    QVariantAnimation m_fade;
};

}  // namespace velmar
