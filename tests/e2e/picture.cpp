// Answers questions about pictures, for the end-to-end tests:
//   e2e_picture size FILE              1360x840
//   e2e_picture ground FILE            the colour of the most pixels, as #rrggbb
//   e2e_picture differing FILE FILE    the number of pixels that differ; all of them if sizes do
// Exits with 2 on a file that is no picture and on any other question.
#include <QtCore/QHash>
#include <QtCore/QTextStream>
#include <QtGui/QImage>
#include <algorithm>

namespace {

QImage read(const char* path) {
    return QImage(QString::fromLocal8Bit(path)).convertToFormat(QImage::Format_RGB32);
}

QRgb ground(const QImage& image) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) ++counts[image.pixel(x, y)];
    }
    const auto most = std::max_element(counts.cbegin(), counts.cend());
    return most.key() & RGB_MASK;
}

int differing(const QImage& one, const QImage& other) {
    if (one.size() != other.size()) return one.width() * one.height();
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) count += one.pixel(x, y) != other.pixel(x, y);
    }
    return count;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) return 2;
    const QByteArrayView question(argv[1]);
    const QImage image = read(argv[2]);
    if (image.isNull()) return 2;
    QTextStream out(stdout);
    if (question == "size") {
        out << image.width() << 'x' << image.height() << '\n';
    } else if (question == "ground") {
        out << QStringLiteral("#%1\n").arg(ground(image), 6, 16, QLatin1Char('0'));
    } else if (question == "differing" && argc == 4) {
        const QImage other = read(argv[3]);
        if (other.isNull()) return 2;
        out << differing(image, other) << '\n';
    } else {
        return 2;
    }
    return 0;
}
