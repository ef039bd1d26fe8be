#include "DiaryKit/Search/ByteNeedle.h"

#include <unicode/uniset.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "DiaryKit/Search/CaseFolding.h"

namespace diary {

namespace {

// 16 bytes are what every 64-bit processor compares at once.
constexpr qsizetype kBlock = 16;
constexpr qsizetype kBlocks = 4;
using Block [[gnu::vector_size(kBlock)]] = unsigned char;
using Words [[gnu::vector_size(kBlock)]] = std::uint64_t;

Block loaded(const char* at) {
    Block block;
    std::memcpy(&block, at, sizeof block);
    return block;
}

bool hasAny(Block flags) {
    Words words;
    std::memcpy(&words, &flags, sizeof words);
    return (words[0] | words[1]) != 0;
}

// How often a byte occurs in a thousand of a diary, whatever its language; a rough guess is enough
// to seek "quince" by its "q".
double commonness(unsigned char byte) {
    static constexpr std::array<int, 26> kLetters = {65, 12, 22, 34, 102, 18, 16, 49, 56,
                                                     1,  6,  32, 19, 54,  60, 15, 1,  48,
                                                     51, 73, 22, 8,  19,  1,  16, 1};
    if (byte >= 'a' && byte <= 'z') return kLetters[byte - 'a'];
    if (byte >= 'A' && byte <= 'Z') return kLetters[byte - 'A'] / 20.0 + 0.1;
    if (byte == ' ') return 150;
    if (byte == '\n') return 20;
    if (byte < 0x80) return 4;
    if (byte < 0xC0) return 10;                   // One of 64 that continue a character.
    if (byte >= 0xE3 && byte <= 0xE9) return 60;  // Leads kana and ideographs.
    return byte == 0xC3 || byte == 0xD0 || byte == 0xD1 || byte == 0xE2 ? 30 : 1;
}

// Not by QString::fromUcs4(), which takes U+FEFF for a mark of byte order.
QByteArray encoded(char32_t codePoint) {
    return QStringView(QChar::fromUcs4(codePoint)).toUtf8();
}

// All code points that fold to this one, itself among them.
std::vector<char32_t> cases(char32_t folded) {
    icu::UnicodeSet set(static_cast<UChar32>(folded), static_cast<UChar32>(folded));
    set.closeOver(USET_CASE_INSENSITIVE);
    std::vector<char32_t> all;
    for (int32_t i = 0; i < set.getRangeCount(); ++i) {
        for (UChar32 one = set.getRangeStart(i); one <= set.getRangeEnd(i); ++one) {
            const auto codePoint = static_cast<char32_t>(one);
            if (casefolding::folded(codePoint) == folded) all.push_back(codePoint);
        }
    }
    return all;
}

}  // namespace

ByteNeedle::ByteNeedle(QStringView foldedTerm) {
    for (const char32_t codePoint : foldedTerm.toUcs4()) append(codePoint);
    chooseProbes();
}

void ByteNeedle::append(char32_t folded) {
    // Bad bytes become U+FFFD, and nothing becomes half a surrogate pair.
    if (folded == QChar::ReplacementCharacter || QChar::isSurrogate(folded)) {
        m_isUnknowable = true;
        return;
    }
    Character character{m_size, {encoded(folded)}};
    for (const char32_t codePoint : cases(folded)) {
        const QByteArray bytes = encoded(codePoint);
        if (codePoint == folded) continue;
        if (bytes.size() == character.encodings[0].size()) {
            character.encodings.push_back(bytes);
        } else {
            addOddCase(bytes);
        }
    }
    m_size += character.encodings[0].size();
    m_characters.push_back(std::move(character));
}

void ByteNeedle::addOddCase(const QByteArray& bytes) {
    const auto isSame = [&](const ByteNeedle& odd) {
        return odd.m_characters[0].encodings[0] == bytes;
    };
    if (std::ranges::any_of(m_oddCases, isSame)) return;
    ByteNeedle odd{QStringView()};
    odd.m_characters = {{0, {bytes}}};
    odd.m_size = bytes.size();
    odd.chooseProbes();
    m_oddCases.push_back(std::move(odd));
}

std::vector<ByteNeedle::Probe> ByteNeedle::probes() const {
    std::vector<Probe> all;
    for (const Character& character : m_characters) {
        for (qsizetype i = 0; i < character.encodings[0].size(); ++i) {
            Probe probe{character.offset + i, 0xFF,
                        static_cast<unsigned char>(character.encodings[0][i]), 0};
            for (const QByteArray& encoding : character.encodings) {
                const auto byte = static_cast<unsigned char>(encoding[i]);
                probe.mask &= static_cast<unsigned char>(~(byte ^ probe.value));
            }
            probe.value &= probe.mask;
            for (int byte = 0; byte < 256; ++byte) {
                if ((byte & probe.mask) != probe.value) continue;
                probe.commonness += diary::commonness(static_cast<unsigned char>(byte));
            }
            all.push_back(probe);
        }
    }
    return all;
}

void ByteNeedle::chooseProbes() {
    std::vector<Probe> all = probes();
    if (all.empty()) return;
    std::ranges::stable_sort(all, {}, &Probe::commonness);
    m_probes = {all[0], all[all.size() > 1 ? 1 : 0]};
    m_commonness = m_probes[0].commonness;
    if (all.size() > 1) m_commonness *= m_probes[1].commonness / 1000;
}

bool ByteNeedle::isAt(const char* place) const {
    return std::ranges::all_of(m_characters, [&](const Character& character) {
        return std::ranges::any_of(character.encodings, [&](const QByteArray& encoding) {
            return std::memcmp(place + character.offset, encoding.constData(),
                               static_cast<std::size_t>(encoding.size())) == 0;
        });
    });
}

bool ByteNeedle::isAmong(const char* from, const char* to) const {
    const auto fits = [](const Probe& probe, const char* place) {
        return (static_cast<unsigned char>(place[probe.offset]) & probe.mask) == probe.value;
    };
    for (const char* place = from; place < to; ++place) {
        if (fits(m_probes[0], place) && fits(m_probes[1], place) && isAt(place)) return true;
    }
    return false;
}

bool ByteNeedle::mayOccurIn(QByteArrayView bytes) const {
    if (m_isUnknowable) return true;
    if (m_characters.empty()) return false;
    // Where the term may begin.
    const char* place = bytes.data();
    const char* const end = place + std::max<qsizetype>(bytes.size() - m_size + 1, 0);
    const auto flags = [&](const char* at, const Probe& probe) {
        return (loaded(at + probe.offset) & probe.mask) == probe.value;
    };
    const auto both = [&](const char* at) {
        return Block(flags(at, m_probes[0]) & flags(at, m_probes[1]));
    };
    for (; end - place >= kBlock * kBlocks; place += kBlock * kBlocks) {
        Block found[kBlocks];
        for (qsizetype i = 0; i < kBlocks; ++i) found[i] = both(place + i * kBlock);
        if (!hasAny(found[0] | found[1] | found[2] | found[3])) continue;
        for (qsizetype i = 0; i < kBlocks; ++i) {
            const char* const block = place + i * kBlock;
            if (hasAny(found[i]) && isAmong(block, block + kBlock)) return true;
        }
    }
    if (isAmong(place, end)) return true;
    return std::ranges::any_of(m_oddCases,
                               [&](const ByteNeedle& odd) { return odd.mayOccurIn(bytes); });
}

}  // namespace diary
