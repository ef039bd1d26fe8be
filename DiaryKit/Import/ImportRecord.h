// What an import left in the vault: a record of each text it wrote, kept for good, from which later
// imports recognise their entries and an undo finds what to take out. It is a JSON file of its own;
// who writes it, and when, isn't told here. docs/formats/import-record.md shows it key by key.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <optional>
#include <vector>

#include "DiaryKit/Import/ImportBatch.h"

namespace diary {

struct ImportRecord {
    // The version that this program writes.
    static constexpr int currentVersion = 2;

    // Spelled on disk like their cases; an import only goes forward among them.
    enum class State { writing, done, undone };

    // What went into one year of a day.
    struct Added {
        int year = 0;
        // The rendered text of the whole addition.
        QString text = {};
        // The section had text before.
        bool appended = false;
        // The identity of each entry, and its own rendered block, empty where it has none. Older
        // records lack one or both.
        std::optional<QStringList> entryKeys = {};
        std::optional<QStringList> entryTexts = {};

        bool operator==(const Added&) const = default;
    };

    // What happened to one day file.
    struct File {
        // "MM-DD"
        QString day = {};
        // The day file was there before.
        bool existed = false;
        // The digest of the text that the import wrote; older records lack it.
        std::optional<QString> after = {};
        std::vector<Added> added = {};
        // The digest of the text before; absent if there was none.
        std::optional<QString> before = {};
        // Whether the day file was written; absent in older records, which knew only what was.
        std::optional<bool> committed = {};

        // Reads one line of a journal; nothing if it isn't whole. Never throws.
        [[nodiscard]] static std::optional<File> decode(const QByteArray& json);
        // Compact JSON on one line, without a line end.
        [[nodiscard]] QByteArray encoded() const;

        bool operator==(const File&) const = default;
    };

    int version = currentVersion;
    // The record's file name without ".json".
    QString id = {};
    State state = State::writing;
    ImportSource source = ImportSource::datedText;
    // The name of what was read.
    QString name = {};
    // The application that a conversion came from.
    std::optional<QString> label = {};
    // To the second.
    QDateTime at = {};
    // The machine's name for people, and its identifier.
    QString by = {};
    std::optional<QString> deviceID = {};
    int entries = 0;
    int days = 0;
    std::vector<File> files = {};
    ImportBatch::Skipped skipped = {};
    std::optional<QDateTime> undoneAt = {};

    // Reads a record of this or an older version. Nothing if a required key is missing, a value has
    // the wrong type, a spelling isn't known, or the bytes aren't JSON. Keys that aren't known are
    // passed over. Never throws. The bytes of a large record are let go of on the way, if they are
    // the caller's last.
    [[nodiscard]] static std::optional<ImportRecord> decode(QByteArray json);

    // Indented JSON with sorted keys, without absent values. Moments are written in UTC, to the
    // second that they lie in.
    [[nodiscard]] QByteArray encoded() const;

    // The days of the files, in order, without those that don't read as one.
    [[nodiscard]] std::vector<MonthDay> monthDays() const;

    bool operator==(const ImportRecord&) const = default;
};

}  // namespace diary
