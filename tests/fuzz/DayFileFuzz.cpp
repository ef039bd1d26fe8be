// Any bytes as a day file: two readers agree on them, and whatever changes one section leaves all
// others as they are.
#include <set>
#include <utility>
#include <vector>

#include "DiaryKit/Vault/YearScan.h"
#include "tests/fuzz/Fuzzing.h"

namespace diary::fuzz {
namespace {

using namespace YearSectionParser;

using Bodies = std::vector<YearBody>;

void checkSections(QStringView text) {
    const std::vector<Section> all = sections(text);
    const Bodies bodies = sectionBodies(text);
    require(all.size() == bodies.size(), "each section has a body", {text});
    std::set<int> years;
    for (size_t i = 0; i < all.size(); ++i) {
        const qsizetype next = i + 1 < all.size() ? all[i + 1].headerRange.location : text.size();
        require(all[i].headerRange.length > 0, "a header has units", {text});
        require(all[i].headerRange.end() == all[i].bodyRange.location, "a body follows its header",
                {text});
        require(all[i].bodyRange.end() == next, "a body ends where the next header begins", {text});
        require(all[i].year == bodies[i].year, "bodies are in the order of sections", {text});
        if (!bodies[i].body.isEmpty()) years.insert(bodies[i].year);
    }
    require(years == yearsWithContent(text), "the years with content have a body", {text});
}

Bodies withoutFirst(Bodies bodies, int year) {
    const auto found = std::find_if(bodies.begin(), bodies.end(),
                                    [&](const YearBody& one) { return one.year == year; });
    if (found != bodies.end()) bodies.erase(found);
    return bodies;
}

// Every other section of the file. A fence that the file leaves open is closed where a section is
// put behind it, so it counts as closed on both sides.
Bodies others(QStringView text, int year) {
    if (!leavesFenceOpen(text)) return withoutFirst(sectionBodies(text), year);
    return withoutFirst(sectionBodies(closingFence(text::withoutTrailingWhiteSpace(text))), year);
}

void checkEnsuring(QStringView text, int year) {
    const EnsuredSection ensured = ensuringSection(year, kDay, text);
    require(others(ensured.text, year) == others(text, year), "ensuring keeps the other sections",
            {text, ensured.text});
    require(sectionBodies(ensured.text).size() == others(text, year).size() + 1,
            "ensuring makes the section", {text, ensured.text});
    require(ensured.caretUTF16Offset >= 0 && ensured.caretUTF16Offset <= ensured.text.size(),
            "the caret is in the text", {text, ensured.text});
    require(ensuringSection(year, kDay, ensured.text).text == ensured.text,
            "a section that is there is left alone", {text, ensured.text});
}

void checkReplacing(QStringView text, int year, QStringView body) {
    const QString written = closingFence(text::trimmed(body));
    const QString replaced = replacingBody(written, year, kDay, text);
    // A year header in the body is a section of its own; what becomes of it is the saving's affair.
    if (!sections(written).empty()) return;
    require(YearSectionParser::body(year, replaced) == written, "a body is found again",
            {text, replaced, written});
    require(others(replaced, year) == others(text, year), "replacing keeps the other sections",
            {text, replaced});
}

void checkRemoving(QStringView text, int year) {
    const QString removed = removingSection(year, text);
    const Bodies expected = withoutFirst(sectionBodies(text), year);
    require(sectionBodies(removed) == expected, "removing keeps the other sections",
            {text, removed});
    require(documentPreamble(removed) == documentPreamble(text), "removing keeps the preamble",
            {text, removed});
}

void check(const QByteArray& bytes) {
    const QString text = utf8::decodedWithRepair(bytes);
    require(yearsWithContent(text) == diary::yearsWithContent(QByteArrayView(bytes)),
            "the text and its bytes have the same years", {text});
    checkSections(text);
    if (hasHeaderInWaiting(text)) return;
    // A header that ends the file with a CR joins it with the LF that is put behind, and is none.
    // Saving a draft knows that; these functions don't.
    if (text.endsWith(u'\r')) return;
    std::set<int> years = {1000, 2024, 9999};
    for (const Section& section : sections(text)) {
        if (years.size() < 8) years.insert(section.year);
    }
    for (int year : years) {
        checkEnsuring(text, year);
        checkReplacing(text, year, u"Rain.\n\n```\ncode");
        checkReplacing(text, year, text);
        checkReplacing(text, year, QStringView(text).first(text.size() / 2));
        checkRemoving(text, year);
    }
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    diary::fuzz::check({reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)});
    return 0;
}
