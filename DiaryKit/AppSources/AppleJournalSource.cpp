#include "DiaryKit/AppSources/AppleJournalSource.h"

#include <QtCore/QRegularExpression>
#include <array>

#include "DiaryKit/AppSources/HTMLParts.h"
#include "DiaryKit/DatedText/DateLine.h"
#include "DiaryKit/Import/HTMLToMarkdown.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/LocalTime.h"
#include "DiaryKit/Import/PackagePath.h"
#include "DiaryKit/Import/UniqueJoined.h"

namespace diary::AppleJournalSource {

namespace {

constexpr HTMLParts::Classes kOverlayClasses = {u"gridItemOverlayHeader", u"gridItemOverlayFooter",
                                                u"gridItemOverlayText"};

// What an asset means to its entry.
enum class Asset : uint8_t { None, Other, Photo, Video, Audio, Mood, Place };

using Captions = std::vector<std::optional<QString>>;

Asset assetOfKind(const QString& kind) {
    if (kind == u"photo" || kind == u"livephoto") return Asset::Photo;
    if (kind == u"video") return Asset::Video;
    if (kind == u"audio") return Asset::Audio;
    if (kind == u"stateofmind") return Asset::Mood;
    if (kind == u"genericmap" || kind == u"multipinmap" || kind == u"location") return Asset::Place;
    return Asset::Other;
}

Asset assetOf(const HTMLNode& node) {
    static constexpr QStringView kPrefix = u"assetType_";
    const QStringView classes = node.attribute(u"class").value_or(QStringView());
    for (const QStringView one : classes.tokenize(u' ', Qt::SkipEmptyParts)) {
        if (one.startsWith(kPrefix)) {
            return assetOfKind(one.sliced(kPrefix.size()).toString().toLower());
        }
    }
    return Asset::None;
}

bool hasCaptions(const HTMLNode& node) {
    const Asset asset = assetOf(node);
    return asset == Asset::Mood || asset == Asset::Place;
}

// The captions of a page's assets. Assets around one another share their captions, and captions
// may nest: each is read once, and those too deep in others are left to these.
class CaptionReader {
public:
    void append(const HTMLParts::Holder& asset, Captions& captions) {
        for (std::size_t index = 0; index < kOverlayClasses.size(); ++index) {
            const HTMLPart* const part = asset.parts[index];
            if (!part) continue;
            Overlay& overlay = m_overlays[index];
            if (part != overlay.last) read(*part, overlay);
            if (!overlay.text.isEmpty()) captions.emplace_back(overlay.text);
        }
    }

private:
    struct Overlay {
        NestingBound bound;
        const HTMLPart* last = nullptr;
        QString text;
    };

    static void read(const HTMLPart& part, Overlay& overlay) {
        overlay.last = &part;
        overlay.text = overlay.bound.admits(part) ? part.node->textContent() : QString();
    }

