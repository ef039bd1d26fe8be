#include "DiaryKit/AppSources/FlomoSource.h"

#include <algorithm>
#include <limits>

#include "DiaryKit/AppSources/HTMLParts.h"
#include "DiaryKit/DatedText/DateLine.h"
#include "DiaryKit/Import/HTMLToMarkdown.h"
#include "DiaryKit/Import/ImportError.h"

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

// Converts contents, each once for all memos that share it: those are around one another, so they
// follow one another.
class BodyReader {
public:
    // Nothing for a content that lies too deep in others.
    [[nodiscard]] const std::optional<QString>& read(const HTMLPart& content) {
        if (&content == m_last) return m_body;
        m_last = &content;
        m_body.reset();
        if (m_bound.admits(content)) m_body = HTMLToMarkdown::markdown(*content.node);
        return m_body;
    }

private:
    NestingBound m_bound;
    const HTMLPart* m_last = nullptr;
    std::optional<QString> m_body;
};

// When a memo was written.
struct Moment {
    DiaryDay day;
    std::optional<ImportedEntry::Time> time;
};

// The beginning of the text below an element. A date stands there or nowhere, while a time that is
// never closed holds all that follows in the page, and the times in that hold it again.
QString beginningOfText(const HTMLNode& element) {
    constexpr int kMostNodes = 500;
    constexpr qsizetype kMostUnits = 1000;
    QString text;
    const HTMLNode* node = element.next(element);
    for (int count = 0; node && count < kMostNodes && text.size() < kMostUnits; ++count) {
        if (node->isText()) text += node->text().left(kMostUnits);
        if (node->role() == HTMLRole::LineBreak) text += u'\n';
        node = node->next(element);
    }
    return text;
}

std::optional<Moment> momentOf(const HTMLNode& time) {
    const std::optional<DateLine::Match> match = DateLine::match(beginningOfText(time));
    const std::optional<DiaryDay> day = match ? match->dayWithYear() : std::nullopt;
    return day ? std::optional(Moment{*day, match->time}) : std::nullopt;
}

class Page {
public:
    Page(const HTMLNode& root, ImportBatch& batch) : m_root(root), m_batch(batch) {}

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
        const std::optional<Moment> moment = time ? momentOf(*time->node) : std::nullopt;
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
    BodyReader m_bodies;
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
