#include "DiaryKit/Import/ImportRecord.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "DiaryKit/Import/ImportRecordFileJson.h"

namespace diary {

namespace {

constexpr std::array<QStringView, 3> kStates = {u"writing", u"done", u"undone"};

// The six counts, under the names that they have on disk.
struct Count {
    const char* key;
    int ImportBatch::Skipped::*value;
};
using Skipped = ImportBatch::Skipped;
constexpr std::array<Count, 6> kCounts = {{{"photos", &Skipped::photos},
                                           {"videos", &Skipped::videos},
                                           {"audios", &Skipped::audios},
                                           {"attachments", &Skipped::attachments},
                                           {"undated", &Skipped::undated},
                                           {"otherNotes", &Skipped::otherNotes}}};

// Reads the values of one object. A value that is missing or has the wrong type makes the whole
// reading fail, which is asked for once at the end.
class Reader {
public:
    explicit Reader(const QJsonValue& value)
        : m_object(value.toObject()), m_isGood(value.isObject()) {}

    [[nodiscard]] bool isGood() const { return m_isGood; }
    void require(bool holds) { m_isGood = m_isGood && holds; }

    [[nodiscard]] QJsonValue value(const char* key) const {
        return m_object.value(QLatin1String(key));
    }

    [[nodiscard]] bool has(const char* key) const {
        const QJsonValue found = value(key);
        return !found.isUndefined() && !found.isNull();
    }

    QString text(const char* key) {
        require(value(key).isString());
        return value(key).toString();
    }

    bool flag(const char* key) {
        require(value(key).isBool());
        return value(key).toBool();
    }

    // A whole number; 2.0 is one, 1.5 and true aren't.
    int number(const char* key) {
        const double number = value(key).toDouble(std::numeric_limits<double>::quiet_NaN());
        const bool fits = number == std::floor(number) &&
                          number >= std::numeric_limits<int>::min() &&
                          number <= std::numeric_limits<int>::max();
        require(fits);
        return fits ? static_cast<int>(number) : 0;
    }

    // Only the plain form "2025-03-07T08:15:30Z".
    QDateTime moment(const char* key) {
        const QString written = text(key);
        constexpr qsizetype kLength = 20;
        QDateTime moment = QDateTime::fromString(written, QStringLiteral("yyyy-MM-ddTHH:mm:ssZ"));
        moment.setTimeSpec(Qt::UTC);
        require(written.size() == kLength && moment.isValid());
        return moment;
    }

    QStringList texts(const char* key) {
        require(value(key).isArray());
        QStringList texts;
        const QJsonArray array = value(key).toArray();
        for (const auto& one : array) {
            require(one.isString());
            texts << one.toString();
        }
        return texts;
    }

    // The elements of an array, each read by `read`.
    template <typename Value>
    std::vector<Value> list(const char* key, std::optional<Value> (*read)(const QJsonValue&)) {
        require(value(key).isArray());
        std::vector<Value> list;
        const QJsonArray array = value(key).toArray();
        for (const auto& one : array) {
            std::optional<Value> element = read(one);
            require(element.has_value());
            if (element) list.push_back(std::move(*element));
        }
        return list;
    }

    // What `read` gives for a key that is there; an absent or null one is absent.
    template <typename Value>
    std::optional<Value> optional(const char* key, Value (Reader::*read)(const char*)) {
        return has(key) ? std::optional((this->*read)(key)) : std::nullopt;
    }

private:
    QJsonObject m_object;
    bool m_isGood;
};

std::optional<ImportRecord::Added> readAdded(const QJsonValue& value) {
    Reader reader(value);
    ImportRecord::Added added{.year = reader.number("year"),
                              .text = reader.text("text"),
                              .appended = reader.flag("appended"),
                              .entryKeys = reader.optional("entryKeys", &Reader::texts),
                              .entryTexts = reader.optional("entryTexts", &Reader::texts)};
    return reader.isGood() ? std::optional(std::move(added)) : std::nullopt;
}

std::optional<ImportRecord::File> readFile(const QJsonValue& value) {
    Reader reader(value);
    ImportRecord::File file{.day = reader.text("day"),
                            .existed = reader.flag("existed"),
                            .after = reader.optional("after", &Reader::text),
                            .added = reader.list("added", readAdded),
                            .before = reader.optional("before", &Reader::text),
                            .committed = reader.optional("committed", &Reader::flag)};
    return reader.isGood() ? std::optional(std::move(file)) : std::nullopt;
}

ImportBatch::Skipped readSkipped(Reader& record) {
    Reader reader(record.value("skipped"));
    ImportBatch::Skipped skipped;
    for (const Count& count : kCounts) skipped.*count.value = reader.number(count.key);
    record.require(reader.isGood());
    return skipped;
}

ImportRecord::State readState(Reader& record) {
    const QString spelling = record.text("state");
    const auto* found = std::find(kStates.begin(), kStates.end(), spelling);
    record.require(found != kStates.end());
    return found == kStates.end() ? ImportRecord::State::writing
                                  : static_cast<ImportRecord::State>(found - kStates.begin());
}

ImportSource readSource(Reader& record) {
    const std::optional<ImportSource> source = import_source::parse(record.text("source"));
    record.require(source.has_value());
    return source.value_or(ImportSource::datedText);
}

// Writes the values of one object, leaving out what is absent.
class Writer {
public:
    void set(const char* key, const QJsonValue& value) { m_object[QLatin1String(key)] = value; }

