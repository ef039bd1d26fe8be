#include "DiaryKit/Documents/PlainTextBuilder.h"

#include <utility>

namespace diary::documents {

void PlainTextBuilder::settle() {
    Flow& now = flow();
    if (now.pending == Pending::Line || now.pending == Pending::FirstCell) now.text += u'\n';
    if (now.pending == Pending::Cell) now.text += u'\t';
    now.pending = Pending::Nothing;
}

void PlainTextBuilder::settleAsides() {
    for (const QString& aside : std::exchange(flow().asides, {})) {
        settle();
        flow().text += aside;
        flow().pending = Pending::Line;
    }
}

void PlainTextBuilder::append(QStringView text) {
    if (text.isEmpty()) return;
    settle();
    flow().text += text;
    m_written += text.size();
}

void PlainTextBuilder::endParagraph() {
    settle();
    flow().pending = Pending::Line;
    settleAsides();
}

void PlainTextBuilder::startRow() {
    if (flow().pending == Pending::Line) flow().pending = Pending::FirstCell;
}

void PlainTextBuilder::endCell() {
    settleAsides();
    // What is pending at a cell's beginning is what stands ahead of it, and the cell is empty.
    if (flow().pending == Pending::Cell || flow().pending == Pending::FirstCell) settle();
    flow().pending = Pending::Cell;
}

void PlainTextBuilder::endRow() {
    settleAsides();
    flow().pending = Pending::Line;
}

void PlainTextBuilder::beginAside() {
    if (m_flows.size() > kMaxAsides) {
        ++m_asidesPassed;
        endParagraph();
    } else {
        m_flows.emplace_back();
    }
}

void PlainTextBuilder::endAside() {
    if (m_asidesPassed > 0) {
        --m_asidesPassed;
        endParagraph();
    } else if (m_flows.size() > 1) {
        settleAsides();
        QString text = std::move(flow().text);
        m_flows.pop_back();
        if (!text.isEmpty()) flow().asides.append(std::move(text));
    }
}

void PlainTextBuilder::appendAside(const QString& text) {
    if (text.isEmpty()) return;
    flow().asides.append(text);
    m_written += text.size();
}

QString PlainTextBuilder::take() {
    m_asidesPassed = 0;
    while (m_flows.size() > 1) endAside();
    if (!flow().asides.isEmpty() && flow().pending == Pending::Nothing) {
        flow().pending = Pending::Line;
    }
    settleAsides();
    m_written = 0;
    return std::exchange(flow(), {}).text;
}

}  // namespace diary::documents
