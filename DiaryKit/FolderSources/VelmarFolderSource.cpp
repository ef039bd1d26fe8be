#include "DiaryKit/FolderSources/VelmarFolderSource.h"

#include <dirent.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <algorithm>
#include <cerrno>
#include <memory>
#include <vector>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Foundation/TextSets.h"
#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Import/ImportError.h"
#include "DiaryKit/Import/LocalTime.h"
#include "DiaryKit/Import/PackagePath.h"
#include "DiaryKit/Import/TextDecoding.h"
#include "DiaryKit/Vault/YearHeader.h"
#include "DiaryKit/Vault/YearSectionParser.h"

namespace diary::VelmarFolderSource {

namespace {

using Kind = ImportIssue::Kind;

constexpr int kFirstYear = 1900;

struct DirectoryCloser {
    void operator()(DIR* directory) const { closedir(directory); }
};

// What the folder holds, in no order. Throws FileError (Read).
QStringList namesIn(const QString& folder) {
    const std::unique_ptr<DIR, DirectoryCloser> directory(
        opendir(QFile::encodeName(folder).constData()));
    if (!directory) throw FileError(FileOperation::Read, folder, errno);
    QStringList names;
    while (const dirent* const item = readdir(directory.get())) {
        const QByteArrayView name(item->d_name);
        if (!name.startsWith('.') && utf8::isValid(name)) names.append(QString::fromUtf8(name));
    }
    return names;
}

// Calls `visit(line)` for each line that isn't empty, until it returns true.
template <typename Visit>
void findLine(QStringView text, Visit visit) {
    for (qsizetype start = 0; start < text.size();) {
        const qsizetype found = text.indexOf(u'\n', start);
        const qsizetype end = found < 0 ? text.size() : found;
        if (end > start && visit(text.sliced(start, end - start))) return;
        start = end + 1;
    }
}

bool hasOtherTitle(QStringView text, const MonthDay& monthDay) {
    bool isOther = false;
    findLine(text, [&](QStringView line) {
        isOther = text::trimmedOfBlanks(line) != QLatin1String("# ") + monthDay.headerTitle();
        return true;
    });
    return isOther;
}

// The day files of one folder, read into a batch one after the other.
class FolderReader {
public:
    FolderReader(QString folder, int currentYear, ImportBatch& batch)
        : m_folder(std::move(folder)), m_currentYear(currentYear), m_batch(batch) {}

    void readName(const QString& name) {
        const QString path = m_folder + u'/' + name;
        m_file = name;
        const std::optional<MonthDay> monthDay = MonthDay::parse(name);
        if (QFileInfo(path).isDir()) {
            m_file += u'/';
            report(Kind::ignoredFile);
        } else if (!monthDay) {
            report(Kind::ignoredFile);
        } else if (!isInCycle(*monthDay)) {
            report(Kind::invalidDate);
        } else if (const std::optional<QByteArray> bytes = atomicfile::tryRead(path)) {
            std::optional<QString> text = utf8::decodedStrictly(*bytes);
            readDay(text ? *text : TextDecoding::legacy(*bytes), *monthDay);
        } else {
            report(Kind::unreadable);
        }
    }

private:
    static bool isInCycle(const MonthDay& monthDay) {
        const auto month = static_cast<std::size_t>(monthDay.month - 1);
        return monthDay.day <= MonthDay::daysInCycleMonth[month];
    }

    void report(Kind kind, const std::optional<QString>& detail = {}) {
        m_batch.issues.push_back({kind, m_file, detail});
    }

    void readDay(const QString& text, const MonthDay& monthDay) {
        if (hasOtherTitle(text, monthDay)) report(Kind::titleMismatch);
        for (YearSectionParser::YearBody& section : mergedByYear(text)) {
            readSection(std::move(section), monthDay);
        }
    }

