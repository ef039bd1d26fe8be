#include "DiaryKit/Vault/SectionSave.h"

#include <algorithm>
#include <map>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Vault/YearSectionParser.h"

namespace diary {

namespace {

using YearSectionParser::Section;
using YearSectionParser::YearBody;

QStringView slice(QStringView text, const TextRange& range) {
    return text.sliced(range.location, range.length);
}

std::vector<Section>::const_iterator firstSection(const std::vector<Section>& sections, int year) {
    return std::find_if(sections.begin(), sections.end(),
                        [&](const Section& section) { return section.year == year; });
}

// The file without the sections that the previous save wrote as part of the draft: behind the
// year's own section, the first ones of the same year and body. What differs was changed by
// another writer and stays.
QString withoutEmbeddedSections(QStringView latest, int year, QStringView lastWritten) {
    const std::vector<Section> sections = YearSectionParser::sections(latest);
    auto own = firstSection(sections, year);
    if (own == sections.end()) return latest.toString();
    std::vector<YearBody> embedded = YearSectionParser::sectionBodies(lastWritten);
    QString rest = latest.first(own->bodyRange.end()).toString();
    for (auto section = own + 1; section != sections.end(); ++section) {
        const QStringView body = text::trimmed(slice(latest, section->bodyRange));
        const auto match = std::find_if(embedded.begin(), embedded.end(), [&](const YearBody& one) {
            return one.year == section->year && one.body == body;
        });
        if (match != embedded.end()) {
            embedded.erase(match);
        } else {
            rest += slice(latest, section->headerRange);
            rest += slice(latest, section->bodyRange);
        }
    }
    return rest;
}

bool standsUnderYear(const QString& text, int year, const QString& written) {
    const std::vector<Section> sections = YearSectionParser::sections(text);
    const auto own = firstSection(sections, year);
    if (own == sections.end()) return false;
    if (written.isEmpty()) return text::trimmed(slice(text, own->bodyRange)).isEmpty();
    // A header that had no LF takes the one ahead of the body for its own.
    const QStringView behind = QStringView(text).sliced(own->bodyRange.location);
    return text::withoutLeadingNewlines(behind).startsWith(written);
}

// Years and bodies that hold anything, each with the number of times that it stands there.
std::map<std::pair<int, QString>, int> countedBodies(QStringView text) {
    std::map<std::pair<int, QString>, int> counts;
    for (YearBody& one : YearSectionParser::sectionBodies(text)) {
        if (!one.body.isEmpty()) ++counts[{one.year, std::move(one.body)}];
    }
    return counts;
}

}  // namespace

std::optional<SectionSave> savingDraft(QStringView draft, int year, const MonthDay& monthDay,
                                       QStringView latest,
                                       const std::optional<QString>& lastWritten) {
    SectionSave save;
    save.written = YearSectionParser::closingFence(text::trimmed(draft));
    save.replacedBody = YearSectionParser::body(year, latest);
    const QString base =
        lastWritten ? withoutEmbeddedSections(latest, year, *lastWritten) : latest.toString();
    save.text = YearSectionParser::replacingBody(save.written, year, monthDay, base);
    if (standsUnderYear(save.text, year, save.written)) return save;
    // A header that ends the file with a CR would join it with the LF behind, and be none.
    const QString withoutEnd = text::withoutTrailingWhiteSpace(base).toString();
    save.text = YearSectionParser::replacingBody(save.written, year, monthDay, withoutEnd);
    if (standsUnderYear(save.text, year, save.written)) return save;
    return std::nullopt;
}

bool holdsDraft(QStringView draft, int year, const MonthDay& monthDay, QStringView latest,
                const std::optional<QString>& lastWritten) {
    const std::optional<SectionSave> save = savingDraft(draft, year, monthDay, latest, lastWritten);
    return save && countedBodies(save->text) == countedBodies(latest);
}

}  // namespace diary
