// A few choices side by side, of which one is taken: the arrow keys go through them, and around at
// the ends. Each choice is a radio button to assistive technology, the whole a group.
#pragma once

#include <QtWidgets/QWidget>
#include <functional>
#include <vector>

#include "DiaryApp/Appearance/FocusRing.h"

namespace velmar {

class SegmentedControl : public QWidget {
    Q_OBJECT

public:
    struct Choice {
        QString text;
        // A small drawing ahead of the text, an icon of 20 by 14; empty for none.
        QString drawing;

        bool operator==(const Choice&) const = default;
    };

    explicit SegmentedControl(QWidget* parent = nullptr);

    // Keeps the chosen index where there is such a choice still; otherwise the first is chosen. New
    // segments come last in the order of the Tab key.
    void setChoices(const std::vector<Choice>& choices);

    // Doesn't call onChosen. An index without a choice is ignored.
    void setChosen(int index);
    // -1 without choices.
    [[nodiscard]] int chosen() const;

    // The part of that index; null if there is none.
    [[nodiscard]] QWidget* segment(int index) const;

    // The user took another choice than the present one.
    std::function<void(int)> onChosen;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Segment;

    void choose(int index);
    bool moveByKey(int key);
    void place();

    std::vector<Segment*> m_segments;
    FocusRing m_ring;
};

}  // namespace velmar
