// Comma-separated values as exports have them (RFC 4180, with any line ends, and with quotation
// marks that stand anywhere taken as they come). Separators, quotation marks and line ends count
// as characters that people see (grapheme clusters, UAX #29): a comma that carries an accent
// separates nothing. No text is refused. Pure; any thread; linear in time.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QStringView>
#include <vector>

namespace diary::CSV {

// All rows at once. An empty line is a row with one empty cell; a text that ends with a line end
// has no row behind it.
//   "\"a,b\",c\n\"say \"\"hi\"\"\"" -> {"a,b", "c"}, {"say \"hi\""}
[[nodiscard]] std::vector<QStringList> parse(QStringView text);

// The same cells one by one, for exports of which only a few columns matter: at any time it holds
// no more than one cell. The text must live as long.
class Reader {
public:
    explicit Reader(QStringView text) : m_text(text) {}

    // Goes to the next cell; false behind the last one.
    [[nodiscard]] bool next();

    // The text of the cell, valid until the next call of `next`.
    [[nodiscard]] QStringView cell() const { return m_cell; }
    // Whether it is the last cell of its row.
    [[nodiscard]] bool endsRow() const { return m_endsRow; }

private:
    void readQuoted();
    // Reads up to and behind what ends the cell, or a quotation mark that opens.
    enum class Stop { Quotes, Cell, Row, Text };
    [[nodiscard]] Stop readPlain();
    void takeLineEnd();
    void add(qsizetype from, qsizetype to);
    [[nodiscard]] bool isQuote(qsizetype at) const;

    QStringView m_text;
    qsizetype m_at = 0;
    // A piece of the text where the cell is one, otherwise all of `m_joined`.
    QStringView m_cell;
    QString m_joined;
    // No cell has been read of the row yet.
    bool m_startsRow = true;
    bool m_endsRow = false;
};

}  // namespace diary::CSV
