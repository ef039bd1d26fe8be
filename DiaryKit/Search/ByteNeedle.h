// Seeks a term in UTF-8 bytes without decoding them, to tell the many files and sections that
// can't hold it from the few that are worth a closer look. Not for use outside DiaryKit/Search.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayView>
#include <QtCore/QStringView>
#include <array>
#include <vector>

namespace diary {

class ByteNeedle {
public:
    // For a term whose code points are folded (casefolding::folded). An empty one never occurs.
    explicit ByteNeedle(QStringView foldedTerm);

    // Never false where the bytes, decoded with repair, hold the term in whatever case. May be
    // true where they don't, which is rare. Pure; any thread.
    [[nodiscard]] bool mayOccurIn(QByteArrayView bytes) const;

    // How many of a thousand places of a text look like the term at first sight, roughly: of
    // several terms the one with the least is worth seeking first.
    [[nodiscard]] double commonness() const { return m_commonness; }

private:
    // One code point and its encodings in each case, all of one length.
    struct Character {
        qsizetype offset = 0;
        std::vector<QByteArray> encodings;
    };

    // A byte of the term, at its offset: it is what `mask` leaves equal to `value`.
    struct Probe {
        qsizetype offset = 0;
        unsigned char mask = 0xFF;
        unsigned char value = 0;
        double commonness = 0;
    };

    void append(char32_t folded);
    void addOddCase(const QByteArray& bytes);
    void chooseProbes();
    [[nodiscard]] std::vector<Probe> probes() const;
    [[nodiscard]] bool isAt(const char* place) const;
    [[nodiscard]] bool isAmong(const char* from, const char* to) const;

    std::vector<Character> m_characters;
    qsizetype m_size = 0;
    // What a whole block of bytes is looked at for.
    std::array<Probe, 2> m_probes;
    double m_commonness = 0;
    // Other cases of the term's code points that are longer or shorter: 'ſ' for 's', and the
    // Kelvin sign for 'k'. Bytes that hold one of them may hold the term.
    std::vector<ByteNeedle> m_oddCases;
    // The term has a code point that bytes can decode to in many ways, or in none.
    bool m_isUnknowable = false;
};

}  // namespace diary
