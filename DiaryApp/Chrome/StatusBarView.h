// The bar below the page. On the left stands, in this order of precedence, a running flash, a
// pinned notice, or the file's path; on the right what is in view.
#pragma once

#include <QtCore/QTimer>
#include <QtCore/QVariantAnimation>
#include <QtWidgets/QWidget>
#include <functional>
#include <optional>

namespace velmar {

class StatusBarView : public QWidget {
    Q_OBJECT

public:
    // How long a flash stays.
    static constexpr int flashMilliseconds = 4000;

    // `homeFolder` is shown as "~" in paths.
    explicit StatusBarView(QString homeFolder, QWidget* parent = nullptr,
                           int flashTime = flashMilliseconds);

    // The day file's path and the text at the right.
    void update(const QString& path, const QString& status);

    // Shows the text for four seconds (the flash time). Another flash takes its place and begins
    // anew. It fades in and out; that is all paint, and the bar's texts change at once.
    void flash(const QString& text);

    // Shows the text and behind it the link, until unpin() or another pin(). A click on the link
    // runs the action, except during a flash. An empty link leaves it out.
    void pin(const QString& text, const QString& link, std::function<void()> action);
    void unpin();

    // What stands at the left now, "text · link" for a pinned notice.
    [[nodiscard]] QString leftText() const;
    [[nodiscard]] const QString& rightText() const { return m_status; }
    [[nodiscard]] bool isFlashing() const { return m_flash.has_value(); }
    // How much of the last flash is painted, 0 to 1; the rest is what stands there otherwise.
    [[nodiscard]] double flashShare() const { return m_flashShare; }
    // Where a click runs the pinned action; empty while there is none to run.
    [[nodiscard]] QRect linkRect() const;

    void retranslate();

    static constexpr int barHeight = 28;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct Pinned {
        QString text;
        QString link;
        std::function<void()> action;
    };

    void refresh();
    void fadeFlash(double target, int milliseconds);
    void announce();
    void runAction();
    [[nodiscard]] QString withHomeShort(const QString& path) const;
    // What stands at the left without a flash.
    [[nodiscard]] QString restText() const;
    [[nodiscard]] QRect restLinkRect() const;
    void paintLeft(QPainter& painter, const QRectF& line) const;
    void paintRest(QPainter& painter, const QRectF& line) const;

    QString m_homeFolder;
    QString m_currentPath;
    QString m_status;
    std::optional<QString> m_flash;
    std::optional<Pinned> m_pinned;
    QTimer m_flashTimer;
    // Still painted while it fades out.
    QString m_flashText;
    double m_flashShare = 0;
    QVariantAnimation m_fade;
};

}  // namespace velmar
