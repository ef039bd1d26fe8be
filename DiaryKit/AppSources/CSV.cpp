#include "DiaryKit/AppSources/CSV.h"

#include "DiaryKit/Foundation/TextSets.h"

namespace diary::CSV {

std::vector<QStringList> parse(QStringView text) {
    std::vector<QStringList> rows;
    Reader reader(text);
    for (bool startsRow = true; reader.next(); startsRow = reader.endsRow()) {
        if (startsRow) rows.emplace_back();
        rows.back().append(reader.cell().toString());
    }
    return rows;
}

bool Reader::next() {
    m_cell = {};
    Stop stop = readPlain();
    while (stop == Stop::Quotes) {
        readQuoted();
        stop = readPlain();
    }
    // What the text ends with is a cell if there is something in it or ahead of it in its row.
    if (stop == Stop::Text && m_startsRow && m_cell.isEmpty()) return false;
    m_endsRow = stop != Stop::Cell;
    m_startsRow = m_endsRow;
    return true;
}

Reader::Stop Reader::readPlain() {
    const qsizetype start = m_at;
    for (; m_at < m_text.size(); ++m_at) {
        const QChar unit = m_text[m_at];
        if (unit > u',') continue;
        if (unit == u'\n' || unit == u'\r') {
            add(start, m_at);
            takeLineEnd();
            return Stop::Row;
        }
        if (unit == u',' && text::standsAlone(m_text, m_at)) {
            add(start, m_at++);
            return Stop::Cell;
        }
        if (m_at == start && m_cell.isEmpty() && isQuote(m_at)) {
            ++m_at;
            return Stop::Quotes;
        }
    }
    add(start, m_at);
    return Stop::Text;
}

// Up to and behind the quotation mark that closes. Two of them stand for one.
void Reader::readQuoted() {
    qsizetype start = m_at;
    while (m_at < m_text.size()) {
        if (!isQuote(m_at)) {
            ++m_at;
        } else if (isQuote(m_at + 1)) {
            add(start, m_at + 1);
            m_at += 2;
            start = m_at;
        } else {
            add(start, m_at++);
            return;
        }
    }
    add(start, m_at);
}

void Reader::takeLineEnd() {
    const bool isPair =
        m_text[m_at] == u'\r' && m_at + 1 < m_text.size() && m_text[m_at + 1] == u'\n';
    m_at += isPair ? 2 : 1;
}

void Reader::add(qsizetype from, qsizetype to) {
    const QStringView piece = m_text.sliced(from, to - from);
    if (piece.isEmpty()) return;
    if (m_cell.isEmpty()) {
        m_joined.resize(0);
        m_cell = piece;
        return;
    }
    if (m_joined.isEmpty()) m_joined.append(m_cell);
    m_joined.append(piece);
    m_cell = m_joined;
}

bool Reader::isQuote(qsizetype at) const {
    return at < m_text.size() && m_text[at] == u'"' && text::standsAlone(m_text, at);
}

}  // namespace diary::CSV
