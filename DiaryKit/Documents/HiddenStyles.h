// Which styles of a document hide their text.
#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringView>
#include <optional>

namespace diary::documents {

class HiddenStyles {
public:
    // `hides` where the style says so itself.
    void add(const QString& style, const QString& parent, std::optional<bool> hides) {
        m_styles.insert(style, {parent, hides});
    }

    // Whether the style, or the nearest one that it is based on and that tells, hides.
    [[nodiscard]] bool hides(QStringView style) const {
        QString name = style.toString();
        for (int step = 0; step < kMaxSteps; ++step) {
            const auto found = m_styles.constFind(name);
            if (found == m_styles.constEnd()) return false;
            if (const std::optional<bool> hides = found->hides) return *hides;
            name = found->parent;
        }
        return false;
    }

private:
    // Styles may be based on each other in a circle.
    static constexpr int kMaxSteps = 32;

    struct Style {
        QString parent;
        std::optional<bool> hides;
    };
    QHash<QString, Style> m_styles;
};

}  // namespace diary::documents
