// Any bytes as the record and the journal of a cut-off import in a small vault: merging them tells
// what the journal's good lines tell, and an undo takes only what they say was added.
//
// The input's pieces between its NULs: the record, the journal, then the text and the kept old text
// of two days, and the journal of an earlier undo; a day without a piece has no file.
#include <QtCore/QDir>
#include <QtCore/QSet>

#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Import/ImportLog.h"
#include "DiaryKit/Import/ImportLogFiles.h"
#include "DiaryKit/Import/ImportRecordKeys.h"
#include "DiaryKit/Import/ImportUndo.h"
#include "tests/fuzz/ImportFuzzing.h"
#include "tests/fuzz/UndoneLines.h"

namespace diary::fuzz {
namespace {

using File = ImportRecord::File;

const QDateTime kNow = QDateTime::fromSecsSinceEpoch(1'700'000'000, Qt::UTC);
const QString kOther = QStringLiteral("other.md");
const QStringList kDays = {QStringLiteral("01-02.md"), QStringLiteral("02-29.md")};

// The pieces of the input, repaired where they aren't UTF-8; nothing for those that it lacks.
class Input {
public:
    Input(const uint8_t* data, size_t size) : m_pieces(pieces(data, size)) {}

    [[nodiscard]] QByteArray record() const { return piece(0).value_or(QString()).toUtf8(); }
    [[nodiscard]] QByteArray journal() const { return piece(1).value_or(QString()).toUtf8(); }
    [[nodiscard]] std::optional<QString> now(qsizetype day) const { return piece(2 + 2 * day); }
    [[nodiscard]] std::optional<QString> kept(qsizetype day) const { return piece(3 + 2 * day); }
    [[nodiscard]] QByteArray undoJournal() const { return piece(6).value_or(QString()).toUtf8(); }

private:
    [[nodiscard]] std::optional<QString> piece(qsizetype index) const {
        return index < m_pieces.size() ? std::optional(m_pieces[index]) : std::nullopt;
    }

    QList<QString> m_pieces;
};

// No input ever spells a digest. One that is to fit says so: "now" is the day's text as it is,
// "kept" its kept one.
void fillInDigests(File& file, const Input& input) {
    const qsizetype day = kDays.indexOf(file.day + QLatin1String(".md"));
    if (day < 0) return;
    for (std::optional<QString>* digest : {&file.after, &file.before}) {
        if (*digest == u"now") *digest = ImportLog::hash(input.now(day).value_or(QString()));
        if (*digest == u"kept") *digest = ImportLog::hash(input.kept(day).value_or(QString()));
    }
}

QByteArray withDigests(const QByteArray& journal, const Input& input) {
    QByteArray filled;
    for (const QByteArray& line : journal.split('\n')) {
        std::optional<File> file = File::decode(line);
        if (file) fillInDigests(*file, input);
        filled += (file ? file->encoded() : line) + '\n';
    }
    return filled;
}

// A vault of its own for each round.
class Vault {
public:
    explicit Vault(const Input& input) : m_path(freshFolder()) {
        const QString folder = ImportLog::directory(m_path);
        QDir().mkpath(ImportLog::beforeFolder(folder, id()));
        put(ImportLog::recordPath(folder, id()), input.record());
        put(ImportLog::journalPath(folder, id()), input.journal());
        put(ImportLog::undoJournalPath(folder, id()), withDigests(input.undoJournal(), input));
        put(path(kOther), "words of mine\n");
        for (qsizetype day = 0; day < kDays.size(); ++day) {
            if (const auto text = input.now(day)) put(path(kDays[day]), text->toUtf8());
            if (const auto text = input.kept(day)) {
                put(ImportLog::beforeFolder(folder, id()) + u'/' + kDays[day], text->toUtf8());
            }
        }
    }

    static QString id() { return QStringLiteral("cut"); }
    [[nodiscard]] const QString& path() const { return m_path; }
    [[nodiscard]] QString path(const QString& name) const { return m_path + u'/' + name; }

    // The file's text; nothing if there is no file.
    [[nodiscard]] std::optional<QString> text(const QString& name) const {
        QFile file(path(name));
        if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
        return QString::fromUtf8(file.readAll());
    }

private:
    static QString freshFolder() {
        static const QString folder = asFile({}, QStringLiteral("empty")) + QLatin1String("-vault");
        QDir(folder).removeRecursively();
        return folder;
    }

    static void put(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        check(file.open(QIODevice::WriteOnly), "the vault can be written");
        file.write(bytes);
    }

    QString m_path;
};

// The record that the bytes give, or a bare one, as an import of the vault that was cut off.
ImportRecord cutOffRecord(const QByteArray& bytes) {
    ImportRecord record = ImportRecord::decode(bytes).value_or(ImportRecord{.at = kNow});
    record.id = Vault::id();
    record.state = ImportRecord::State::writing;
    return record;
}

// The last good line of each day, by the day.
std::map<QString, File> lastWords(const QByteArray& journal) {
    std::map<QString, File> words;
    for (const QByteArray& line : journal.split('\n')) {
        if (auto file = File::decode(line)) words.insert_or_assign(file->day, std::move(*file));
    }
    return words;
}

void checkMerged(const ImportRecord& record, const ImportRecord& merged,
                 const QByteArray& journal) {
    const std::map<QString, File> words = lastWords(journal);
    if (words.empty()) {
        check(merged == record, "a journal without a good line changes nothing");
        return;
    }
    check(merged.files.size() == words.size(), "each day stands there once");
    check(merged.days == static_cast<int>(words.size()), "the days are counted");
    qsizetype entries = 0;
    for (const File& file : merged.files) {
        check(words.at(file.day) == file, "a day's last line counts");
        for (const auto& added : file.added)
            entries += added.entryKeys ? added.entryKeys->size() : 0;
    }
    check(merged.entries == static_cast<int>(entries), "the entries are counted");
    check(ImportRecord::decode(merged.encoded()) == merged, "what is merged can be kept");
}

// What the record tells of a day.
std::vector<File> toldOf(const ImportRecord& record, const QString& fileName) {
    std::vector<File> told;
    for (const File& file : record.files) {
        if (file.day == fileName.chopped(3)) told.push_back(file);
    }
    return told;
}

void checkOtherYears(const QString& before, const QString& after, const std::set<int>& years) {
    // A line that becomes a header once white space goes has always been one in waiting.
    if (hasHeaderInWaiting(before) || !staysWholeWhenTrimmed(before)) return;
    for (const YearSectionParser::YearBody& one : YearSectionParser::sectionBodies(before)) {
        require(years.count(one.year) > 0 || YearSectionParser::body(one.year, after) ==
                                                 YearSectionParser::body(one.year, before),
                "a year without an import stays", {before, after});
    }
}

// What a text still holds of headers and its title isn't anybody's words.
Lines wordsOf(Lines lines, const QString& fileName) {
    lines.erase(QLatin1String("# ") + fileName.chopped(3));
    for (auto line = lines.begin(); line != lines.end();) {
        const bool isHeader = yearheader::year(line->first.utf16(), line->first.size()) >= 0;
        line = isHeader ? lines.erase(line) : std::next(line);
    }
    return lines;
}

void checkDay(const ImportRecord& record, const QString& fileName,
              const std::optional<QString>& before, const std::optional<QString>& after,
              const std::optional<QString>& kept) {
    const std::vector<File> told = toldOf(record, fileName);
    if (!before || after == before) {
        check(after == before, "a day without a file gets none");
        return;
    }
    check(!told.empty(), "a day that the import didn't touch stays");
    const QString digest = ImportLog::hash(*before);
    if (std::any_of(told.begin(), told.end(), [&](auto& one) { return one.after == digest; })) {
        // It is what the import left, byte for byte, so all of it may go.
        check(told.size() > 1 || after == (told.front().existed ? kept : std::nullopt),
              "an untouched day gets its old text back");
        return;
    }
    if (std::all_of(told.begin(), told.end(), [](auto& one) { return one.committed == false; })) {
        check(false, "a day whose write can't be seen stays");
    }
    const Lines lost = linesLost(*before, after.value_or(QString()), record, fileName);
    for (const auto& [line, count] : after ? lost : wordsOf(lost, fileName)) {
        require(count == 0, "only what was added goes",
                {*before, after.value_or(QStringLiteral("(no file)")), line});
    }
    if (after) checkOtherYears(*before, *after, yearsOfImport(record, fileName));
}

void undo(const ImportRecord& record, const Vault& vault, const Input& input) {
    try {
        ImportLog::undo(record, vault.path(), kNow);
        const auto all = ImportLog::records(vault.path(), kNow);
        check(all.size() == 1 && all.front().state == ImportRecord::State::undone,
              "an undone import is told as one");
    } catch (const FileError&) {}
    check(vault.text(kOther) == u"words of mine\n", "other files stay");
    for (qsizetype day = 0; day < kDays.size(); ++day) {
        checkDay(record, kDays[day], input.now(day), vault.text(kDays[day]), input.kept(day));
    }
}

}  // namespace
}  // namespace diary::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace diary;
    using namespace diary::fuzz;
    const Input input(data, size);
    const Vault vault(input);
    (void)ImportLog::records(vault.path(), kNow);
    const ImportRecord record = cutOffRecord(input.record());
    ImportRecord merged = ImportLog::mergingJournal(record, ImportLog::directory(vault.path()));
    checkMerged(record, merged, input.journal());
    for (File& file : merged.files) fillInDigests(file, input);
    undo(merged, vault, input);
    return 0;
}
