#include "DiaryKit/AppSources/FlomoSource.h"

#include <algorithm>
#include <limits>

#include "DiaryKit/AppSources/HTMLParts.h"
#include "DiaryKit/DatedText/DateLine.h"
#include "DiaryKit/Import/HTMLToMarkdown.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/LocalTime.h"

namespace diary::FlomoSource {

namespace {

enum Part : uint8_t { kFiles, kTime, kContent };
constexpr HTMLParts::Classes kPartClasses = {u"files", u"time", u"content"};

// Memos around one another share their first files, so a count may exceed every number of files.
int asCount(qint64 number) {
    return static_cast<int>(std::min<qint64>(number, std::numeric_limits<int>::max()));
}

// Counts the elements of a tag in memos' files.
class MediaCount {
public:
    MediaCount(const HTMLNode& root, QStringView tag)
        : m_positions(HTMLParts::positions(root, tag)) {}

    void addBelow(const HTMLPart& files) { m_count += before(files.end) - before(files.begin); }
    [[nodiscard]] qint64 count() const { return m_count; }

private:
    [[nodiscard]] qint64 before(qsizetype position) const {
        return std::lower_bound(m_positions.begin(), m_positions.end(), position) -
               m_positions.begin();
    }

    std::vector<qsizetype> m_positions;
    qint64 m_count = 0;
};

// Reads what a part holds, once for all memos that share it: those are around one another, so they
// follow one another.
template <typename Value>
class PartReader {
public:
    using Read = Value (*)(const HTMLNode& node);
    explicit PartReader(Read function) : m_read(function) {}

    // Nothing for a part that lies too deep in others.
    [[nodiscard]] const std::optional<Value>& read(const HTMLPart& part) {
        if (&part == m_last) return m_value;
        m_last = &part;
        m_value.reset();
        if (m_bound.admits(part)) m_value = m_read(*part.node);
        return m_value;
    }

private:
    Read m_read;
    NestingBound m_bound;
    const HTMLPart* m_last = nullptr;
    std::optional<Value> m_value;
};

// When a memo was written.
struct Moment {
    DiaryDay day;
    std::optional<ImportedEntry::Time> time;
};

std::optional<Moment> momentOf(const HTMLNode& time) {
    const std::optional<DateLine::Match> match = DateLine::match(time.textContent());
    if (!match || !match->year) return std::nullopt;
    const DiaryDay day{*match->year, match->month, match->day};
    if (!LocalTime::isValid(day.year, day.month, day.day)) return std::nullopt;
    return Moment{day, match->time};
}

class Page {
public:
    Page(const HTMLNode& root, ImportBatch& batch)
        : m_root(root), m_batch(batch), m_moments(momentOf), m_bodies(HTMLToMarkdown::markdown) {}

    void read() {
        const HTMLParts memos(
            m_root, [](const HTMLNode& node) { return node.hasClass(u"memo"); }, kPartClasses,
            HTMLParts::OwnClass::DoesNotCount);
        countMedia(memos);
        for (const HTMLParts::Holder& memo : memos.holders()) addEntry(memo);
    }

private:
    void countMedia(const HTMLParts& memos) {
        MediaCount images(m_root, u"img");
        MediaCount audios(m_root, u"audio");
        for (const HTMLParts::Holder& memo : memos.holders()) {
            if (const HTMLPart* files = memo.parts[kFiles]) {
                images.addBelow(*files);
                audios.addBelow(*files);
            }
        }
        m_batch.skipped.photos = asCount(m_batch.skipped.photos + images.count());
        m_batch.skipped.audios = asCount(m_batch.skipped.audios + audios.count());
    }

    void addEntry(const HTMLParts::Holder& memo) {
        const HTMLPart* const time = memo.parts[kTime];
        const std::optional<Moment> moment =
            time ? m_moments.read(*time).value_or(std::nullopt) : std::nullopt;
        if (!moment) {
            ++m_batch.skipped.undated;
            return;
        }
        QString body;
        if (const HTMLPart* content = memo.parts[kContent]) {
            const std::optional<QString>& markdown = m_bodies.read(*content);
            if (!markdown) {
                ++m_batch.skipped.otherNotes;
                return;
            }
            body = *markdown;
        }
        m_batch.entries.push_back(
            {.day = moment->day, .time = moment->time, .body = std::move(body)});
    }

    const HTMLNode& m_root;
    ImportBatch& m_batch;
    PartReader<std::optional<Moment>> m_moments;
    PartReader<QString> m_bodies;
};

}  // namespace

QStringList memoFiles(const ImportPackage& package) {
    constexpr qsizetype kHeadBytes = 200'000;
    QStringList files =
        package.pathsWithExtensions({QStringLiteral("html"), QStringLiteral("htm")});
    files.removeIf([&](const QString& path) {
        return !package.head(path, kHeadBytes).contains(QLatin1String("class=\"memo\""));
    });
    return files;
}

ImportBatch read(const ImportPackage& package, const QString& name) {
    const QStringList files = memoFiles(package);
    if (files.isEmpty()) throw ImportError(ImportError::Kind::unrecognized);
    ImportBatch batch{.source = ImportSource::flomo, .name = name};
    for (const QString& path : files) {
        const HTMLDocument page = MiniHTML::parse(package.text(path));
        Page(page.root(), batch).read();
    }
    return batch;
}

}  // namespace diary::FlomoSource
