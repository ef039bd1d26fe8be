#include "DiaryApp/SettingsWindow/OnboardingSheet.h"

#include <QtGui/QPainter>

#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/Fonts.h"
#include "DiaryApp/Appearance/RingsMark.h"
#include "DiaryApp/Appearance/TextPainter.h"

namespace velmar {

namespace {

constexpr double kWidth = 520;
// With the panel's line of 1.
constexpr double kPaddingX = 45;
constexpr double kPaddingY = 41;
constexpr double kTop = 150;
constexpr double kMark = 88;
// Below the mark: the line that it would stand on, and a gap.
constexpr double kMarkGap = 26;
constexpr double kTitleGap = 10;
constexpr double kButtonsGap = 26;
constexpr int kButtonHeight = 40;
constexpr int kBetweenButtons = 10;
constexpr double kTextWidth = kWidth - 2 * kPaddingX;

TextLook titleLook() {
    return {fonts::spaced(fonts::serif(25, QFont::DemiBold), -0.1), 32, Token::InkTitle};
}
TextLook textLook() {
    return {fonts::sans(14), 22, Token::PastText};
}

}  // namespace

OnboardingSheet* OnboardingSheet::show(QWidget* window, std::function<void(VaultChoice)> onChoose) {
    auto* sheet = new OnboardingSheet(window->window(), std::move(onChoose));
    // With its ring: nothing was clicked before this sheet, and Return answers it.
    sheet->present(sheet->m_cloud, Qt::TabFocusReason);
    return sheet;
}

OnboardingSheet::OnboardingSheet(QWidget* window, std::function<void(VaultChoice)> onChoose)
    : Sheet(window, qtTrId("OnboardTitle"), qtTrId("OnboardInfo")),
      m_title(accessibleName()),
      m_text(accessibleDescription()),
      m_onChoose(std::move(onChoose)),
      m_cloud(new Button(Button::Kind::Filled, this)),
      m_local(new Button(Button::Kind::Plain, this)) {
    m_cloud->setText(qtTrId("OnboardICloud"));
    m_cloud->setIconName(QStringLiteral("cloud"));
    m_local->setText(qtTrId("OnboardLocal"));
    m_local->setIconName(QStringLiteral("computer"));
    for (Button* each : {m_cloud, m_local}) each->setButtonSize(Button::Size::Sheet);
    connect(m_cloud, &Button::clicked, this, [this] { choose(VaultChoice::cloud); });
    connect(m_local, &Button::clicked, this, [this] { choose(VaultChoice::local); });
}

void OnboardingSheet::choose(VaultChoice choice) {
    // A second click on its way finds nobody to answer.
    const std::function<void(VaultChoice)> answer = std::exchange(m_onChoose, {});
    dismiss();
    if (answer) answer(choice);
}

double OnboardingSheet::proseTop() const {
    return kPaddingY + kMark + kMarkGap + paragraphHeight(m_title, titleLook(), kTextWidth) +
           kTitleGap;
}

double OnboardingSheet::buttonsTop() const {
    return proseTop() + paragraphHeight(m_text, textLook(), kTextWidth) + kButtonsGap;
}

QSizeF OnboardingSheet::panelSize() const {
    return {kWidth, buttonsTop() + 2 * kButtonHeight + kBetweenButtons + kPaddingY};
}

// A low window has it in the middle.
double OnboardingSheet::panelTop(double panelHeight) const {
    return qBound(0.0, (height() - panelHeight) / 2, kTop);
}

void OnboardingSheet::placeControls() {
    const int x = qRound(panel().left() + kPaddingX);
    int y = qRound(panel().top() + buttonsTop());
    for (Button* each : {m_cloud, m_local}) {
        each->setGeometry(x, y, static_cast<int>(kTextWidth), kButtonHeight);
        y += kButtonHeight + kBetweenButtons;
    }
}

void OnboardingSheet::paintPanel(QPainter& painter) {
    const QRectF inner = panel().adjusted(kPaddingX, kPaddingY, -kPaddingX, -kPaddingY);
    paintRingsMark(painter, {inner.center().x() - kMark / 2, inner.top(), kMark, kMark});
    QRectF place = inner;
    place.setTop(inner.top() + kMark + kMarkGap);
    paintParagraph(painter, place, m_title, titleLook(), Qt::AlignHCenter);
    place.setTop(panel().top() + proseTop());
    paintParagraph(painter, place, m_text, textLook(), Qt::AlignHCenter);
}

}  // namespace velmar
