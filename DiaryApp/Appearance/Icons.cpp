#include "DiaryApp/Appearance/Icons.h"

#include <QtCore/QFile>
#include <QtGui/QPixmap>
#include <QtGui/QPixmapCache>
#include <QtSvg/QSvgRenderer>

#include "DiaryApp/Appearance/Theme.h"

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

bool exists(const QString& name) {
    return QFile::exists(path(name));
}

}  // namespace velmar::icons
