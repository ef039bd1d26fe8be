// A year of the page that shows all years, to be read; the card as a whole is a button that opens
// it for writing.
#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QAbstractButton>

#include "DiaryApp/Appearance/FocusRing.h"
#include "DiaryApp/Appearance/HoverFade.h"
#include "DiaryApp/Entry/EntryModel.h"
#include "DiaryApp/Entry/PageLayout.h"
#include "DiaryKit/Foundation/TextRange.h"

namespace velmar {

class GrowingTextView;

// The look of the cards' texts, made once for all of them.
struct CardStyle {
    explicit CardStyle(const Settings& settings);

    QFont body;
    double size;
    int lineHeight;
    // What a letter and a Chinese or Japanese character take, for estimates.
    double narrow;
    double wide;
};

// Its text is a sibling above it, so that the marks of deep headings may reach over its edge. The
// text lets clicks through. It is made and laid out only when layOut() is called; until then its
// height is an estimate.
class YearCard : public QAbstractButton {
    Q_OBJECT

public:
    using Year = EntryModel::AllYears::Year;

    // The style must outlive the card.
    YearCard(const CardStyle& style, QWidget* page);
    ~YearCard() override;

    void setYear(const Year& year);
    // In UTF-16 units of the body. They last until the body changes.
    void setMatches(std::vector<diary::TextRange> ranges);
    // After a change of the style, or of the palette.
    void restyle();

    [[nodiscard]] int year() const { return m_year.year; }
    [[nodiscard]] bool isLaidOut() const { return m_isLaidOut; }
    void layOut(double pageWidth);

    [[nodiscard]] YearRowParts parts(double pageWidth) const;
    void place(const QRect& card, double pageWidth);

    // Absent until it is laid out, and where there is no text.
    [[nodiscard]] GrowingTextView* text() const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] bool hasText() const;
    [[nodiscard]] int textRows(double pageWidth) const;
    [[nodiscard]] int estimatedTextRows(double width) const;
    [[nodiscard]] QString spokenName() const;
    // What a click does, in a word or two.
    [[nodiscard]] QString hint() const;
    void makeText();
    void styleText();
    void paintBox(QPainter& painter) const;
    void paintHead(QPainter& painter) const;
    void paintHint(QPainter& painter, const QRectF& head) const;

    const CardStyle& m_style;
    Year m_year;
    std::vector<diary::TextRange> m_matches;
    QPointer<GrowingTextView> m_text;
    bool m_isLaidOut = false;
    // The last estimate, and the width that it was made for.
    mutable int m_estimate = 0;
    mutable double m_estimatedWidth = 0;
    CardLayout m_layout;
    HoverFade m_hover;
    FocusRing m_ring;
};

}  // namespace velmar
