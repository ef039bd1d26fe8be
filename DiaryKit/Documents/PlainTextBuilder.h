// What the readers of documents write their plain text into. A paragraph is a line; the cells of a
// row stand on one line with tabs between them, and a cell of several paragraphs takes several
// lines. Text that stands aside from the flow (a note, a text box) comes as lines of its own behind
// the paragraph that it hangs on.
//
// Line ends and tabs are written only when something follows, so a text doesn't end with one.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QStringView>
#include <cstdint>
#include <vector>

namespace diary::documents {

class PlainTextBuilder {
public:
    PlainTextBuilder() : m_flows(1) {}

    void append(QStringView text);
    // An empty paragraph is an empty line.
    void endParagraph();

    // Cells of a row, and rows of a table, which may stand in a cell.
    void startRow();
    void endCell();
    void endRow();

    // Between these, text goes aside. They may be nested; past kMaxAsides it stays in the flow.
    void beginAside();
    void endAside();
    void appendAside(const QString& text);

    // How much has been written so far, aside or not.
    [[nodiscard]] qsizetype written() const { return m_written; }

    // The whole text; the builder is empty then. Asides that were left open are closed.
    [[nodiscard]] QString take();

private:
    // An aside is copied once for each one around it.
    static constexpr std::size_t kMaxAsides = 16;

    enum class Pending : uint8_t { Nothing, Line, FirstCell, Cell };
    struct Flow {
        QString text = {};
        Pending pending = Pending::Nothing;
        QStringList asides = {};
    };

    [[nodiscard]] Flow& flow() { return m_flows.back(); }
    void settle();
    void settleAsides();

    std::vector<Flow> m_flows;
    qsizetype m_asidesPassed = 0;
    qsizetype m_written = 0;
};

}  // namespace diary::documents
