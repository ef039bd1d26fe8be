// All controls in their states, painted in a light and a dark palette. The pictures go to the
// folder that VELMAR_GALLERY names, to be looked at; the test itself asks for some of their
// colours.
#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include "DiaryApp/Appearance/Appearance.h"
#include "DiaryApp/Appearance/Button.h"
#include "DiaryApp/Appearance/CheckBox.h"
#include "DiaryApp/Appearance/ComboBox.h"
#include "DiaryApp/Appearance/Motion.h"
#include "DiaryApp/Appearance/RingsMark.h"
#include "DiaryApp/Appearance/SegmentedControl.h"
#include "DiaryApp/Appearance/Stepper.h"
#include "DiaryApp/Appearance/Theme.h"

namespace velmar {
namespace {

class Board : public QWidget {
public:
    // At its own size; what a state needs is done to it first.
    template <class Control>
    Control* put(Control* control, int x, int y) {
        control->setGeometry(QRect(QPoint(x, y), control->sizeHint()));
        return control;
    }

    void hover(QWidget* widget) {
        QHoverEvent over(QEvent::HoverEnter, QPointF(3, 3), QPointF(3, 3), QPointF(-1, -1));
        QCoreApplication::sendEvent(widget, &over);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect(), theme::color(Token::Paper));
        paintRingsMark(painter, {470, 20, 88, 88});
    }
};

void putButtons(Board& board) {
    int y = 20;
    for (const auto kind : {Button::Kind::Filled, Button::Kind::Plain, Button::Kind::Danger,
                            Button::Kind::Quiet, Button::Kind::Link}) {
        for (int state = 0; state < 4; ++state) {
            auto* button = new Button(kind, &board);
            button->setText(QStringLiteral("Choose…"));
            if (kind == Button::Kind::Quiet) button->setIconName(QStringLiteral("source"));
            board.put(button, 20 + state * 110, y);
            if (state == 1) board.hover(button);
            if (state == 2) button->setDown(true);
            if (state == 3) button->setEnabled(false);
        }
        y += 46;
    }
}

void putChoices(Board& board) {
    auto* modes = new SegmentedControl(&board);
    modes->setChoices({{QStringLiteral("Light"), {}},
                       {QStringLiteral("Dark"), {}},
                       {QStringLiteral("System"), {}}});
    board.put(modes, 20, 260);
    auto* styles = new SegmentedControl(&board);
    styles->setChoices({{QStringLiteral("Strip"), QStringLiteral("photos-strip")},
                        {QStringLiteral("Timeline"), QStringLiteral("photos-timeline")},
                        {QStringLiteral("Mosaic"), QStringLiteral("photos-mosaic")}});
    styles->setChosen(2);
    board.put(styles, 250, 260);
    auto* combo = new ComboBox(&board);
    combo->setChoices({QStringLiteral("Mosaic")}, 0);
    board.put(combo, 20, 310)->setFixedWidth(168);
    auto* stepper = new Stepper(&board);
    stepper->setValue(16.5);
    board.put(stepper, 210, 310);
    auto* focused = new ComboBox(&board);
    focused->setChoices({QStringLiteral("Focus")}, 0);
    board.put(focused, 350, 310)->setFixedWidth(120);
    int x = 20;
    for (const auto shape : {CheckBox::Shape::Square, CheckBox::Shape::Round}) {
        for (int state = 0; state < 4; ++state) {
            // Round ones exclude each other, so each gets a parent of its own.
            auto* holder = new QWidget(&board);
            holder->setGeometry(x, 360, 60, 20);
            auto* box = new CheckBox(QStringLiteral("box"), holder, shape);
            box->resize(box->sizeHint());
            if (state > 0) box->setChecked(state != 3);
            if (state == 2) board.hover(box);
            if (state == 3) box->setEnabled(false);
            x += 64;
        }
    }
}

class ControlsGallery : public testing::TestWithParam<diary::Palette> {};

TEST_P(ControlsGallery, PaintsEveryControlInItsStates) {
    appearance::prepare();
    motion::setReduced(true);
    const diary::Palette before = theme::tokens().palette();
    theme::setPalette(GetParam());
    Board board;
    board.resize(600, 400);
    board.show();
    board.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&board));
    putButtons(board);
    putChoices(board);
    for (auto* each : board.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) each->show();
    board.findChildren<ComboBox*>().last()->setFocus(Qt::TabFocusReason);
    const QImage picture = board.grab().toImage();
    const QString target = qEnvironmentVariable("VELMAR_GALLERY");
    if (!target.isEmpty()) {
        ASSERT_TRUE(picture.save(QDir(target).filePath(
            QStringLiteral("controls-%1.png").arg(diary::palette::rawValue(GetParam())))));
    }
    // The rest fill, the hover and the pressed one of the filled buttons differ from each other.
    const QRgb rest = picture.pixel(26, 36);
    EXPECT_EQ(rest, theme::color(Token::Accent).rgb());
    EXPECT_EQ(picture.pixel(136, 36), theme::color(Token::AccentDeep).rgb());
    EXPECT_NE(picture.pixel(246, 36), picture.pixel(136, 36));
    motion::setReduced(false);
    theme::setPalette(before);
}

INSTANTIATE_TEST_SUITE_P(Palettes, ControlsGallery,
                         testing::Values(diary::Palette::paper, diary::Palette::ink));

}  // namespace
}  // namespace velmar
