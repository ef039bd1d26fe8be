// The head of the page: the day's key, its weekday, the two steps to its neighbours, and the folio
// line below.
#pragma once

#include <QtWidgets/QWidget>

namespace velmar {

class Button;

class DayHead : public QWidget {
    Q_OBJECT

public:
    struct Texts {
        // "11-21"
        QString key;
        QString weekday;
        QString ordinal;
        QString subtitle;

        bool operator==(const Texts&) const = default;
    };

    // How far the widget reaches beyond the text on both sides: the key's thin strokes and the
    // round buttons look aligned with the text only if they overhang it a little.
    static constexpr int reach = 7;

    explicit DayHead(QWidget* parent = nullptr);

    void setTexts(const Texts& texts);
    // The buttons' texts, again in another language.
    void retranslate();

    [[nodiscard]] Button* previous() const { return m_previous; }
    [[nodiscard]] Button* next() const { return m_next; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // Returns where the key ends.
    double paintKey(QPainter& painter) const;
    void paintFolio(QPainter& painter) const;

    Texts m_texts;
    Button* m_previous;
    Button* m_next;
};

}  // namespace velmar
