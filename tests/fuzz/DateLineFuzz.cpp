// Any text as a line: the scanners tell what the patterns tell that they stand for, and the date of
// a match, written plainly ahead of its rest, is told again.
#include "DiaryKit/DatedText/DateLine.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/kit/datedtext/PatternDateLine.h"

namespace diary::fuzz {
namespace {

void check(const QString& line) {
    static const test::PatternDateLine patterns;
    const auto match = DateLine::match(line);
    require(match == patterns.match(line), "a line is told as its pattern tells it", {line});
    if (!match) return;
    require(line.contains(match->rest), "the rest is a part of the line", {line, match->rest});
    const QString blanks = QStringLiteral(" \t　") + line + QStringLiteral("　 ");
    require(DateLine::match(blanks) == match, "blanks around a line tell nothing", {line});
    // A slash ends what could be read as a weekday or a clock.
    const QString plain = QStringLiteral("%1-%2-%3 /")
                              .arg(match->year.value_or(2000))
                              .arg(match->month)
                              .arg(match->day);
    const auto again = DateLine::match(plain + match->rest);
    require(again && again->month == match->month && again->day == match->day && !again->time &&
                again->rest == u'/' + match->rest,
            "the date ahead of the rest is told again", {line, match->rest});
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    for (const QString& line : diary::fuzz::pieces(data, size)) diary::fuzz::check(line);
    return 0;
}
