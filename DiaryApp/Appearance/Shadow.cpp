#include "DiaryApp/Appearance/Shadow.h"

#include <QtGui/QImage>
#include <QtGui/QPixmapCache>
#include <cmath>
#include <numbers>
#include <vector>

#include "DiaryApp/Appearance/Theme.h"

namespace velmar {

namespace {

constexpr double kDarkOpacity = 0.45;

QColor shadowColor(const Elevation& elevation) {
    if (!theme::tokens().isDark()) return theme::color(Token::InkStrong, elevation.opacity);
    return QColor::fromRgbF(0, 0, 0, static_cast<float>(kDarkOpacity));
}

// How much of the shadow falls on each pixel of a line that runs `reach` beyond the box on both
// sides: the box's edges, blurred.
std::vector<double> profile(int length, int reach, double deviation) {
    std::vector<double> shares(static_cast<std::size_t>(length + 2 * reach));
    const double scale = deviation * std::numbers::sqrt2;
    for (std::size_t i = 0; i < shares.size(); ++i) {
        const double at = static_cast<double>(i) + 0.5 - reach;
        shares[i] = 0.5 * (std::erf(at / scale) - std::erf((at - length) / scale));
    }
    return shares;
}

// A blurred box is the product of its two blurred sides. Its corners are so soft that it makes no
// difference whether they were round.
QImage blurredBox(const QSize& box, int reach, double deviation, const QColor& color) {
    const auto across = profile(box.width(), reach, deviation);
    const auto down = profile(box.height(), reach, deviation);
    QImage image(box + QSize(2 * reach, 2 * reach), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const double alpha = color.alphaF() * across[static_cast<std::size_t>(x)] *
                                 down[static_cast<std::size_t>(y)];
            line[x] = qRgba(qRound(color.red() * alpha), qRound(color.green() * alpha),
                            qRound(color.blue() * alpha), qRound(255 * alpha));
        }
    }
    return image;
}

// Made once for each size and colour: what stands on the box is repainted far more often.
QPixmap cachedBox(const QSize& box, int reach, double deviation, const QColor& color) {
    const QString key = QStringLiteral("shadow/%1/%2/%3/%4")
                            .arg(box.width())
                            .arg(box.height())
                            .arg(deviation)
                            .arg(color.name(QColor::HexArgb));
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap::fromImage(blurredBox(box, reach, deviation, color));
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

}  // namespace

void paintShadow(QPainter& painter, const QRectF& box, const Elevation& elevation) {
    const int reach = static_cast<int>(std::ceil(elevation.blur));
    const QRect below = box.translated(0, elevation.offset).toAlignedRect();
    if (below.isEmpty()) return;
    painter.drawPixmap(below.topLeft() - QPoint(reach, reach),
                       cachedBox(below.size(), reach, elevation.blur / 2, shadowColor(elevation)));
}

}  // namespace velmar
