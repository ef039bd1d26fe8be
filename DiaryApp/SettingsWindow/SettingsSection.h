// One section of the settings: its title on the left, lines of controls on the right, a hairline
// below. The sections themselves are in SettingsSections.h.
#pragma once

#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QWidget>

namespace velmar {

class SettingsSection : public QWidget {
    Q_OBJECT

public:
    // Lines begin at the controls' edge, or further left by what their first part has around
    // itself.
    enum class Outdent { None = 0, Ring = 4, Quiet = 10 };

    // What a ring may need to the right of the section's edge: lies in the window's margin.
    static constexpr int rightRoom = 4;

    explicit SettingsSection(QWidget* parent = nullptr);

    void setTitle(const QString& title);
    // False if the title is elided for want of room.
    [[nodiscard]] bool hasWholeTitle() const;

    // The last one has no hairline below it.
    void setLast();

protected:
    // A line of controls, at least that high, below the one before by the gap.
    QHBoxLayout* addLine(Outdent outdent = Outdent::None, int height = 32, int gap = 10);

    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_lines;
    bool m_isLast = false;
};

}  // namespace velmar
