// The frame of the settings: as wide as its content, and as high as the screen allows; what is
// higher scrolls. Escape and Ctrl+W close it.
#pragma once

#include <QtWidgets/QWidget>

class QScrollArea;

namespace velmar {

class SettingsView;

class SettingsWindow : public QWidget {
    Q_OBJECT

public:
    SettingsWindow();

    [[nodiscard]] SettingsView* view() const { return m_view; }
    [[nodiscard]] QScrollArea* scrollArea() const { return m_area; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    SettingsView* m_view;
    QScrollArea* m_area;
};

}  // namespace velmar