    // One body for each year, in the order in which the years come first.
    std::vector<YearSectionParser::YearBody> mergedByYear(const QString& text) {
        std::vector<YearSectionParser::YearBody> merged;
        QHash<int, std::size_t> places;
        for (YearSectionParser::YearBody& section : YearSectionParser::sectionBodies(text)) {
            const auto place = places.constFind(section.year);
            if (place == places.constEnd()) {
                places.insert(section.year, merged.size());
                merged.push_back(std::move(section));
                continue;
            }
            report(Kind::duplicateYear, QString::number(section.year));
            QString& body = merged[*place].body;
            if (!body.isEmpty() && !section.body.isEmpty()) body += QLatin1String("\n\n");
            body += section.body;
        }
        return merged;
    }

    void readSection(YearSectionParser::YearBody&& section, const MonthDay& monthDay) {
        if (section.body.isEmpty()) return;
        const DiaryDay day{section.year, monthDay.month, monthDay.day};
        const QString year = QString::number(day.year);
        if (day.year < kFirstYear || day.year > m_currentYear) {
            return report(Kind::yearOutOfRange, year);
        }
        if (!LocalTime::isValid(day.year, day.month, day.day)) {
            return report(Kind::invalidDate, year);
        }
        if (const std::optional<QString> heading = undemotedHeading(section.body)) {
            report(Kind::undemotedHeading, year + QStringLiteral(" · ") + *heading);
        }
        // By the vault's own rule of lines and fences, or the sections behind this one would
        // vanish in a fence that the vault sees and this reading didn't.
        if (YearSectionParser::leavesFenceOpen(section.body)) {
            report(Kind::unclosedFence, year);
            section.body = YearSectionParser::closingFence(section.body);
        }
        m_batch.entries.push_back(
            {.day = day, .body = std::move(section.body), .isVelmarSection = true});
    }

    QString m_folder;
    int m_currentYear;
    ImportBatch& m_batch;
    // What issues are about at the moment.
    QString m_file;
};

std::optional<QString> reportBeside(const QString& folder) {
    const QString parent = QFileInfo(folder).path();
    for (const QStringView name : reportNames) {
        QString path = parent + u'/' + name.toString();
        if (QFileInfo::exists(path)) return path;
    }
    return std::nullopt;
}

}  // namespace

int dayFileCount(const QString& folder) {
    try {
        const QStringList names = namesIn(folder);
        return static_cast<int>(std::count_if(names.begin(), names.end(), [](const QString& name) {
            return MonthDay::parse(name).has_value();
        }));
    } catch (const FileError&) {
        return 0;
    }
}

std::optional<QString> dayFolder(const QString& url) {
    QString folder = QDir::cleanPath(url);
    if (dayFileCount(folder) > 0) return folder;
    for (const QStringView name : outputFolderNames) {
        QString output = folder + u'/' + name.toString();
        if (dayFileCount(output) > 0) return output;
    }
    return std::nullopt;
}

ImportBatch read(const QString& url, const QString& name, int currentYear) {
    const std::optional<QString> folder = dayFolder(url);
    if (!folder) throw ImportError(ImportError::Kind::unrecognized);
    ImportBatch batch{.source = ImportSource::velmarFolder, .name = name};
    FolderReader reader(*folder, currentYear, batch);
    for (const QString& file : package_path::sorted(namesIn(*folder))) reader.readName(file);
    batch.reportURL = reportBeside(*folder);
    return batch;
}

std::optional<QString> undemotedHeading(QStringView body) {
    std::optional<QString> heading;
    bool isFenced = false;
    findLine(body, [&](QStringView line) {
        if (yearheader::isFence(line.utf16(), line.size())) {
            isFenced = !isFenced;
        } else if (!isFenced && (line.startsWith(u"# ") || line.startsWith(u"## "))) {
            heading = line.toString();
        }
        return heading.has_value();
    });
    return heading;
}

}  // namespace diary::VelmarFolderSource
