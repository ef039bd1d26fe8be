#include <QtCore/QCryptographicHash>

#include "DiaryKit/Import/EntryRenderer.h"

namespace diary::EntryRenderer {

namespace {

// Writes a compact JSON array of texts. The bytes are part of the format of records, down to the
// escaped slash, so they aren't left to a library's taste.
class JsonTexts {
public:
    void add(QStringView text) {
        separate();
        m_json += '"';
        const QByteArray utf8 = text.toUtf8();
        // Most texts are a few long runs between line ends.
        qsizetype start = 0;
        for (qsizetype at = 0; at < utf8.size(); ++at) {
            if (!isEscaped(utf8[at])) continue;
            m_json.append(utf8.constData() + start, at - start);
            addEscaped(utf8[at]);
            start = at + 1;
        }
        m_json.append(utf8.constData() + start, utf8.size() - start);
        m_json += '"';
    }

    void addOrNull(const std::optional<QString>& text) {
        if (text) return add(*text);
        separate();
        m_json += "null";
    }

    [[nodiscard]] QByteArray finished() const { return '[' + m_json + ']'; }

private:
    void separate() {
        if (!m_json.isEmpty()) m_json += ',';
    }

    static bool isEscaped(char byte) {
        return static_cast<unsigned char>(byte) < 0x20 || byte == '"' || byte == '\\' ||
               byte == '/';
    }

    void addEscaped(char byte) {
        switch (byte) {
            case '"':
                m_json += "\\\"";
                return;
            case '\\':
                m_json += "\\\\";
                return;
            case '/':
                m_json += "\\/";
                return;
            case '\b':
                m_json += "\\b";
                return;
            case '\f':
                m_json += "\\f";
                return;
            case '\n':
                m_json += "\\n";
                return;
            case '\r':
                m_json += "\\r";
                return;
            case '\t':
                m_json += "\\t";
                return;
            default:
                break;
        }
        const auto code = static_cast<unsigned char>(byte);
        constexpr const char* kDigits = "0123456789abcdef";
        m_json += "\\u00";
        m_json += kDigits[code >> 4];
        m_json += kDigits[code & 0xF];
    }

    QByteArray m_json;
};

std::optional<QString> timeText(const ImportedEntry& entry) {
    return entry.time ? std::optional(entry.time->text()) : std::nullopt;
}

}  // namespace

QString identity(const ImportedEntry& entry, ImportSource source) {
    JsonTexts fields;
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
    const QByteArray digest =
        QCryptographicHash::hash(fields.finished(), QCryptographicHash::Sha256);
    return QString::fromLatin1(digest.toHex());
}

}  // namespace diary::EntryRenderer
