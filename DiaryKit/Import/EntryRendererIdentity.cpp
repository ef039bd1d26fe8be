#include <utility>

#include "DiaryKit/Foundation/JsonText.h"
#include "DiaryKit/Foundation/Sha256.h"
#include "DiaryKit/Import/EntryRenderer.h"

namespace diary::EntryRenderer {

namespace {

// Writes a compact JSON array of texts. The bytes are part of the format of records, down to the
// escaped slash.
class JsonTexts {
public:
    explicit JsonTexts(qsizetype likelySize) { m_json.reserve(likelySize); }

    void add(QStringView text) {
        separate();
        (void)json::append(text, json::Slash::Escaped, m_json);
    }

    void addOrNull(const std::optional<QString>& text) {
        if (text) return add(*text);
        separate();
        m_json += "null";
    }

    [[nodiscard]] QByteArray finished() { return std::move(m_json += ']'); }

private:
    void separate() { m_json += m_json.isEmpty() ? '[' : ','; }

    QByteArray m_json;
};

std::optional<QString> timeText(const ImportedEntry& entry) {
    return entry.time ? std::optional(entry.time->text()) : std::nullopt;
}

}  // namespace

QString identity(const ImportedEntry& entry, ImportSource source) {
    // Room for a body without much to escape and for the short fields around it.
    constexpr qsizetype kOtherFields = 512;
    JsonTexts fields(entry.body.size() + entry.body.size() / 8 + kOtherFields);
    fields.add(import_source::spelling(source));
    fields.add(QString::number(entry.day.year));
    fields.add(entry.day.monthDay().headerTitle());
    fields.addOrNull(timeText(entry));
    fields.addOrNull(entry.title);
    fields.add(entry.body);
    fields.addOrNull(entry.place);
    fields.addOrNull(entry.weather);
    fields.addOrNull(entry.mood);
    fields.addOrNull(entry.journal);
    fields.add(entry.isVelmarSection ? u"true" : u"false");
    for (const QString& tag : entry.tags) fields.add(tag);
    return sha256(fields.finished());
}

}  // namespace diary::EntryRenderer
