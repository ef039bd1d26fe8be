// The head of a page: the day's key, its weekday or the span of its years, the two steps to its
// neighbours, and the folio line below.
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
        // Beside the key: the weekday, or the span of the years.
        QString title;
        // The folio line's left and right text.
        QString left;
        QString right;
        bool isSpan = false;

        bool operator==(const Texts&) const = default;
    };

    // How far the widget reaches beyond the text on both sides: the key's thin strokes and the
    // round buttons look aligned with the text only if they overhang it a little.
    static constexpr int reach = 7;

    explicit DayHead(QWidget* parent = nullptr);

    void setTexts(const Texts& texts);
    // Places the head by the rectangle of its text.
    void setColumn(const QRect& column) { setGeometry(column.adjusted(-reach, 0, reach, 0)); }
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
    void paintTitle(QPainter& painter, double left) const;
    void paintFolio(QPainter& painter) const;

    Texts m_texts;
    Button* m_previous;
    Button* m_next;
};

}  // namespace velmar
