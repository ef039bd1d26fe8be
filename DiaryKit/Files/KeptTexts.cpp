#include "DiaryKit/Files/KeptTexts.h"

#include <fcntl.h>
#include <unistd.h>

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QTimeZone>
#include <algorithm>
#include <array>
#include <cerrno>
#include <exception>
#include <tuple>
#include <utility>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Files/Descriptor.h"
#include "DiaryKit/Files/UserFolders.h"
#include "DiaryKit/Foundation/FileError.h"

namespace diary {

namespace {

constexpr std::array<std::pair<KeptReason, QLatin1String>, 4> kWords = {{
    {KeptReason::Overwritten, QLatin1String("overwritten")},
    {KeptReason::Undecodable, QLatin1String("undecodable")},
    {KeptReason::UnsavedDraft, QLatin1String("draft")},
    {KeptReason::UnsavedMerge, QLatin1String("merge")},
}};

QLatin1String wordOf(KeptReason reason) {
    return std::ranges::find(kWords, reason, &decltype(kWords)::value_type::first)->second;
}

QString momentForm() {
    return QStringLiteral("yyyyMMdd-HHmmsszzz");
}

QString putBackSuffix() {
    return QStringLiteral(".put-back");
}

// "2026-03-07 18:15:30.120 UTC", 2024, a draft -> "20260307-181530120 2024 draft"
QString stemOf(const QDateTime& moment, std::optional<int> year, KeptReason reason) {
    return moment.toString(momentForm()) + QLatin1Char(' ') +
           (year ? QString::number(*year) : QStringLiteral("file")) + QLatin1Char(' ') +
           wordOf(reason);
}

// What a file's name says; absent if it isn't a kept text's, or one that was put back.
std::optional<KeptText> parsed(const QString& folder, const QString& name) {
    static const QRegularExpression form(QRegularExpression::anchoredPattern(
        QStringLiteral("(\\d{8}-\\d{9}) (file|-?\\d+) ([a-z]+)(?:-\\d+)?\\.md")));
    const QRegularExpressionMatch match = form.match(name);
    if (!match.hasMatch()) return std::nullopt;
    const auto word =
        std::ranges::find(kWords, match.captured(3), &decltype(kWords)::value_type::second);
    QDateTime moment = QDateTime::fromString(match.captured(1), momentForm());
    if (word == kWords.end() || !moment.isValid()) return std::nullopt;
    moment.setTimeSpec(Qt::UTC);
    KeptText text{.path = folder + QLatin1Char('/') + name,
                  .reason = word->first,
                  .year = std::nullopt,
                  .moment = moment};
    if (match.captured(2) != QLatin1String("file")) text.year = match.captured(2).toInt();
    return text;
}

// Of one moment the name with the greater number is the later one, and it is the longer.
bool isEarlier(const KeptText& a, const KeptText& b) {
    const auto order = [](const KeptText& text) {
        return std::tuple(text.moment, text.path.size(), text.path);
    };
    return order(a) < order(b);
}

// Takes the first free name for the stem in the folder, by an empty file of that name.
QString reserved(const QString& folder, const QString& stem) {
    for (int number = 1;; ++number) {
        const QString tail =
            number == 1 ? QStringLiteral(".md") : QStringLiteral("-%1.md").arg(number);
        QString path = folder + QLatin1Char('/') + stem + tail;
        if (QFile::exists(path + putBackSuffix())) continue;
        const Descriptor file(::open(QFile::encodeName(path).constData(),
                                     O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (file.isOpen()) return path;
        if (errno != EEXIST) throw FileError(FileOperation::Write, path, errno);
    }
}

QString written(const QString& folder, const QString& stem, QByteArrayView bytes) {
    atomicfile::makePrivateFolder(folder);
    QString path = reserved(folder, stem);
    try {
        atomicfile::write(path, bytes);
    } catch (const FileError&) {
        ::unlink(QFile::encodeName(path).constData());
        throw;
    }
    return path;
}

// "My Diary!" -> "My Diary_"; the length keeps the name within what file systems take.
QString sanitised(const QString& name) {
    static const QRegularExpression foreign(QStringLiteral("[^\\w .-]"),
                                            QRegularExpression::UseUnicodePropertiesOption);
    constexpr qsizetype kMostCharacters = 40;
    return QString(name).replace(foreign, QStringLiteral("_")).left(kMostCharacters);
}

// "/home/anna/Diary" -> "Diary-0123456789ab"
QString vaultFolderName(const QString& vault) {
    const QString path = resolvedPath(vault);
    const QByteArray key =
        QCryptographicHash::hash(QFile::encodeName(path), QCryptographicHash::Sha256);
    constexpr qsizetype kDigits = 12;
    return sanitised(path.section(QLatin1Char('/'), -1)) + QLatin1Char('-') +
           QString::fromLatin1(key.toHex().first(kDigits));
}

}  // namespace

KeptTexts::KeptTexts(const QString& vault)
    : KeptTexts(vault, {userStateFolder(), userRuntimeFolder(), userTemporaryFolder()}) {}

KeptTexts::KeptTexts(const QString& vault, QStringList baseFolders) {
    baseFolders.removeAll(QString());
    baseFolders.removeDuplicates();
    const QString name = vaultFolderName(vault);
    for (const QString& base : std::as_const(baseFolders)) {
        m_folders.append(base + QStringLiteral("/kept/") + name);
    }
}

KeptText KeptTexts::keep(const QString& day, std::optional<int> year, KeptReason reason,
                         QByteArrayView bytes, const QDateTime& moment) const {
    const std::vector<KeptText> known = list(day, reason);
    const auto newest = std::find_if(known.rbegin(), known.rend(),
                                     [&](const KeptText& text) { return text.year == year; });
    if (newest != known.rend() && atomicfile::tryRead(newest->path) == bytes) return *newest;

    const QDateTime utc = moment.toUTC();
    std::exception_ptr firstFailure;
    for (const QString& folder : m_folders) {
        try {
            return {
                .path = written(folder + QLatin1Char('/') + day, stemOf(utc, year, reason), bytes),
                .reason = reason,
                .year = year,
                .moment = utc};
        } catch (const FileError&) {
            if (!firstFailure) firstFailure = std::current_exception();
        }
    }
    if (firstFailure) std::rethrow_exception(firstFailure);
    throw FileError(FileOperation::Write, day, ENOENT);
}

std::vector<KeptText> KeptTexts::list(const QString& day, KeptReason reason) const {
    std::vector<KeptText> texts;
    for (const QString& base : m_folders) {
        const QString folder = base + QLatin1Char('/') + day;
        const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files);
        for (const QFileInfo& file : files) {
            // An empty one was begun when the process died.
            if (file.size() == 0) continue;
            std::optional<KeptText> text = parsed(folder, file.fileName());
            if (text && text->reason == reason) texts.push_back(*std::move(text));
        }
    }
    std::ranges::sort(texts, isEarlier);
    return texts;
}

void KeptTexts::markPutBack(const KeptText& text) const {
    atomicfile::move(text.path, text.path + putBackSuffix());
}

QString KeptTexts::folder() const {
    return m_folders.value(0);
}

}  // namespace diary
