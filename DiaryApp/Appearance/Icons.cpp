#include "DiaryApp/Appearance/Icons.h"

#include <QtCore/QFile>
#include <QtGui/QIconEngine>
#include <QtGui/QPixmap>
#include <QtGui/QPixmapCache>
#include <QtSvg/QSvgRenderer>

namespace velmar::icons {

namespace {

QString path(const QString& name) {
    return QStringLiteral(":/icons/%1.svg").arg(name);
}

// QtSvg doesn't know "currentColor", so the colour is put into the file's text.
QByteArray colored(const QString& name, const QColor& color) {
    QFile file(path(name));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return file.readAll().replace("currentColor", color.name(QColor::HexRgb).toLatin1());
}

QPixmap rendered(const QString& name, const QColor& color, const QSizeF& size, qreal scale) {
    QPixmap pixmap((size * scale).toSize());
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(theme::none());
    QSvgRenderer renderer(colored(name, color));
    QPainter painter(&pixmap);
    painter.setOpacity(color.alphaF());
    renderer.render(&painter, QRectF(QPointF(), size));
    return pixmap;
}

class IconEngine : public QIconEngine {
public:
    IconEngine(QString name, Token token) : m_name(std::move(name)), m_token(token) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/,
               QIcon::State /*state*/) override {
        const double side = qMin(rect.width(), rect.height());
        QRectF square(0, 0, side, side);
        square.moveCenter(QRectF(rect).center());
        icons::paint(*painter, square, m_name, theme::color(m_token));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(theme::none());
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new IconEngine(m_name, m_token); }

private:
    QString m_name;
    Token m_token;
};

}  // namespace

void paint(QPainter& painter, const QRectF& square, const QString& name, const QColor& color) {
    if (!exists(name)) return;
    const qreal scale = painter.device()->devicePixelRatioF();
    const QString key = QStringLiteral("icon/%1/%2/%3/%4")
                            .arg(name, color.name(QColor::HexArgb))
                            .arg(square.width())
                            .arg(scale);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = rendered(name, color, square.size(), scale);
        QPixmapCache::insert(key, pixmap);
    }
    painter.drawPixmap(square.topLeft(), pixmap);
}

QIcon icon(const QString& name, Token token) {
    return QIcon(new IconEngine(name, token));
}

bool exists(const QString& name) {
    return QFile::exists(path(name));
}

}  // namespace velmar::icons
