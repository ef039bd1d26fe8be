// The cut of an addition out of a text that was edited since.
#include <QtCore/QStringBuilder>

#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/ImportUndo.h"
#include "DiaryKit/Vault/YearSectionParser.h"

namespace diary::ImportLog {

namespace {

const QLatin1String kRule("---");
const QLatin1String kRuleLine("---\n");
const QLatin1String kSeparator("\n\n---\n\n");

bool isAtLineEnd(QStringView text, qsizetype position) {
    return position == text.size() || text[position] == u'\n';
}

// Whether `part` stands at `position` on lines of its own.
bool standsAlone(QStringView text, QStringView part, qsizetype position) {
    const bool isBehindLine =
        position == 0 || text[position - 1] == u'\n' || part.startsWith(u'\n');
    return isBehindLine && isAtLineEnd(text, position + part.size());
}

// The text without the part, if that stands in it exactly once, on lines of its own. Of two copies
// nobody knows which one is the import's.
std::optional<QString> withoutOnly(QStringView text, QStringView part) {
    const qsizetype position = text.indexOf(part);
    if (position < 0 || text.indexOf(part, position + 1) >= 0) return std::nullopt;
    if (!standsAlone(text, part, position)) return std::nullopt;
    return QString(text.first(position) % text.sliced(position + part.size()));
}

// The section without the addition wherever it stands, with the rule ahead of it if it has one.
std::optional<QString> withoutAddition(QStringView section, const QString& addition) {
    if (!section.contains(addition)) return std::nullopt;
    for (const QString& part :
         {kSeparator + addition, kRule + QLatin1String("\n\n") + addition, addition}) {
        if (auto rest = withoutOnly(section, part)) return rest;
    }
    return std::nullopt;
}

// The cut must not leave a rule at the head of the section; one that was there stays.
QString withoutNewRule(QStringView section, QStringView before) {
    const QStringView text = text::trimmed(section);
    const bool isHeaded = text == kRule || text.startsWith(kRuleLine);
    if (before.startsWith(kRule) || !isHeaded) return text.toString();
    return text::trimmed(text.sliced(kRule.size())).toString();
}

bool holds(QStringView text, QStringView part) {
    return !part.isEmpty() && text.contains(part);
}

// What follows the part at the head of the text; nothing if another text stands there.
std::optional<QStringView> behind(QStringView part, std::optional<QStringView> text) {
    if (!text || !text->startsWith(part)) return std::nullopt;
    return text->sliced(part.size());
}

// The section's text without the addition, or nothing if there is no being sure.
std::optional<QString> cutSection(QStringView section, const ImportRecord::Added& added,
                                  const QString& addition, QStringView prior) {
    // The old text, the addition, and what was written behind it.
    std::optional<QStringView> rest = behind(prior, section);
    if (added.appended && rest) {
        rest = rest->startsWith(kSeparator) ? std::optional(rest->sliced(kSeparator.size()))
                                            : std::nullopt;
    }
    rest = behind(addition, rest);
    if (rest && isAtLineEnd(*rest, 0)) return QString(prior % *rest);
    // The old text says the same, so a cut could take the user's words.
    if (addition.isEmpty() || holds(prior, addition)) return std::nullopt;
    return withoutAddition(section, addition);
}

}  // namespace

Cut cutOut(const ImportRecord::Added& added, const std::optional<SectionedText>& backup,
           bool isOfOldVersion, SectionedText& day) {
    const QString addition = text::trimmed(added.text).toString();
    const QStringView prior = backup ? backup->body(added.year) : QStringView();
    if (isOfOldVersion && holds(prior, addition)) return Cut::NotNeeded;
    const std::optional<QStringView> whole = day.section(added.year);
    if (!whole) return Cut::NotFound;
    const QStringView section = text::trimmed(*whole);
    const std::optional<QString> rest = cutSection(section, added, addition, prior);
    if (!rest) return Cut::NotFound;
    QString body = withoutNewRule(*rest, section);
    if (body.isEmpty() && !added.appended) {
        day.removeSection(added.year);
        return Cut::Made;
    }
    // What is left must not swallow the years behind it: the addition may have closed a fence, and
    // trimming may show one that white space hid.
    if (!YearSectionParser::leavesFenceOpen(*whole)) body = YearSectionParser::closingFence(body);
    day.replaceBody(body, added.year);
    return Cut::Made;
}

}  // namespace diary::ImportLog
