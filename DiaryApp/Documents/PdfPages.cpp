#include "DiaryApp/Documents/PdfPages.h"

#include <QtPdf/QPdfDocument>
#include <QtPdf/QPdfSelection>
#include <utility>

#include "DiaryKit/Foundation/LineEnds.h"

namespace diary::documents {

namespace {

// No diary is longer; a damaged file may claim to be.
constexpr int kMostPages = 100'000;
constexpr qsizetype kMostUnits = 256 * qsizetype{1024} * 1024;

// The library ends lines with CR LF, and puts U+FFFE for a hyphen at a line's end that the text
// wouldn't have without the end.
QString joined(QString page) {
    page = text::withLineFeeds(std::move(page));
    constexpr QChar kDividingHyphen(0xFFFE);
    page.replace(QString(kDividingHyphen) + u'\n', QString());
    page.remove(kDividingHyphen);
    return page;
}

}  // namespace

std::optional<QStringList> pdfPages(const QString& path) {
    QPdfDocument document;
    if (document.load(path) != QPdfDocument::Error::None) return std::nullopt;
    QStringList pages;
    qsizetype units = 0;
    const int count = document.pageCount();
    if (count > kMostPages) return std::nullopt;
    for (int page = 0; page < count; ++page) {
        pages << joined(document.getAllText(page).text());
        units += pages.constLast().size();
        if (units > kMostUnits) return std::nullopt;
    }
    return pages;
}

}  // namespace diary::documents
