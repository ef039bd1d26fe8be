#include "DiaryKit/Import/ImportRecordFileJson.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <utility>
#include <vector>

#include "DiaryKit/Foundation/JsonText.h"

namespace diary {

namespace {

enum class Form { Compact, Indented };

// Writes values in the order in which they are told. An object in an object isn't needed.
class Writer {
public:
    Writer(Form form, int depth, QByteArray& json) : m_form(form), m_depth(depth), m_json(json) {}

    void open(char bracket) {
        m_json += bracket;
        ++m_depth;
        m_isFirst = true;
    }

    void close(char bracket) {
        --m_depth;
        // An empty list has a line of its own for its end too.
        startLine();
        m_json += bracket;
        m_isFirst = false;
    }

    // Ahead of each element of a list.
    void next() {
        if (!m_isFirst) m_json += ',';
        startLine();
        m_isFirst = false;
    }

    void key(const char* name) {
        next();
        m_json += '"';
        m_json += name;
        m_json += m_form == Form::Compact ? "\":" : "\": ";
    }

    void text(const QString& text) {
        const qsizetype start = m_json.size();
        if (json::append(text, json::Slash::Plain, m_json)) return;
        // UTF-8 has no form for half a character; as the only element of a list it is escaped.
        const QByteArray list = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
        m_json.truncate(start);
        m_json += list.sliced(1, list.size() - 2);
    }

    void text(const char* name, const std::optional<QString>& value) {
        if (!value) return;
        key(name);
        text(*value);
    }

    void texts(const char* name, const std::optional<QStringList>& values) {
        if (!values) return;
        key(name);
        open('[');
        for (const QString& value : *values) {
            next();
            text(value);
        }
        close(']');
    }

    // The texts of a list, and then what they make with blank lines between them.
    void textsAndWhole(const char* textsName, const QStringList& values, const char* wholeName) {
        key(textsName);
        open('[');
        // Where each stands, and how many bytes it takes.
        std::vector<std::pair<qsizetype, qsizetype>> written;
        for (const QString& value : values) {
            next();
            const qsizetype start = m_json.size() + 1;
            text(value);
            written.emplace_back(start, m_json.size() - 1 - start);
        }
        close(']');
        key(wholeName);
        m_json += '"';
        bool isFirst = true;
        for (const auto& [start, length] : written) {
            if (!isFirst) m_json += "\\n\\n";
            isFirst = false;
            // Its own bytes move if it has to grow.
            m_json.reserve(m_json.size() + length);
            m_json.append(m_json.constData() + start, length);
        }
        m_json += '"';
    }

    void flag(const char* name, std::optional<bool> value) {
        if (!value) return;
        key(name);
        m_json += *value ? "true" : "false";
    }

    void number(const char* name, int value) {
        key(name);
        m_json += QByteArray::number(value);
    }

private:
    void startLine() {
        if (m_form == Form::Compact) return;
        constexpr qsizetype kStep = 4;
        m_json += '\n';
        m_json.append(m_depth * kStep, ' ');
    }

    Form m_form;
    int m_depth;
    bool m_isFirst = true;
    QByteArray& m_json;
};

// Whether the text is the blocks of its entries, as nearly every one is: what is escaped once need
// not be escaped again.
bool isMadeOf(const QString& text, const QStringList& blocks) {
    if (blocks.isEmpty()) return false;
    const QLatin1String blankLine("\n\n");
    QStringView rest = text;
    for (const QString& block : blocks) {
        if (&block != &blocks.front()) {
            if (!rest.startsWith(blankLine)) return false;
            rest = rest.sliced(blankLine.size());
        }
        if (!rest.startsWith(block)) return false;
        rest = rest.sliced(block.size());
    }
    return rest.isEmpty();
}

void write(const ImportRecord::Added& added, Writer& writer) {
    writer.open('{');
    writer.flag("appended", added.appended);
    writer.texts("entryKeys", added.entryKeys);
    if (added.entryTexts && isMadeOf(added.text, *added.entryTexts)) {
        writer.textsAndWhole("entryTexts", *added.entryTexts, "text");
    } else {
        writer.texts("entryTexts", added.entryTexts);
        writer.text("text", std::optional(added.text));
    }
    writer.number("year", added.year);
    writer.close('}');
}

void write(const ImportRecord::File& file, Writer& writer) {
    writer.open('{');
    writer.key("added");
    writer.open('[');
    for (const ImportRecord::Added& added : file.added) {
        writer.next();
        write(added, writer);
    }
    writer.close(']');
    writer.text("after", file.after);
    writer.text("before", file.before);
    writer.flag("committed", file.committed);
    writer.text("day", std::optional(file.day));
    writer.flag("existed", file.existed);
    writer.close('}');
}

// Room for the JSON of the texts where little of them takes more than a byte.
qsizetype likelySize(const ImportRecord::File& file) {
    constexpr qsizetype kOtherKeys = 256;
    qsizetype size = kOtherKeys;
    for (const ImportRecord::Added& added : file.added) {
        size += kOtherKeys + added.text.size();
        for (const QStringList& texts :
             {added.entryKeys.value_or(QStringList()), added.entryTexts.value_or(QStringList())}) {
            for (const QString& text : texts) size += text.size() + text.size() / 16;
        }
    }
    return size;
}

}  // namespace

void appendCompact(const ImportRecord::File& file, QByteArray& json) {
    json.reserve(json.size() + likelySize(file));
    Writer writer(Form::Compact, 0, json);
    write(file, writer);
}

QByteArray committed(QByteArray announced) {
    // In a text the quotation marks would be escaped.
    const QByteArrayView word = "\"committed\":false";
    const qsizetype place = announced.lastIndexOf(word);
    if (place >= 0) announced.replace(place, word.size(), "\"committed\":true");
    return announced;
}

void appendIndented(const ImportRecord::File& file, QByteArray& json) {
    constexpr int kDepthInRecord = 2;
    Writer writer(Form::Indented, kDepthInRecord, json);
    write(file, writer);
}

}  // namespace diary
