// The small parts of the page that only show something.
#pragma once

#include <QtWidgets/QWidget>

#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

// The year and how long ago it was.
class YearRow : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;
    void setTexts(const QString& mark, Token markColor, const QString& ago);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_mark;
    Token m_markColor = Token::Accent;
    QString m_ago;
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
