// A text that stands beside controls, in a look of the theme. Read aloud as static text; it takes
// no input.
#pragma once

#include <QtWidgets/QLabel>

#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

class TextLabel : public QLabel {
    Q_OBJECT

public:
    // The look is asked for at each use, as fonts change with the language.
    using Look = TextLook (*)();

    // One line, elided where there is no room for it; with word wrap (setWordWrap) a paragraph.
    explicit TextLabel(Look look, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Look m_look;
};

}  // namespace velmar
