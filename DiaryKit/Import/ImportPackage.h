// What the user picked, as a sorted list of files that can be read: a folder, a zip of one, or a
// single file. Readers of sources see nothing else of the file system.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <variant>

#include "DiaryKit/Import/ZipArchive.h"

namespace diary {

// Immutable; may be read from several threads at once. Everything that reads blocks.
class ImportPackage {
public:
    struct Folder {
        QString path;
    };
    struct Zip {
        std::unique_ptr<const ZipArchive> archive;
        QHash<QString, ZipArchive::Entry> entries;
    };
    struct File {
        QString path;
    };
    using Storage = std::variant<Folder, Zip, File>;

    // Listing a folder stops here, so that picking a whole disk by mistake comes to an end.
    static constexpr qsizetype kListLimit = 100'001;

    // Opens what is at `url`, a path. A document that is a folder or a zip inside (rtfd, docx,
    // odt) is one file, and so is what can't be read. Throws ImportError (badArchive).
    explicit ImportPackage(const QString& url);

    [[nodiscard]] const QString& url() const { return m_url; }
    [[nodiscard]] const Storage& storage() const { return m_storage; }
    [[nodiscard]] bool isFolder() const { return std::holds_alternative<Folder>(m_storage); }
    [[nodiscard]] bool isZip() const { return std::holds_alternative<Zip>(m_storage); }

    // All files, relative to the package, ascending. The one path of a file is its name.
    [[nodiscard]] const QStringList& paths() const { return m_paths; }

    // Those of which the extension, in lower case, is in the set.
    [[nodiscard]] QStringList pathsWithExtensions(const std::set<QString>& extensions) const;

    // The first bytes of a file as text, for recognition: a character that the cut splits may turn
    // them into a wrong code page. Empty if the file can't be read.
    [[nodiscard]] QString head(const QString& path, qsizetype bytes) const;

    // All bytes of a file. Throws FileError (Read), with ENOENT for a path that the zip doesn't
    // have, and ImportError (badArchive). A package of one file reads it whatever the path.
    [[nodiscard]] QByteArray data(const QString& path) const;

    // The same as text of whichever encoding.
    [[nodiscard]] QString text(const QString& path) const;

    // The path of a file on the disk; nothing inside of a zip.
    [[nodiscard]] std::optional<QString> fileURL(const QString& path) const;

    // Calls `body` with the path of a real file and gives its result. For a zip that is a copy in
    // a folder of its own, which goes afterwards in any case. Throws as `data`, FileError (Write,
    // MakeFolder), badArchive for a name that no file can have, and what `body` throws.
    template <typename Body>
    auto withFile(const QString& path, Body&& body) const {
        const LentFile file = lend(path);
        return std::forward<Body>(body)(file.path());
    }

    // The files below a folder, at most `limit`. Hidden files, links to folders, what is no file,
    // and names that aren't UTF-8 are left out, as are the folders where note applications keep
    // attachments and backups. A document folder (rtfd) counts as a file.
    [[nodiscard]] static QStringList listFolder(const QString& url, qsizetype limit = kListLimit);

    // Whether some component of a path in a zip is hidden, or is where one system keeps what other
    // systems don't know: "a/.git/b", "__MACOSX/b", and also "../b".
    [[nodiscard]] static bool isJunk(QStringView path);

private:
    // A file and, where it was made for the purpose, the folder around it.
    class LentFile {
    public:
        explicit LentFile(QString path) : m_path(std::move(path)) {}
        // Makes the folder and the file in it. Throws FileError (MakeFolder, Write).
        LentFile(QString folder, const QString& name, const QByteArray& bytes);
        LentFile(const LentFile&) = delete;
        LentFile& operator=(const LentFile&) = delete;
        ~LentFile();

        [[nodiscard]] const QString& path() const { return m_path; }

    private:
        QString m_folder;
        QString m_path;
    };

    void open();
    void openZip();
    [[nodiscard]] LentFile lend(const QString& path) const;
    // The path on the disk, for all packages but zips.
    [[nodiscard]] QString pathOnDisk(const QString& path) const;
    [[nodiscard]] const ZipArchive::Entry& entry(const Zip& zip, const QString& path) const;

    QString m_url;
    Storage m_storage;
    QStringList m_paths;
};

}  // namespace diary
