// Two texts as two states of one day: the merge holds what either side wrote, and taking the same
// version in once more changes nothing.
#include <map>

#include "DiaryKit/Vault/DocumentMerge.h"
#include "tests/fuzz/Fuzzing.h"

namespace diary::fuzz {
namespace {

using namespace YearSectionParser;

const QString kMarker = QStringLiteral("(both)");

QString decomposed(QStringView text) {
    return text.toString().normalized(QString::NormalizationForm_D);
}

// Of two canonically equivalent texts one is enough.
bool holds(const QString& text, const QString& body) {
    return text.contains(body) || decomposed(text).contains(decomposed(body));
}

// The sections under their years; a merge leaves each year once.
std::map<int, QString> byYear(QStringView text) {
    std::map<int, QString> result;
    for (const YearBody& one : sectionBodies(text)) result[one.year] += one.body;
    return result;
}

// A merge writes the year 999 as "## 999", which is no header.
bool hasShortYear(QStringView text) {
    const std::vector<Section> all = sections(text);
    return std::any_of(all.begin(), all.end(), [](const Section& one) { return one.year < 1000; });
}

bool hasYearTwice(QStringView text) {
    return byYear(text).size() != sections(text).size();
}

void check(const QString& current, const QString& copy) {
    const QString merged = mergingVersion(current, copy, kDay, kMarker);
    // As the merge reads it: CR LF ends no line of a day file, but may do so in a copy.
    QString version = copy;
    if (sections(version).empty()) version.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    for (const QString& side : {current, version}) {
        for (const YearBody& one : sectionBodies(side)) {
            require(holds(merged, one.body), "a merge holds each body",
                    {current, version, merged, one.body});
        }
    }
    for (const QString& side : {current, version}) {
        if (hasHeaderInWaiting(side) || !staysWholeWhenTrimmed(side) || hasShortYear(side)) return;
    }
    std::map<int, QString> bodies = byYear(merged);
    for (const QString& side : {current, version}) {
        for (const YearBody& one : sectionBodies(side)) {
            require(bodies.contains(one.year) && holds(bodies[one.year], one.body),
                    "a merge holds each body under its year", {current, version, merged, one.body});
        }
    }
    require(!hasYearTwice(merged), "a merge has each year once", {current, version, merged});
    const QString again = mergingVersion(merged, copy, kDay, kMarker);
    if (!hasYearTwice(version)) {
        require(again == merged, "taking a version in again changes nothing",
                {current, version, merged, again});
        return;
    }
    // Of a year that stands twice in the version, one body may begin what the other then hides.
    // It is taken in a second time then, and that is the end of it.
    require(mergingVersion(again, copy, kDay, kMarker) == again,
            "taking a version in for the third time changes nothing",
            {current, version, merged, again});
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QList<QString> texts = diary::fuzz::pieces(data, size);
    if (texts.size() >= 2) diary::fuzz::check(texts[0], texts[1]);
    return 0;
}