    void set(const char* key, const std::optional<QString>& text) {
        if (text) set(key, QJsonValue(*text));
    }

    void set(const char* key, const std::optional<QDateTime>& moment) {
        if (moment) set(key, QJsonValue(moment->toUTC().toString(Qt::ISODate)));
    }

    [[nodiscard]] const QJsonObject& object() const { return m_object; }

private:
    QJsonObject m_object;
};

QJsonObject skippedObject(const ImportBatch::Skipped& skipped) {
    Writer writer;
    for (const Count& count : kCounts) writer.set(count.key, QJsonValue(skipped.*count.value));
    return writer.object();
}

// Each text stands there twice, as one and in its entries. Copying what has grown would take longer
// than writing it.
qsizetype likelySize(const QByteArray& record, const std::vector<ImportRecord::File>& files) {
    constexpr qsizetype kOfFile = 512;
    qsizetype size = record.size();
    for (const ImportRecord::File& file : files) {
        size += kOfFile;
        for (const ImportRecord::Added& added : file.added) size += kOfFile + 2 * added.text.size();
    }
    return size;
}

// The record's JSON with the files in the place of none. They are nearly all of it, and a tree of
// them all would be several times their size.
QByteArray withFiles(const QByteArray& record, const std::vector<ImportRecord::File>& files) {
    if (files.empty()) return record;
    // Nothing in a text looks so, as its quotation marks are escaped.
    const QByteArrayView none = "\n    \"files\": [";
    const qsizetype place = record.indexOf(none) + none.size();
    QByteArray json = record.first(place);
    json.reserve(likelySize(record, files));
    for (const ImportRecord::File& file : files) {
        json += &file == &files.front() ? "\n        " : ",\n        ";
        appendIndented(file, json);
    }
    json += record.sliced(place);
    return json;
}

}  // namespace

std::optional<ImportRecord::File> ImportRecord::File::decode(const QByteArray& json) {
    const QJsonDocument document = QJsonDocument::fromJson(json);
    return document.isObject() ? readFile(document.object()) : std::nullopt;
}

QByteArray ImportRecord::File::encoded() const {
    QByteArray json;
    appendCompact(*this, json);
    return json;
}

std::optional<ImportRecord> ImportRecord::decode(QByteArray json) {
    const QJsonDocument document = QJsonDocument::fromJson(json);
    json = {};
    if (!document.isObject()) return std::nullopt;
    Reader reader(document.object());
    ImportRecord record{.version = reader.number("version"),
                        .id = reader.text("id"),
                        .state = readState(reader),
                        .source = readSource(reader),
                        .name = reader.text("name"),
                        .label = reader.optional("label", &Reader::text),
                        .at = reader.moment("at"),
                        .by = reader.text("by"),
                        .deviceID = reader.optional("deviceID", &Reader::text),
                        .entries = reader.number("entries"),
                        .days = reader.number("days"),
                        .files = reader.list("files", readFile),
                        .skipped = readSkipped(reader),
                        .undoneAt = reader.optional("undoneAt", &Reader::moment)};
    return reader.isGood() ? std::optional(std::move(record)) : std::nullopt;
}

QByteArray ImportRecord::encoded() const {
    Writer writer;
    writer.set("version", QJsonValue(version));
    writer.set("id", QJsonValue(id));
    writer.set("state", QJsonValue(kStates[static_cast<size_t>(state)].toString()));
    writer.set("source", QJsonValue(import_source::spelling(source)));
    writer.set("name", QJsonValue(name));
    writer.set("label", label);
    writer.set("at", std::optional(at));
    writer.set("by", QJsonValue(by));
    writer.set("deviceID", deviceID);
    writer.set("entries", QJsonValue(entries));
    writer.set("days", QJsonValue(days));
    writer.set("files", QJsonValue(QJsonArray()));
    writer.set("skipped", QJsonValue(skippedObject(skipped)));
    writer.set("undoneAt", undoneAt);
    return withFiles(QJsonDocument(writer.object()).toJson(QJsonDocument::Indented), files);
}

std::vector<MonthDay> ImportRecord::monthDays() const {
    std::vector<MonthDay> read;
    for (const File& file : files) {
        if (const auto day = MonthDay::parse(file.day + QLatin1String(".md"))) read.push_back(*day);
    }
    return read;
}

}  // namespace diary
