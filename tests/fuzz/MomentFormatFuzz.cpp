// Any format of a date, folder and path, between NULs: the format makes a pattern or none, and a
// path is dated in bounded time.
#include <QtCore/QElapsedTimer>

#include "DiaryKit/FolderSources/MarkdownFolderSource.h"
#include "DiaryKit/Import/LocalTime.h"
#include "tests/fuzz/Fuzzing.h"

namespace diary::fuzz {
namespace {

void check(const QString& format, const QString& folder, const QString& path) {
    // A path is given up on after some milliseconds; sanitizers and busy machines add to them.
    constexpr qint64 kLongest = 2000;
    QElapsedTimer timer;
    timer.start();
    const auto pattern = MarkdownFolderSource::momentRegex(format, folder);
    const auto day = MarkdownFolderSource::date(path, pattern);
    const auto common = MarkdownFolderSource::date(path, std::nullopt);
    require(timer.elapsed() < kLongest, "a path takes a moment", {format, folder, path});
    require(!day || (LocalTime::isValid(day->year, day->month, day->day) && day->year >= 1900 &&
                     day->year <= 2100),
            "a date is one of the calendar", {format, folder, path});
    require(day || !common, "a format adds to the common patterns", {format, folder, path});
    if (!pattern || !pattern->date(path)) return;
    require(folder.isEmpty() || path.startsWith(folder + u'/'), "a note lies in its folder",
            {format, folder, path});
    require(path.endsWith(QLatin1String(".md")) || path.endsWith(QLatin1String(".markdown")) ||
                path.contains(u'\n') || path.contains(u'\r') || path.contains(u'\u2028') ||
                path.contains(u'\u2029') || path.contains(u'\u0085') || path.contains(u'\v') ||
                path.contains(u'\f'),
            "a note is Markdown", {format, folder, path});
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QList<QString> pieces = diary::fuzz::pieces(data, size);
    diary::fuzz::check(pieces.value(0), pieces.value(1), pieces.value(2));
    return 0;
}
