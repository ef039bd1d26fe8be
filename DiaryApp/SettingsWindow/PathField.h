// A folder's path in a box, to be read. A path that is too long loses its middle; the tooltip has
// it whole.
#pragma once

#include <QtWidgets/QLabel>

namespace velmar {

class PathField : public QLabel {
    Q_OBJECT

public:
    explicit PathField(QWidget* parent = nullptr);

    void setPath(const QString& shown, const QString& whole);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmar
