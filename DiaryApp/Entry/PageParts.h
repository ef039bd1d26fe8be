// The small parts of the page that only show something.
#pragma once

#include <QtWidgets/QWidget>

#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

// The year and how long ago it was.
struct YearMark {
    QString mark;
    Token color = Token::Accent;
    QString ago;
};

// In one line of the rectangle's height.
void paintYearMark(QPainter& painter, const QRectF& line, const YearMark& year);

class YearRow : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;
    void setYear(const YearMark& year);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    YearMark m_year;
};

// A dashed box with a hint in place of the editor.
class HintBox : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;
    void setText(const QString& text);
    [[nodiscard]] double textHeight(double width) const;
    // Where the text stands in the box.
    void setTextRect(const QRectF& rect);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] static TextLook look();

    QString m_text;
    QRectF m_textRect;
};

// The years that aren't written, below a hairline.
class GapLine : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;
    void setText(const QString& text);
    [[nodiscard]] double textHeight(double width) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] static TextLook look();

    QString m_text;
};

}  // namespace velmar
