// The first start's question over the main window: the cloud's folder or this computer. It stays
// until it is answered: Escape does nothing.
#pragma once

#include <functional>

#include "DiaryApp/Chrome/Sheet.h"
#include "DiaryApp/Settings/Onboarding.h"

namespace velmar {

class Button;

class OnboardingSheet : public Sheet {
    Q_OBJECT

public:
    // Shows the sheet; the calling code goes on at once. `onChoose` is called with the answer once
    // the sheet is gone from view. The sheet deletes itself.
    static OnboardingSheet* show(QWidget* window, std::function<void(VaultChoice)> onChoose);

    // Has the focus at first.
    [[nodiscard]] Button* cloudButton() const { return m_cloud; }
    [[nodiscard]] Button* localButton() const { return m_local; }

protected:
    [[nodiscard]] QSizeF panelSize() const override;
    [[nodiscard]] double panelTop(double panelHeight) const override;
    void placeControls() override;
    void paintPanel(QPainter& painter) override;

private:
    OnboardingSheet(QWidget* window, std::function<void(VaultChoice)> onChoose);
    void choose(VaultChoice choice);
    [[nodiscard]] double proseTop() const;
    [[nodiscard]] double buttonsTop() const;

    QString m_title;
    QString m_text;
    std::function<void(VaultChoice)> m_onChoose;
    Button* m_cloud;
    Button* m_local;
};

}  // namespace velmar
