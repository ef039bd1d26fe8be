// Any text, cut at its date lines with options that the first byte chooses: the same as line by
// line, and no line without a date is lost. The same text as pages of a PDF only loses lines.
#include "DiaryKit/FolderSources/DatedTextSource.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/kit/datedtext/PlainSplit.h"

namespace diary::fuzz {
namespace {

void checkEntry(const QString& text, const ImportedEntry& entry) {
    require(LocalTime::isValid(entry.day.year, entry.day.month, entry.day.day),
            "an entry's day is one of the calendar", {text});
    require(!entry.title || !entry.title->isEmpty(), "a title that is there isn't empty", {text});
    require(!entry.weather || !entry.weather->isEmpty(), "weather that is there isn't empty",
            {text});
    require(entry.title || !entry.body.isEmpty(), "an entry holds something", {text});
    require(!entry.body.contains(u'\r'), "lines end with LF", {text, entry.body});
}

// With a year for each date, only such lines are dropped that hold a date or lie ahead of all.
void checkWords(const QString& text, const ImportBatch& batch) {
    QStringList lines;
    for (const ImportedEntry& entry : batch.entries) lines << entry.body.split(u'\n');
    QString plain = text;
    plain.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    bool isBelowADate = false;
    qsizetype at = 0;
    const QStringList all = plain.split(u'\n');
    for (const QString& line : all) {
        const bool isDated = DateLine::match(line).has_value();
        isBelowADate = isBelowADate || isDated;
        const QStringView words = text::trimmed(line);
        if (isDated || !isBelowADate || words.isEmpty()) continue;
        while (at < lines.size() && text::trimmed(lines[at]) != words) ++at;
        require(at < lines.size(), "each line without a date stands in a body", {text, words});
        ++at;
    }
}

void check(const QString& text, int choice) {
    DatedTextSplit::Options options = test::splitOptions(choice % test::kSplitOptions);
    const ImportBatch batch = DatedTextSplit::split(text, QStringLiteral("x"), options);
    require(batch == test::plainSplit(text, QStringLiteral("x"), options),
            "the text is cut as line by line", {text});
    for (const ImportedEntry& entry : batch.entries) checkEntry(text, entry);
    options.placement = DatedTextSplit::Placement::anyLine;
    options.assumedYear = 2024;
    checkWords(text, DatedTextSplit::split(text, QStringLiteral("x"), options));
    const QStringList pages = text.split(u'\f');
    require(DatedTextSource::pdfText(pages).size() <= text.size(), "pages only lose lines", {text});
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    for (const QString& text : diary::fuzz::pieces(data + 1, size - 1)) {
        diary::fuzz::check(text, data[0]);
    }
    return 0;
}
