// A box that shows one of several texts, and offers the others in a menu. The menu opens by click,
// Space, Return and the arrow keys that go up and down; typing goes to it as in any menu.
#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QAbstractButton>
#include <functional>

#include "DiaryApp/Appearance/FocusRing.h"
#include "DiaryApp/Appearance/HoverFade.h"

class QMenu;

namespace velmar {

class ComboBox : public QAbstractButton {
    Q_OBJECT

public:
    explicit ComboBox(QWidget* parent = nullptr);

    // An index outside of the texts shows nothing. Doesn't call onChosen.
    void setChoices(const QStringList& texts, int current);

    [[nodiscard]] const QStringList& choices() const { return m_texts; }
    [[nodiscard]] int current() const { return m_current; }
    [[nodiscard]] QString currentText() const { return m_texts.value(m_current); }

    [[nodiscard]] bool isMenuOpen() const;
    // The open menu, or null.
    [[nodiscard]] QMenu* menu() const;

    // The user took another one than the present; it shows already.
    std::function<void(int)> onChosen;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void openMenu();
    void choose(int index);

    QStringList m_texts;
    int m_current = -1;
    QPointer<QMenu> m_menu;
    HoverFade m_hover;
    FocusRing m_ring;
};

}  // namespace velmar
