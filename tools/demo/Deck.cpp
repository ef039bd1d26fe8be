#include "tools/demo/Deck.h"

namespace demo {

int Chance::below(int count) {
    // SplitMix64: a few shifts and multiplications that mix every bit of a counter.
    m_state += 0x9e3779b97f4a7c15U;
    std::uint64_t mixed = m_state;
    mixed = (mixed ^ (mixed >> 30U)) * 0xbf58476d1ce4e5b9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94d049bb133111ebU;
    mixed ^= mixed >> 31U;
    return static_cast<int>(mixed % static_cast<std::uint64_t>(count));
}

Deck::Deck(QStringList texts, std::uint64_t seed) : m_texts(std::move(texts)), m_chance(seed) {
    mix();
}

QString Deck::draw() {
    if (m_next == m_texts.size()) mix();
    return m_texts.at(m_next++);
}

void Deck::mix() {
    for (int last = static_cast<int>(m_texts.size()) - 1; last > 0; --last) {
        m_texts.swapItemsAt(last, m_chance.below(last + 1));
    }
    m_next = 0;
}

}  // namespace demo
