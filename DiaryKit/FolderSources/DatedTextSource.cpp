#include "DiaryKit/FolderSources/DatedTextSource.h"

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <algorithm>
#include <array>
#include <vector>

#include "DiaryKit/DatedText/LineCursor.h"
#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Import/HTMLToMarkdown.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/PackagePath.h"
#include "DiaryKit/Import/TextDecoding.h"

namespace diary::DatedTextSource {

namespace {

using Lines = QList<QStringView>;

template <std::size_t N>
bool isOneOf(const QString& extension, const std::array<QLatin1String, N>& extensions) {
    return std::find(extensions.begin(), extensions.end(), extension) != extensions.end();
}

constexpr std::array kHtml = {QLatin1String("html"), QLatin1String("htm")};
constexpr std::array kDocuments = {QLatin1String("rtf"), QLatin1String("rtfd"),
                                   QLatin1String("doc"), QLatin1String("docx"),
                                   QLatin1String("odt"), QLatin1String("webarchive")};

Lines trimmedLines(const QString& page) {
    Lines lines = QStringView(page).split(u'\n');
    for (QStringView& line : lines) line = text::trimmedOfBlanks(line);
    return lines;
}

// The lines, each once, among which a running header or footer would stand.
QSet<QStringView> edges(const Lines& lines) {
    constexpr qsizetype kDepth = 2;
    const qsizetype depth = std::min(kDepth, lines.size());
    QSet<QStringView> found;
    for (qsizetype i = 0; i < depth; ++i) found << lines[i] << lines[lines.size() - 1 - i];
    found.remove(QStringView());
    return found;
}

QSet<QStringView> repeatedLines(const QList<Lines>& pages) {
    constexpr qsizetype kFewestPages = 3;
    QSet<QStringView> repeated;
    if (pages.size() < kFewestPages) return repeated;
    QHash<QStringView, qsizetype> pagesWith;
    for (const Lines& page : pages) {
        for (const QStringView line : edges(page)) ++pagesWith[line];
    }
    for (auto line = pagesWith.cbegin(); line != pagesWith.cend(); ++line) {
        if (line.value() * 2 > pages.size()) repeated << line.key();
    }
    return repeated;
}

// ^(?:-\s*)?\d{1,4}(?:\s*/\s*\d{1,4})?(?:\s*-)?$ where $ also matches ahead of a last line end.
bool isPageNumber(QStringView text) {
    constexpr int kMostDigits = 4;
    LineCursor line(text);
    if (line.take(u'-')) line.skipWhiteSpace();
    if (line.takeDigits(1, kMostDigits).isEmpty()) return false;
    LineCursor total = line;
    total.skipWhiteSpace();
    if (total.take(u'/')) {
        total.skipWhiteSpace();
        if (!total.takeDigits(1, kMostDigits).isEmpty()) line = total;
    }
    LineCursor dash = line;
    dash.skipWhiteSpace();
    if (dash.take(u'-')) line = dash;
    const QStringView behind = line.rest();
    return behind.isEmpty() || (behind.size() == 1 && text::isNewline(behind[0].unicode()));
}

}  // namespace

const std::set<QString>& fileExtensions() {
    static const std::set<QString> extensions = [] {
        std::set<QString> all = {QStringLiteral("txt"), QStringLiteral("text"),
                                 QStringLiteral("md"), QStringLiteral("markdown"),
                                 QStringLiteral("pdf")};
        all.insert(kHtml.begin(), kHtml.end());
        all.insert(kDocuments.begin(), kDocuments.end());
        return all;
    }();
    return extensions;
}

QString text(const QString& path, const DocumentReaders& readers) {
    const QString extension = package_path::extension(path).toString().toLower();
    if (extension == QLatin1String("pdf")) {
        const auto pages = readers.pdfPages ? readers.pdfPages(path) : std::nullopt;
        if (!pages) throw ImportError(ImportError::Kind::unrecognized);
        return pdfText(*pages);
    }
    if (isOneOf(extension, kDocuments)) {
        if (!readers.documentText) throw ImportError(ImportError::Kind::unrecognized);
        return readers.documentText(path);
    }
    const QString decoded = TextDecoding::decode(atomicfile::read(path));
    return isOneOf(extension, kHtml) ? HTMLToMarkdown::markdown(decoded) : decoded;
}

QString pdfText(const QStringList& pages) {
    QList<Lines> lines;
    for (const QString& page : pages) lines << trimmedLines(page);
    const QSet<QStringView> repeated = repeatedLines(lines);
    QString text;
    for (qsizetype page = 0; page < lines.size(); ++page) {
        if (page > 0) text += u'\n';
        bool isFirst = true;
        for (const QStringView line : lines[page]) {
            if (repeated.contains(line) || isPageNumber(line)) continue;
            if (!isFirst) text += u'\n';
            text += line;
            isFirst = false;
        }
    }
    return text;
}

}  // namespace diary::DatedTextSource
