// Chance that comes out the same on every machine and at every run.
#pragma once

#include <QtCore/QStringList>
#include <cstdint>

namespace demo {

// A small generator of numbers; the same seed gives the same row of them.
class Chance {
public:
    explicit Chance(std::uint64_t seed) : m_state(seed) {}

    // A number from 0 to `count` - 1; `count` is positive.
    [[nodiscard]] int below(int count);

private:
    std::uint64_t m_state;
};

// Deals texts in a mixed order, each once before any comes again.
class Deck {
public:
    Deck(QStringList texts, std::uint64_t seed);

    // The next text; the deck holds at least one.
    QString draw();

private:
    void mix();

    QStringList m_texts;
    Chance m_chance;
    int m_next = 0;
};

}  // namespace demo
