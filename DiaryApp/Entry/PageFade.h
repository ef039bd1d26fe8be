// A picture of the page as it was, which fades over the page as it is now. No input reaches it.
#pragma once

#include <QtCore/QVariantAnimation>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

namespace velmar {

class PageFade : public QWidget {
    Q_OBJECT

public:
    explicit PageFade(QWidget* parent);

    // Takes 160 ms; with another one under way, that ends at once.
    void start(const QPixmap& before);
    void stop();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap m_before;
    QVariantAnimation m_fade;
};

}  // namespace velmar
