// The losing copies that sync services leave beside a file when two machines wrote it, as the
// unresolved versions of that file. Works for day files and for any other file of the vault.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QStringView>
#include <functional>
#include <optional>
#include <vector>

namespace diary {

// How sure a name alone makes us, the surest first.
enum class ConflictName {
    // Only sync services write such names.
    Certain,
    // The user may have written it; the content has to tell.
    Possible,
};

// Whether `name` is a copy of `fileName`, by name alone; copies of copies count. Examples for
// "03-12.md": "03-12.sync-conflict-20260818-173636-D4LGQYW.md" and
// "03-12 (conflicted copy 2021-06-16 143218).md" are certain, "03-12 (1).md" and "03-12-LAPTOP.md"
// possible, "03-12-2024.md" and "03-12 trip.md" none.
[[nodiscard]] std::optional<ConflictName> conflictName(QStringView name, QStringView fileName);

// The moment that the outermost tag of a copy's name tells, in local time; a date alone gives the
// beginning of that day. Absent if the tag has none.
[[nodiscard]] std::optional<QDateTime> conflictMoment(QStringView name, QStringView fileName);

// One unresolved version.
struct ConflictVersion {
    QString path;
    // From the name, or else the file's modification moment.
    QDateTime moment;

    bool operator==(const ConflictVersion&) const = default;
};

// The versions of one vault's files. Reads the folder at each call; any thread.
class ConflictVersions {
public:
    // Whether the bytes of a possible copy look like a version of the file.
    using ContentGate = std::function<bool(const QByteArray& bytes)>;

    explicit ConflictVersions(QString vault) : m_vault(std::move(vault)) {}

    // The unresolved versions of the file at `path`, which may itself be missing: oldest first, of
    // one moment by name. An unlistable folder has none.
    [[nodiscard]] std::vector<ConflictVersion> unresolved(const QString& path,
                                                          const ContentGate& gate) const;

    // Moves the version into `.velmar/conflicts/` of the vault, under its own name; one that stands
    // there already with other bytes keeps its name, and the new one gets a number. Nothing is ever
    // deleted but one of two files with the same bytes. Throws FileError (Move, MakeFolder); one
    // that is gone, since another process was faster, has the code ENOENT.
    void markResolved(const ConflictVersion& version) const;

private:
    QString m_vault;
};

}  // namespace diary
