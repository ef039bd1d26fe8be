#include "DiaryKit/ImportReader/ImportReader.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <algorithm>
#include <optional>
#include <utility>

#include "DiaryKit/AppSources/AppleJournalSource.h"
#include "DiaryKit/AppSources/DayOneSource.h"
#include "DiaryKit/AppSources/FlomoSource.h"
#include "DiaryKit/AppSources/JourneySource.h"
#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/FolderSources/MarkdownFolderSource.h"
#include "DiaryKit/FolderSources/VelmarFolderSource.h"
#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/ImportPackage.h"
#include "DiaryKit/Import/PackagePath.h"
#include "DiaryKit/Vault/YearSectionParser.h"

namespace diary::ImportReader {

using namespace Qt::StringLiterals;

namespace {

bool hasSection(const QString& path) {
    const std::optional<QByteArray> bytes = atomicfile::tryRead(path);
    const std::optional<QString> text = bytes ? utf8::decodedStrictly(*bytes) : std::nullopt;
    return text && !YearSectionParser::sections(*text).empty();
}

// Whether a folder with names of day files is a vault, and not a pile of notes that are named by
// days. Some files are enough to tell.
bool isVelmarFormat(const QString& folder) {
    constexpr int kLooks = 20;
    const QDir files(folder);
    int looks = 0;
    const QStringList names = files.entryList(QDir::Files | QDir::Hidden, QDir::Name);
    for (const QString& name : names) {
        if (!MonthDay::parse(name)) continue;
        if (hasSection(files.filePath(name))) return true;
        if (++looks == kLooks) break;
    }
    return false;
}

bool isDaylioBackup(const ImportPackage& package, QStringView extension) {
    const QStringList& paths = package.paths();
    return extension == "daylio"_L1 ||
           std::any_of(paths.begin(), paths.end(), [](const QString& path) {
               return package_path::lastComponent(path) == "backup.daylio"_L1;
           });
}

ImportError unrecognized() {
    return ImportError(ImportError::Kind::unrecognized);
}

// One package on its way to its reader.
class Reading {
public:
    Reading(const ImportPackage& package, const QString& name, const Options& options,
            const DatedTextSource::DocumentReaders& readers)
        : m_package(package), m_name(name), m_options(options), m_readers(readers) {}

    [[nodiscard]] ImportBatch file(const QString& extension) const {
        if (extension == "csv"_L1) return csvFile(m_package.paths().first());
        if (extension == "json"_L1) {
            if (!DayOneSource::journalFiles(m_package).isEmpty()) {
                return DayOneSource::read(m_package, m_name);
            }
            if (!JourneySource::entryFiles(m_package).isEmpty()) {
                return JourneySource::read(m_package, m_name);
            }
            throw unrecognized();
        }
        const bool isPage = extension == "html"_L1 || extension == "htm"_L1;
        if (isPage && !FlomoSource::memoFiles(m_package).isEmpty()) {
            return FlomoSource::read(m_package, m_name);
        }
        if (!DatedTextSource::fileExtensions().contains(extension)) throw unrecognized();
        return datedText(m_package.url());
    }

    // The order decides, since several readers could claim the same files.
    [[nodiscard]] ImportBatch files() const {
        if (!DayOneSource::journalFiles(m_package).isEmpty()) {
            return DayOneSource::read(m_package, m_name);
        }
        if (!AppleJournalSource::entryFiles(m_package).isEmpty()) {
            return AppleJournalSource::read(m_package, m_name);
        }
        if (!JourneySource::entryFiles(m_package).isEmpty()) {
            return JourneySource::read(m_package, m_name);
        }
        if (!FlomoSource::memoFiles(m_package).isEmpty()) {
            return FlomoSource::read(m_package, m_name);
        }
        if (auto batch = daylioTable()) return std::move(*batch);
        if (!MarkdownFolderSource::datedNotes(m_package).empty()) {
            return MarkdownFolderSource::read(m_package, m_name);
        }
        return onlyDocument();
    }

private:
    // A table of something else goes through as text.
    [[nodiscard]] ImportBatch csvFile(const QString& path) const {
        QString text = m_package.text(path);
        if (DaylioSource::isCSV(text)) {
            return DaylioSource::readCSV(text, m_name, m_options.moodLabels);
        }
        return DatedTextSplit::split(std::move(text), m_name, m_options.split);
    }

    [[nodiscard]] std::optional<ImportBatch> daylioTable() const {
        constexpr qsizetype kHead = 4096;
        const QStringList tables = m_package.pathsWithExtensions({u"csv"_s});
        if (tables.isEmpty() || !DaylioSource::isCSV(m_package.head(tables.first(), kHead))) {
            return std::nullopt;
        }
        return DaylioSource::readCSV(m_package.text(tables.first()), m_name, m_options.moodLabels);
    }

    // So that a zip with one document in it reads as the document.
    [[nodiscard]] ImportBatch onlyDocument() const {
        const QStringList documents =
            m_package.pathsWithExtensions(DatedTextSource::fileExtensions());
        if (documents.size() != 1) throw unrecognized();
        return m_package.withFile(documents.first(),
                                  [this](const QString& path) { return datedText(path); });
    }

    [[nodiscard]] ImportBatch datedText(const QString& path) const {
        return DatedTextSplit::split(DatedTextSource::text(path, m_readers), m_name,
                                     m_options.split);
    }

    const ImportPackage& m_package;
    const QString& m_name;
    const Options& m_options;
    const DatedTextSource::DocumentReaders& m_readers;
};

}  // namespace

ImportBatch read(const QString& url, const Options& options,
                 const DatedTextSource::DocumentReaders& readers) {
    const QString path = QDir::cleanPath(url);
    const QString name = QFileInfo(path).fileName();
    // Ahead of any package: a vault is a folder of Markdown files, too.
    if (QFileInfo(path).isDir()) {
        const std::optional<QString> folder = VelmarFolderSource::dayFolder(path);
        if (folder && isVelmarFormat(*folder)) {
            return VelmarFolderSource::read(path, name, options.currentYear);
        }
    }
    const ImportPackage package(path);
    const QString extension = package_path::extension(path).toString().toLower();
    if (isDaylioBackup(package, extension)) {
        return DaylioSource::readBackup(package, name, options.moodLabels);
    }
    const Reading reading(package, name, options, readers);
    const bool isFile = !package.isFolder() && !package.isZip();
    return isFile ? reading.file(extension) : reading.files();
}

ImportBatch read(const QString& text, const QString& name, const Options& options) {
    return DatedTextSplit::split(text, name, options.split);
}

}  // namespace diary::ImportReader
