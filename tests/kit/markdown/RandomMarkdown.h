// Random texts made of Markdown's markers, whole and broken. Deterministic for a seed.
#pragma once

#include <QtCore/QString>
#include <random>

#include "DiaryKit/Foundation/TextRange.h"

namespace diary::test {

class RandomMarkdown {
public:
    explicit RandomMarkdown(unsigned seed) : m_random(seed) {}

    // A number from 0 to `bound` - 1.
    int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_random); }

    QString text(int mostPieces) {
        QString result;
        for (int i = below(mostPieces + 1); i > 0; --i) result += piece();
        return result;
    }

    // A position that doesn't lie inside a surrogate pair.
    qsizetype position(const QString& text) {
        const qsizetype at = below(static_cast<int>(text.size()) + 1);
        const bool isInside = at > 0 && at < text.size() && text[at].isLowSurrogate() &&
                              text[at - 1].isHighSurrogate();
        return isInside ? at - 1 : at;
    }

    // The caret in half of the cases.
    TextRange selection(const QString& text) {
        const qsizetype a = position(text);
        const qsizetype b = below(2) == 0 ? a : position(text);
        return {qMin(a, b), qMax(a, b) - qMin(a, b)};
    }

private:
    QString piece() {
        static const QString pieces[] = {
            QStringLiteral("\n"),     QStringLiteral("\n"),      QStringLiteral("\n"),
            QStringLiteral("\n- "),   QStringLiteral("\n  - "),  QStringLiteral("\n* [x] "),
            QStringLiteral("\n1. "),  QStringLiteral("\n2. "),   QStringLiteral("\n  7. "),
            QStringLiteral("\n> "),   QStringLiteral("\n## "),   QStringLiteral("\n```"),
            QStringLiteral("\n---"),  QStringLiteral("## 2024"), QStringLiteral("- [ ] "),
            QStringLiteral("**"),     QStringLiteral("*"),       QStringLiteral("_"),
            QStringLiteral("__"),     QStringLiteral("~~"),      QStringLiteral("~"),
            QStringLiteral("`"),      QStringLiteral("["),       QStringLiteral("]("),
            QStringLiteral(")"),      QStringLiteral("[t](u)"),  QStringLiteral("\\"),
            QStringLiteral(" "),      QStringLiteral("  "),      QStringLiteral("\t"),
            QStringLiteral("a"),      QStringLiteral("word"),    QStringLiteral("日記"),
            QStringLiteral("😀"),     QStringLiteral("𝟗"),       QStringLiteral("e\u0301"),
            QStringLiteral("\u3000"), QStringLiteral("\u00A0"),  QStringLiteral("\u2028"),
            QStringLiteral("\u0085"), QStringLiteral("\r"),      QStringLiteral("\u001C"),
            QStringLiteral("\u200D"), QStringLiteral("\u203F"),  QStringLiteral("——"),
            QStringLiteral("＃"),     QStringLiteral("１．"),    QStringLiteral("x-"),
        };
        return pieces[below(static_cast<int>(std::size(pieces)))];
    }

    std::mt19937 m_random;
};

}  // namespace diary::test