    std::array<Overlay, kOverlayClasses.size()> m_overlays;
};

void countMedia(const HTMLNode& root, ImportBatch::Skipped& skipped) {
    for (const HTMLNode* node = root.next(root); node; node = node->next(root)) {
        const Asset asset = assetOf(*node);
        if (asset == Asset::Photo) ++skipped.photos;
        if (asset == Asset::Video) ++skipped.videos;
        if (asset == Asset::Audio) ++skipped.audios;
    }
}

void setMoodAndPlace(ImportedEntry& entry, const HTMLNode& root) {
    const HTMLParts assets(root, hasCaptions, kOverlayClasses, HTMLParts::OwnClass::Counts);
    CaptionReader reader;
    Captions moods;
    Captions places;
    for (const HTMLParts::Holder& asset : assets.holders()) {
        reader.append(asset, assetOf(*asset.node) == Asset::Mood ? moods : places);
    }
    entry.mood = uniqueJoined(moods, u"、");
    entry.place = uniqueJoined(places, u" · ");
}

std::optional<DiaryDay> dayOfName(const QString& path) {
    static const QRegularExpression leadingDate(QStringLiteral("^(\\d{4})-(\\d{2})-(\\d{2})"));
    const QRegularExpressionMatch match =
        leadingDate.match(package_path::lastComponent(path).toString());
    if (!match.hasMatch()) return std::nullopt;
    const DiaryDay day{match.captured(1).toInt(), match.captured(2).toInt(),
                       match.captured(3).toInt()};
    return LocalTime::isValid(day.year, day.month, day.day) ? std::optional(day) : std::nullopt;
}

std::optional<DiaryDay> dayOfHeader(const HTMLNode& root) {
    const HTMLNode* const header = root.firstOfClass(u"pageHeader");
    return header ? DateLine::day(header->textContent()) : std::nullopt;
}

QString textOfFirst(const HTMLNode& root, QStringView className) {
    const HTMLNode* const node = root.firstOfClass(className);
    return node ? node->textContent() : QString();
}

QString body(const HTMLNode& root) {
    QStringList pieces;
    const QString prompt = textOfFirst(root, u"reflectionPrompt");
    if (!prompt.isEmpty()) pieces.append(QLatin1String("> ") + prompt);
    const HTMLNode* const text = root.firstOfClass(u"bodyText");
    const QString markdown = text ? HTMLToMarkdown::markdown(*text) : QString();
    if (!markdown.isEmpty()) pieces.append(markdown);
    return pieces.join(QLatin1String("\n\n"));
}

void readPage(const QString& path, const HTMLNode& root, ImportBatch& batch) {
    countMedia(root, batch.skipped);
    std::optional<DiaryDay> day = dayOfName(path);
    if (!day) day = dayOfHeader(root);
    if (!day) {
        ++batch.skipped.undated;
        return;
    }
    ImportedEntry entry{.day = *day};
    const QString title = textOfFirst(root, u"title");
    if (!title.isEmpty()) entry.title = title;
    entry.body = body(root);
    setMoodAndPlace(entry, root);
    batch.entries.push_back(std::move(entry));
}

// Replaces all matches of an expression that ends with '>'. Behind the last '>' there is none, and
// without that rest no "<p" can search in vain for its end, each of them up to the end of the text.
QString replaced(const QString& html, const QRegularExpression& expression,
                 const QString& replacement) {
    const qsizetype end = html.lastIndexOf(u'>') + 1;
    return html.first(end).replace(expression, replacement) + html.sliced(end);
}

QRegularExpression expression(const QString& pattern) {
    QRegularExpression compiled(pattern, QRegularExpression::CaseInsensitiveOption |
                                             QRegularExpression::UseUnicodePropertiesOption);
    compiled.optimize();
    return compiled;
}

}  // namespace

QStringList entryFiles(const ImportPackage& package) {
    QStringList files =
        package.pathsWithExtensions({QStringLiteral("html"), QStringLiteral("htm")});
    files.removeIf([](const QString& path) {
        return !QStringView(path).split(u'/').contains(QStringView(u"Entries"));
    });
    return files;
}

ImportBatch read(const ImportPackage& package, const QString& name) {
    const QStringList files = entryFiles(package);
    if (files.isEmpty()) throw ImportError(ImportError::Kind::unrecognized);
    ImportBatch batch{.source = ImportSource::appleJournal, .name = name};
    for (const QString& path : files) {
        const HTMLDocument page = MiniHTML::parse(unwrapCocoa(package.text(path)));
        readPage(path, page.root(), batch);
    }
    return batch;
}

QString unwrapCocoa(const QString& html) {
    static const QRegularExpression cocoaSpan = expression(QStringLiteral("</?span\\b[^>]*>"));
    static const QRegularExpression cocoaEmptyLine =
        expression(QStringLiteral("<br\\s*/?>\\s*</p>"));
    static const QRegularExpression cocoaParagraph = expression(QStringLiteral("<p\\b[^>]*>"));
    if (!html.contains(QLatin1String("Cocoa HTML Writer"))) return html;
    const QString paragraphEnd = QStringLiteral("</p>");
    QString text = replaced(html, cocoaSpan, QString());
    text = replaced(text, cocoaEmptyLine, paragraphEnd);
    text = replaced(text, cocoaParagraph, QString());
    return text.replace(paragraphEnd, QLatin1String("<br>"), Qt::CaseInsensitive);
}

QStringList overlayText(const HTMLNode& node) {
    QStringList texts;
    for (const QStringView className : kOverlayClasses) {
        const HTMLNode* const overlay =
            node.hasClass(className) ? &node : node.firstOfClass(className);
        const QString text = overlay ? overlay->textContent() : QString();
        if (!text.isEmpty()) texts.append(text);
    }
    return texts;
}

}  // namespace diary::AppleJournalSource
