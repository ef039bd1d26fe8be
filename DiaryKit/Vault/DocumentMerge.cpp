#include "DiaryKit/Vault/DocumentMerge.h"

#include <algorithm>
#include <map>

#include "DiaryKit/Foundation/LineEnds.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Vault/YearSectionParser.h"

namespace diary::YearSectionParser {

namespace {

const QLatin1String kBlankLine("\n\n");

using Bodies = std::map<int, QString>;

// A year that stands twice keeps its bodies, each once.
Bodies currentBodies(QStringView current) {
    std::map<int, std::vector<QString>> distinct;
    for (YearBody& section : sectionBodies(current)) {
        std::vector<QString>& bodies = distinct[section.year];
        const bool isKnown = section.body.isEmpty() ||
                             std::any_of(bodies.begin(), bodies.end(), [&](const QString& body) {
                                 return text::canonicallyEqual(body, section.body);
                             });
        if (!isKnown) bodies.push_back(std::move(section.body));
    }
    Bodies result;
    for (const auto& [year, bodies] : distinct) {
        QString& joined = result[year];
        for (const QString& body : bodies) {
            if (!joined.isEmpty()) joined = closingFence(joined) + kBlankLine;
            joined += body;
        }
    }
    return result;
}

QString mergedBody(const QString& current, const QString& other, const QString& conflictMarker) {
    if (text::canonicallyEqual(current, other) || current.startsWith(other)) return current;
    if (other.startsWith(current)) return other;
    return closingFence(current) + kBlankLine + conflictMarker + kBlankLine + other;
}

QString document(QStringView current, QStringView other, const MonthDay& monthDay,
                 const Bodies& bodies) {
    QString text = documentPreamble(current).value_or(
        documentPreamble(other).value_or(QLatin1String("# ") + monthDay.headerTitle()));
    text = closingFence(text);
    for (const auto& [year, body] : bodies) {
        text += kBlankLine + QLatin1String("## ") + QString::number(year);
        if (!body.isEmpty()) text += kBlankLine + closingFence(body);
    }
    return text + u'\n';
}

void mergeInto(Bodies& bodies, const YearBody& other, const QString& conflictMarker) {
    const auto found = bodies.find(other.year);
    if (found == bodies.end()) {
        bodies.emplace(other.year, other.body);
    } else {
        found->second = mergedBody(found->second, other.body, conflictMarker);
    }
}

}  // namespace

QString mergingDocuments(QStringView current, QStringView other, const MonthDay& monthDay,
                         const QString& conflictMarker) {
    Bodies bodies = currentBodies(current);
    for (const YearBody& section : sectionBodies(other)) {
        mergeInto(bodies, section, conflictMarker);
    }
    return document(current, other, monthDay, bodies);
}

QString mergingVersion(QStringView current, QStringView version, const MonthDay& monthDay,
                       const QString& conflictMarker) {
    QString other = version.toString();
    if (sections(other).empty()) other = text::withoutCarriageReturnPairs(std::move(other));
    Bodies bodies = currentBodies(current);
    for (const YearBody& section : sectionBodies(other)) {
        const auto found = bodies.find(section.year);
        if (found != bodies.end() && holdsOnOwnLines(found->second, section.body)) continue;
        if (found != bodies.end() && holdsOnOwnLines(section.body, found->second)) {
            found->second = section.body;
        } else {
            mergeInto(bodies, section, conflictMarker);
        }
    }
    return document(current, other, monthDay, bodies);
}

bool holdsOnOwnLines(QStringView text, QStringView needle) {
    if (needle.isEmpty()) return false;
    for (qsizetype at = text.indexOf(needle); at >= 0; at = text.indexOf(needle, at + 1)) {
        const qsizetype end = at + needle.size();
        const bool beginsLine = at == 0 || text[at - 1] == u'\n';
        const bool endsLine = end == text.size() || text[end] == u'\n';
        if (beginsLine && endsLine) return true;
    }
    return false;
}

}  // namespace diary::YearSectionParser
