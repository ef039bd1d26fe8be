// A small page in the colours of its own palette, whichever is in force, and the palette's name
// below it. Swatches of one set exclude each other as radio buttons do.
#pragma once

#include <QtWidgets/QAbstractButton>
#include <functional>
#include <vector>

#include "DiaryApp/Appearance/FocusRing.h"
#include "DiaryApp/Appearance/HoverFade.h"
#include "DiaryApp/Appearance/Theme.h"
#include "DiaryApp/SettingsWindow/SettingsModel.h"

namespace velmar {

class PaletteSwatch : public QAbstractButton {
    Q_OBJECT

public:
    // Around the page there is room for the ring.
    static constexpr int kMargin = 4;

    explicit PaletteSwatch(diary::Palette palette, QWidget* parent = nullptr);

    // Also takes the palette's name in the language of now.
    void update(const SettingsModel::Swatch& swatch);

    [[nodiscard]] diary::Palette palette() const { return m_tokens.palette(); }
    // Drawn dimmed while its set isn't in force; it can be chosen all the same.
    [[nodiscard]] bool isDimmed() const { return !m_isInForce; }

    [[nodiscard]] QSize sizeHint() const override;

    using QWidget::update;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void paintAll(QPainter& painter) const;
    void paintPage(QPainter& painter, const QRectF& page) const;
    void paintRing(QPainter& painter, const QRectF& page) const;

    Tokens m_tokens;
    bool m_isInForce = true;
    // What the ring of the focus goes around: outside of the ring of the choice.
    QWidget* m_frame;
    HoverFade m_hover;
    FocusRing m_ring;
};

// The swatches of one set side by side.
class SwatchGroup : public QWidget {
    Q_OBJECT

public:
    SwatchGroup(std::span<const diary::Palette> palettes, QWidget* parent = nullptr);

    // Takes the swatches of its palettes.
    void update(const std::vector<SettingsModel::Swatch>& swatches);

    [[nodiscard]] const std::vector<PaletteSwatch*>& swatches() const { return m_swatches; }

    // The user took another palette than the chosen one.
    std::function<void(diary::Palette)> onPicked;

    [[nodiscard]] QSize sizeHint() const override;

    using QWidget::update;

private:
    std::vector<PaletteSwatch*> m_swatches;
};

}  // namespace velmar
