#include "DiaryKit/Import/ImportRecordKeys.h"

#include <QtCore/QHash>
#include <algorithm>

#include "DiaryKit/Foundation/Sha256.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Import/ImportPlanCharacters.h"
#include "DiaryKit/Vault/YearSectionParser.h"

namespace diary::ImportLog {

namespace {

// Fewer pairs than this tell too little to recognise an entry by.
constexpr qsizetype kFewestPairs = 6;
constexpr double kEnough = 0.7;

const QStringView kRule = u"---\n";
const QStringView kHeading = u"### ";

// The pairs of neighbouring characters of a text without its white space.
class Bigrams {
public:
    explicit Bigrams(QStringView text) {
        forEachCharacter(text, [&](QStringView character) {
            if (text::hasContent(character)) m_text += character;
        });
        // The whole is divided anew: what a blank kept apart may be one character now.
        const QStringView whole(m_text);
        qsizetype previous = -1;
        qsizetype start = 0;
        forEachCharacter(whole, [&](QStringView character) {
            const qsizetype end = start + character.size();
            if (previous >= 0) m_pairs.insert(whole.sliced(previous, end - previous));
            previous = start;
            start = end;
        });
    }
    Bigrams(const Bigrams&) = delete;
    Bigrams& operator=(const Bigrams&) = delete;
    ~Bigrams() = default;

    [[nodiscard]] qsizetype size() const { return m_pairs.size(); }

    [[nodiscard]] qsizetype countIn(const Bigrams& others) const {
        return std::count_if(m_pairs.begin(), m_pairs.end(),
                             [&](QStringView pair) { return others.m_pairs.contains(pair); });
    }

private:
    // The pairs look into it.
    QString m_text;
    QSet<QStringView> m_pairs;
};

// A section that many entries are sought in. What is costly is made when it is first asked for.
class SoughtSection {
public:
    explicit SoughtSection(QStringView body) : m_body(body) {}

    [[nodiscard]] bool holds(QStringView text) const {
        return !text.isEmpty() && m_body.contains(text);
    }

    bool holdsEntry(QStringView entryText) {
        QStringView text = text::trimmed(entryText);
        // The rule that separates an entry without a heading from the one ahead of it.
        if (text.startsWith(kRule)) text = text::trimmed(text.sliced(kRule.size()));
        if (text.isEmpty()) return false;
        return holds(text) || holdsHeading(text) || holdsMostPairs(text);
    }

private:
    [[nodiscard]] bool holdsHeading(QStringView text) const {
        const qsizetype end = text.indexOf(u'\n');
        const QStringView heading = end < 0 ? text : text.first(end);
        if (!heading.startsWith(kHeading)) return false;
        for (const QStringView line : m_body.tokenize(u'\n')) {
            if (text::trimmedOfBlanks(line) == heading) return true;
        }
        return false;
    }

    bool holdsMostPairs(QStringView text) {
        const Bigrams pairs(text);
        if (pairs.size() < kFewestPairs) return false;
        if (!m_bigrams) m_bigrams.emplace(m_body);
        return static_cast<double>(pairs.size()) * kEnough <=
               static_cast<double>(pairs.countIn(*m_bigrams));
    }

    QStringView m_body;
    std::optional<Bigrams> m_bigrams;
};

// A day's text, with its sections by their years, and its digest if asked for.
class DayText {
public:
    explicit DayText(const QString& text)
        : m_text(text), m_bodies(YearSectionParser::sectionBodies(text)) {
        // Of a year that stands twice, the first counts.
        m_sections.reserve(m_bodies.size());
        for (const YearSectionParser::YearBody& one : m_bodies) {
            if (m_places.contains(one.year)) continue;
            m_places.insert(one.year, m_sections.size());
            m_sections.push_back(std::make_unique<SoughtSection>(one.body));
        }
    }

    SoughtSection* section(int year) const {
        const auto found = m_places.constFind(year);
        return found == m_places.constEnd() ? nullptr : m_sections[*found].get();
    }

    const QString& digest() {
        if (m_digest.isEmpty()) m_digest = hash(m_text);
        return m_digest;
    }

private:
    const QString& m_text;
    std::vector<YearSectionParser::YearBody> m_bodies;
    std::vector<std::unique_ptr<SoughtSection>> m_sections;
    QHash<int, size_t> m_places;
    QString m_digest;
};

void insertKeys(const ImportRecord::Added& added, SoughtSection& section, QSet<QString>& keys) {
    if (!added.entryKeys) return;
    const QStringList& all = *added.entryKeys;
    if (added.entryTexts && added.entryTexts->size() == all.size()) {
        for (qsizetype i = 0; i < all.size(); ++i) {
            if (section.holdsEntry(added.entryTexts->at(i))) keys.insert(all[i]);
        }
    } else if (section.holds(added.text)) {
        for (const QString& key : all) keys.insert(key);
    }
}

void insertKeys(const ImportRecord::File& file, DayText& day, QSet<QString>& keys) {
    // A write that was announced but didn't happen must not keep its entries from coming back.
    if (file.committed == false && file.after != day.digest()) return;
    for (const ImportRecord::Added& added : file.added) {
        if (SoughtSection* section = day.section(added.year)) insertKeys(added, *section, keys);
    }
}

}  // namespace

QString hash(QStringView text) {
    return sha256(text.toUtf8());
}

QSet<QString> entryKeys(std::span<const ImportRecord> records, ImportSource source,
                        const MonthDay& monthDay, const std::optional<QString>& text) {
    QSet<QString> keys;
    if (!text || records.empty()) return keys;
    DayText day(*text);
    const QString title = monthDay.headerTitle();
    for (const ImportRecord& record : records) {
        if (record.state == ImportRecord::State::undone || record.source != source) continue;
        for (const ImportRecord::File& file : record.files) {
            if (file.day == title && file.after) insertKeys(file, day, keys);
        }
    }
    return keys;
}

bool isStillThere(QStringView entryText, QStringView sectionBody) {
    return SoughtSection(sectionBody).holdsEntry(entryText);
}

qsizetype bigramCount(QStringView text) {
    return Bigrams(text).size();
}

}  // namespace diary::ImportLog
