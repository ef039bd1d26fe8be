// The pill that floats over the page while a search has matches in it: which one is stepped to, of
// how many, and a button for the step each way.
#pragma once

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QAbstractButton>
#include <optional>

#include "DiaryApp/Entry/EntryModel.h"

namespace velmar {

// A round button on the pill.
class PillButton : public QAbstractButton {
    Q_OBJECT

public:
    static constexpr int side = 28;

    PillButton(const QString& iconName, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QString m_iconName;
    bool m_hasRing = false;
};

class MatchPill : public QWidget {
    Q_OBJECT

public:
    explicit MatchPill(QWidget* parent);

    // Fades in, or out where there are none, in 120 ms.
    void setMatches(const std::optional<EntryModel::Matches>& matches);
    void retranslate();
    // Above what else the parent holds.
    void raiseAll();
    // Puts it into the parent's lower right corner.
    void place();

    [[nodiscard]] double opacity() const { return m_fade.currentValue().toDouble(); }
    [[nodiscard]] PillButton* previous() const { return m_previous; }
    [[nodiscard]] PillButton* next() const { return m_next; }
    [[nodiscard]] const QString& label() const { return m_label; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void fade(bool isIn);
    void showLabel();

    EntryModel::Matches m_matches;
    QString m_label;
    PillButton* m_previous;
    PillButton* m_next;
    // Lies below the pill, and lets clicks through.
    QWidget* m_shadow;
    QVariantAnimation m_fade;
};

}  // namespace velmar
