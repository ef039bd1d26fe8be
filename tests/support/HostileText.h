// Random texts made of what hurts a day file: fences, year headers, line ends of every kind,
// combining marks, surrogate pairs, exotic blanks. Deterministic for a seed.
#pragma once

#include <QtCore/QString>
#include <random>

namespace diary::test {

class HostileText {
public:
    explicit HostileText(unsigned seed) : m_random(seed) {}

    // A number from 0 to `bound` - 1.
    int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_random); }

    // One of the pieces that texts are made of.
    QString piece() {
        static const QString pieces[] = {
            QStringLiteral("\n"),          QStringLiteral("\n\n"),
            QStringLiteral("\r\n"),        QStringLiteral("\r"),
            QStringLiteral("```"),         QStringLiteral("\n```\n"),
            QStringLiteral("   ```py"),    QStringLiteral("## "),
            QStringLiteral("\n## 2024\n"), QStringLiteral("## 2025"),
            QStringLiteral("2026"),        QStringLiteral("\n## 2023 \n"),
            QStringLiteral("# 01-02"),     QStringLiteral("#"),
            QStringLiteral("20"),          QStringLiteral("\u0301"),
            QStringLiteral("e\u0301"),     QStringLiteral("\u2028"),
            QStringLiteral("\u2029"),      QStringLiteral("\u00A0"),
            QStringLiteral("\u3000"),      QStringLiteral("\u0085"),
            QStringLiteral("\u200B"),      QStringLiteral("\uFEFF"),
            QStringLiteral("😀"),          QStringLiteral("👨‍👩‍👧"),
            QStringLiteral("日記"),        QStringLiteral("かな"),
            QStringLiteral("word"),        QStringLiteral(" "),
            QStringLiteral("\t"),          QStringLiteral("- [x] tea"),
            QStringLiteral("`"),           QStringLiteral("---"),
            QStringLiteral("\u0600"),      QStringLiteral("~~~\n"),
        };
        return pieces[below(static_cast<int>(std::size(pieces)))];
    }

    QString text(int pieces) {
        QString result;
        for (int i = below(pieces + 1); i > 0; --i) result += piece();
        return result;
    }

private:
    std::mt19937 m_random;
};

}  // namespace diary::test
