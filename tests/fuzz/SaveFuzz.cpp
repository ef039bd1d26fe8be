// A stay in the editor as a script: the file that is there, then drafts that are saved one after
// another while another writer changes other years and the day is closed and opened again. After
// each save the draft stands in the file as typed, every other section is as its writer left it,
// and nothing stands there that nobody wrote.
#include <map>
#include <optional>

#include "DiaryKit/Vault/SectionSave.h"
#include "tests/fuzz/Fuzzing.h"

namespace diary::fuzz {
namespace {

using namespace YearSectionParser;

constexpr int kYear = 2026;
constexpr int kFirstForeignYear = 2011;
constexpr int kForeignYears = 5;

using Sections = std::multimap<int, QString>;

void add(Sections& sections, QStringView text) {
    for (const YearBody& one : sectionBodies(text)) sections.emplace(one.year, one.body);
}

void removeOne(Sections& sections, int year, const QString& body) {
    const auto [first, last] = sections.equal_range(year);
    const auto found =
        std::find_if(first, last, [&](const auto& section) { return section.second == body; });
    if (found != last) sections.erase(found);
}

std::map<std::pair<int, QString>, int> counted(const Sections& sections) {
    std::map<std::pair<int, QString>, int> counts;
    for (const auto& section : sections) ++counts[section];
    return counts;
}

bool isForeign(int year) {
    return year >= kFirstForeignYear && year < kFirstForeignYear + kForeignYears;
}

bool hasForeignYear(QStringView text) {
    const std::vector<Section> all = sections(text);
    return std::any_of(all.begin(), all.end(), [](const Section& s) { return isForeign(s.year); });
}

class Stay {
public:
    explicit Stay(QStringView file)
        // A section behind an open fence closes it, and the file's end loses its white space.
        : m_file(closingFence(text::withoutTrailingWhiteSpace(file))) {
        add(m_others, m_file);
        removeOne(m_others, kYear, body(kYear, m_file));
    }

    void type(QStringView draft) {
        const QString written = closingFence(text::trimmed(draft));
        // A year typed into the draft that the other writer then writes too is of both of them.
        if (hasForeignYear(written)) return;
        const auto saved = savingDraft(draft, kYear, kDay, m_file, m_lastWritten);
        require(saved.has_value(), "a draft can be saved", {m_file, draft});
        require(saved->written == written, "what is written is the draft", {m_file, draft});
        require(saved->replacedBody == body(kYear, m_file), "the save tells what it replaces",
                {m_file, draft});
        require(saved->text.contains(written), "the draft stands in the file",
                {m_file, draft, saved->text});
        Sections found;
        add(found, saved->text);
        require(counted(found) == counted(expected(written)),
                "each section is as its writer left it",
                {m_file, draft, m_lastWritten.value_or(QString()), saved->text});
        m_file = saved->text;
        m_lastWritten = written;
    }

    void writeElsewhere(QStringView text) {
        const int year = kFirstForeignYear + static_cast<int>(text.size() % kForeignYears);
        const QString written = closingFence(text::trimmed(text));
        if (!sections(written).empty()) return;
        removeOne(m_others, year, body(year, m_file));
        m_file = replacingBody(written, year, kDay, m_file);
        m_others.emplace(year, written);
    }

    // Years typed into the draft are years of their own from now on.
    void reopen() {
        if (m_lastWritten) add(m_others, *m_lastWritten);
        m_lastWritten.reset();
    }

private:
    [[nodiscard]] Sections expected(const QString& written) const {
        Sections all = m_others;
        const std::vector<Section> typed = sections(written);
        const qsizetype own = typed.empty() ? written.size() : typed.front().headerRange.location;
        all.emplace(kYear, text::trimmed(QStringView(written).first(own)).toString());
        add(all, written);
        return all;
    }

    QString m_file;
    // What other sections the file holds.
    Sections m_others;
    std::optional<QString> m_lastWritten;
};

// The first unit of a piece tells who writes the rest.
void play(const QList<QString>& script) {
    if (std::any_of(script.begin(), script.end(), hasHeaderInWaiting)) return;
    Stay stay(script.front());
    for (const QString& piece : script.sliced(1)) {
        if (piece.startsWith(u'>')) {
            stay.writeElsewhere(QStringView(piece).sliced(1));
        } else if (piece == u"<") {
            stay.reopen();
        } else {
            stay.type(piece);
        }
    }
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    diary::fuzz::play(diary::fuzz::pieces(data, size));
    return 0;
}
