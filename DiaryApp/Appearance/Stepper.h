// A number between a smaller and a larger button. Arrow keys step it too; the wheel doesn't, as it
// would while one scrolls past.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>

#include "DiaryApp/Appearance/FocusRing.h"

class QAbstractButton;

namespace velmar {

class Stepper : public QWidget {
    Q_OBJECT

public:
    static constexpr double kStep = 1;

    explicit Stepper(QWidget* parent = nullptr);

    // What the buttons are called when read aloud.
    void setStepNames(const QString& smaller, const QString& larger);

    void setRange(double minimum, double maximum);
    // Doesn't call onChanged. A value outside the range shows as it is; steps lead back in.
    void setValue(double value);
    // As the user's own step would: into the range, and onChanged is called if it is another value.
    void change(double value);

    [[nodiscard]] double value() const { return m_value; }
    [[nodiscard]] double minimum() const { return m_minimum; }
    [[nodiscard]] double maximum() const { return m_maximum; }
    // "16.5", "17".
    [[nodiscard]] QString valueText() const;

    [[nodiscard]] QAbstractButton* smaller() const;
    [[nodiscard]] QAbstractButton* larger() const;

    std::function<void(double)> onChanged;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Half;

    void step(double by);
    void valueChanged();

    double m_value = 0;
    double m_minimum = 0;
    double m_maximum = 100;
    Half* m_smaller;
    Half* m_larger;
    FocusRing m_ring;
};

}  // namespace velmar
