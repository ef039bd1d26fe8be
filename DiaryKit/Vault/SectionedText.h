// A day's text that many edits follow each other on, as imports and their undos make them. Each
// edit costs what its section costs and not what the day costs, and gives what YearSectionParser's
// function gives on the whole text: that function is what runs, on the lines that it can reach.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <functional>
#include <optional>
#include <vector>

#include "DiaryKit/Vault/MonthDay.h"

namespace diary {

class SectionedText {
public:
    SectionedText(const MonthDay& monthDay, QStringView text);

    [[nodiscard]] QString text() const;

    // The body of the year's first section as it stands, or nothing without one. Good until the
    // next edit.
    [[nodiscard]] std::optional<QStringView> section(int year) const;

    // The same, trimmed; empty without one.
    [[nodiscard]] QStringView body(int year) const;

    [[nodiscard]] bool leavesFenceOpen() const;

    // YearSectionParser::closingFence.
    void closeFence();

    // YearSectionParser::appendingBody, if the year's section holds the trimmed body whole then;
    // otherwise nothing changes. Tells which.
    bool appendWhole(QStringView body, QStringView separator, int year);

    // YearSectionParser::replacingBody and removingSection.
    void replaceBody(QStringView body, int year);
    void removeSection(int year);

private:
    // A year's header line with all that belongs to it, or what stands ahead of the first.
    struct Piece {
        int year = kAhead;
        QString text;
        qsizetype headerLength = 0;
    };
    // A run of pieces that an edit may change.
    struct Reach {
        std::size_t first = 0;
        std::size_t count = 0;
    };
    using Edit = std::function<QString(QStringView)>;

    static constexpr int kAhead = -1;

    static std::vector<Piece> pieces(QStringView text);
    [[nodiscard]] std::optional<std::size_t> find(int year) const;
    [[nodiscard]] Reach reach(int year) const;
    [[nodiscard]] QString joined(Reach reach) const;
    std::vector<Piece> replace(Reach reach, std::vector<Piece> pieces);
    void perform(Reach reach, const Edit& edit, const std::function<bool()>& isKept);

    MonthDay m_monthDay;
    // The first is what stands ahead of all sections, and may be empty.
    std::vector<Piece> m_pieces;
};

}  // namespace diary
